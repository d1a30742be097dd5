# SPDX-License-Identifier: Apache-2.0
"""A chat window of the program `zepa` as a screen reader's user has it."""

import json

from accessible import AccessibleTest
from support import DesktopTest

LATER = 100


class ChatTest(DesktopTest):
    """Has no test itself: a chat window of `zepa` and what comes into it."""

    options = {"service": "none"}

    def chat(self, *events, **more):
        """Starts a client with a chat window for each buddy, which stays; `events` have what differs from a message."""
        script = self.desktop.folder / "script.jsonl"
        usual = {"type": "message_received", "title": "Ann", "buddy": "Ann"}
        # The last event comes later than any test needs, and keeps the client.
        lines = [usual | event for event in events] + [usual | {"at": LATER, "title": "the end"}]
        script.write_text("".join(json.dumps(line) + "\n" for line in lines))
        return self.start_zepa("play", str(script), "--chats")


class ChatWindowAloud(AccessibleTest, ChatTest):
    def test_an_information_line_is_in_the_history_and_is_announced(self):
        client = self.chat({"at": 3, "type": "alert_received_notify", "text": "Ann <b>knocks</b>"})
        window = self.application(client).find("frame", "Ann")
        self.accessibility.listen()
        # Screen readers speak a notification that comes into view; its name is what they say.
        said = self.accessibility.wait_for("state-changed", "showing", lambda event: event.node.role == "notification")
        self.assertEqual(said.numbers[0], 1)
        self.assertRegex(said.node.name, r"^Information: \d\d:\d\d  Ann <b>knocks</b>$")
        self.assertEqual(self.accessibility.events("property-change", "accessible-name")[-1].node, said.node)

        history = window.find(name="Conversation with Ann")
        self.assertIn("Ann <b>knocks</b>", history.text)

    def test_what_is_in_the_window_has_names(self):
        client = self.chat({"at": 0, "text": "Lunch at noon?"})
        window = self.application(client).find("frame", "Ann")
        names = {node.role: node.name for node in window.all()}
        self.assertEqual(names["push button"], "Send")
        history = window.find("text", "Conversation with Ann")
        self.assertIn("Lunch at noon?", history.text)
        self.assertNotIn("editable", history.states)
        message = window.find("text", "Message to Ann")
        self.assertIn("editable", message.states)
        message.wait_for_state("focused")
        self.assertEqual(window.find("label", "not available").role, "label")
