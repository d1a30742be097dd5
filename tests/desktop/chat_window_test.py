# SPDX-License-Identifier: Apache-2.0
"""A chat window of the program `zepa` as a screen reader's user has it."""

import json

from accessible import AccessibleTest, press, write
from support import DesktopTest, screen

GREEN = "#00e000"
LATER = 3600
# Late enough for screen readers to have found the window.
KNOCK = {"at": 15, "type": "alert_received_notify", "text": "Ann <b>knocks</b>"}


class ChatTest(DesktopTest):
    """Has no test itself: a chat window of `zepa` and what comes into it."""

    options = {"service": "none"}

    def chat(self, *events):
        """Starts a client with a chat window for each buddy, which stays; `events` have what differs from a message."""
        script = self.desktop.folder / "script.jsonl"
        usual = {"type": "message_received", "title": "Ann", "buddy": "Ann"}
        # The last event comes later than any test needs, and keeps the client.
        lines = [usual | event for event in events] + [usual | {"at": LATER, "title": "the end"}]
        script.write_text("".join(json.dumps(line) + "\n" for line in lines))
        return self.start_zepa("play", str(script), "--chats")


class Announcement:
    """The test of X11 and Wayland; a class below names the desktop."""

    def test_an_information_line_is_in_the_history_and_is_announced(self):
        client = self.chat(KNOCK)
        window = self.application(client).find("frame", "Ann")
        named, *shown = self.announced(1)
        self.assertRegex(named.node.name, r"^Information: \d\d:\d\d  Ann <b>knocks</b>$")
        self.assertEqual([event.node for event in shown], [named.node])
        self.assertIn("Ann <b>knocks</b>", window.find("text", "Conversation with Ann").text)

    def announced(self, times):
        """The event that named the line, and those behind it that have it spoken: a notification comes into view."""
        named = self.accessibility.wait_for("property-change", "accessible-name",
                                            lambda event: event.node.role == "notification")

        def shown():
            events = self.accessibility.events()
            behind = events[events.index(named):]
            found = [event for event in behind if event.detail == "showing" and event.node == named.node]
            self.assertTrue(all(event.numbers[0] == 1 for event in found))
            return found if len(found) >= times else None

        return [named, *screen.wait_until(shown, f"{times} announcements")]


class ChatWindowAloud(Announcement, AccessibleTest, ChatTest):
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

    def test_the_same_line_twice_is_announced_twice(self):
        client = self.chat(KNOCK, KNOCK | {"title": "again"})
        window = self.application(client).find("frame", "Ann")
        self.assertEqual(len(self.announced(2)), 3)
        self.assertEqual(window.find("text", "Conversation with Ann").text.count("knocks"), 2)


class ChatWindowAloudOnWayland(Announcement, AccessibleTest, ChatTest):
    options = {"service": "none", "wayland": True}


class ChatWindowByKeyboard(AccessibleTest, ChatTest):
    """Real keys, on the way from the X server to the window."""

    def setUp(self):
        super().setUp()
        lines = [{"at": 0, "title": f"{number}", "text": f"line {number}"} for number in range(60)]
        self.client = self.chat(*lines)
        self.window = self.application(self.client).find("frame", "Ann")
        self.message = self.window.find("text", "Message to Ann")
        self.history = self.window.find("text", "Conversation with Ann")
        screen.wait_until(lambda: "line 59" in self.history.text, "all lines")
        self.message.wait_for_state("focused")

    def test_the_tab_key_goes_round_from_the_message_over_the_button_to_the_history(self):
        order = [self.message, self.window.find("push button", "Send"), self.history]
        for following in [*order[1:], order[0]]:
            press(self.desktop, "Tab")
            following.wait_for_state("focused")
        for following in reversed(order):
            press(self.desktop, "shift+Tab")
            following.wait_for_state("focused")

    def test_page_up_and_page_down_move_the_history_while_the_message_is_written(self):
        bar = max(self.history.find_all("scroll bar"), key=lambda bar: bar.value)
        end = bar.value
        self.assertGreater(end, 0)
        press(self.desktop, "Prior")
        screen.wait_until(lambda: bar.value < end, "the history should have moved up")
        once = bar.value
        press(self.desktop, "Prior")
        screen.wait_until(lambda: bar.value < once, "the history should have moved up again")
        press(self.desktop, "Next", "Next")
        screen.wait_until(lambda: bar.value == end, "the history should be at its end")
        self.assertIn("focused", self.message.states)

    def test_a_message_is_written_and_sent_by_keys_and_by_the_mouse(self):
        write(self.desktop, "by keys")
        screen.wait_until(lambda: self.message.text == "by keys", "what is written")
        press(self.desktop, "Return")
        screen.wait_until(lambda: self.history.text.endswith("by keys"), "the sent line")
        self.assertEqual(self.message.text, "")
        write(self.desktop, "by the mouse")
        self.window.find("push button", "Send").click()
        screen.wait_until(lambda: self.history.text.endswith("by the mouse"), "the sent line")
        self.message.wait_for_state("focused")

    def test_escape_closes_the_window(self):
        press(self.desktop, "Escape")
        application = self.application(self.client)
        screen.wait_until(lambda: not application.find_all("frame", "Ann"), "the window should be gone")


class ChatWindowAtTwiceTheSize(ChatTest):
    def test_the_window_and_its_pictures_are_twice_as_large(self):
        pictures = self.desktop.folder / "home/.local/share/zepa/themes/icons/default/icons"
        pictures.mkdir(parents=True)
        self.desktop.run("convert", "-size", "200x200", f"xc:{GREEN}", str(pictures / "green.png"))
        windows, shown = [], []
        for scale in (1, 2):
            self.desktop.env["QT_SCALE_FACTOR"] = str(scale)
            client = self.chat({"text": f"Look: image:{pictures}/green.png:image"})
            now = self.desktop.folder / f"scale-{scale}.png"
            shown.append(screen.wait_until(lambda: screen.colour(screen.picture(self.desktop, now), GREEN),
                                           "the picture in the chat window"))
            windows.append(screen.window_box(self.desktop, screen.windows(self.desktop, "--name", "^Ann")[0]))
            self.assertTrue(windows[-1].holds(shown[-1]), (windows, shown))
            client.stop()
        for one, two in (windows, shown):
            self.assertAlmostEqual(two.width / one.width, 2, delta=0.1)
            self.assertAlmostEqual(two.height / one.height, 2, delta=0.1)
