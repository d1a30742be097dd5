# SPDX-License-Identifier: Apache-2.0
"""The notification settings of the program `zepa`, with the mouse and the keyboard of a person."""

import json

from accessible import AccessibleTest, next_in_focus, press, write
from support import screen

POPUP = "zepa_hint_notification"
SOUND = "zepa_sound_notification_method"


class SettingsTest(AccessibleTest):
    """Has no test itself: the settings window of a running client."""

    options = {"service": "none", "size": "1280x1000"}

    def open_settings(self):
        """Starts the client and opens the window with keys alone."""
        self.client = self.start_zepa()
        application = self.application(self.client)
        application.find("list", "Contacts").wait_for_state("focused")

        def opened():
            # A key that comes before the window manager has given us the keyboard is lost; a second one does no harm.
            press(self.desktop, "ctrl+comma")
            return application.find_all(name="Notification settings")

        self.window = screen.wait_until(opened, "the settings should be open")[0]
        self.window.wait_for_state("active")
        self.table = self.window.find("table", "Events and methods")
        self.table.wait_for_state("focused")

    def cell(self, event, method):
        """The cell of that pair; what it says of the rules is the end of its name."""
        return next(node for node in self.table.children if node.name.startswith(f"{event}, {method}: "))

    def wait_for_rules(self, event, method, words):
        cell = self.cell(event, method)
        screen.wait_until(lambda: cell.name == f"{event}, {method}: {words}", f"{event}, {method} should have {words}")

    def go_to(self, event, method):
        """Goes to the cell of that pair with arrow keys, from the first cell on."""
        names = [node.name for node in self.table.children if ": " in node.name]
        events = list(dict.fromkeys(name.split(", ")[0] for name in names if ", " in name))
        methods = list(dict.fromkeys(name.split(", ")[1].split(":")[0] for name in names if ", " in name))
        press(self.desktop, "ctrl+Home", *["Down"] * events.index(event), *["Right"] * methods.index(method))

    def tab_to(self, role, name):
        """Presses Tab until that has the focus."""
        target = self.window.find(role, name)
        for _ in range(30):
            if next_in_focus(self, "Tab") == target:
                return
        self.fail(f"Tab does not lead to {target!r}")

    def wait_for_words(self, words, work):
        """Does `work`, and waits until the window says something that begins with these words."""
        self.accessibility.listen()
        work()
        self.accessibility.wait_for("property-change", "accessible-name",
                                    lambda heard: heard.node.role == "notification"
                                    and heard.node.name.startswith(words))

    def stored(self, event, method):
        """The settings of the stored rules of a pair, as a client that starts now reads them."""
        rules = json.loads(self.zepa("rules", event, "--json"))
        return [rule["settings"] for rule in rules if rule["method"] == method]


class SettingsWindow(SettingsTest):
    def test_rules_edited_with_the_mouse_are_kept_for_the_next_start(self):
        self.open_settings()
        self.cell("Typing started", "Pop-up").click()
        self.wait_for_rules("Typing started", "Pop-up", "one rule")
        sticky = self.window.find("check box", "Sticky")
        sticky.click()
        sticky.wait_for_state("checked")
        self.cell("Message received", "Sound").click()
        self.wait_for_rules("Message received", "Sound", "no rule")
        self.client.stop()

        self.open_settings()
        self.wait_for_rules("Typing started", "Pop-up", "one rule")
        self.wait_for_rules("Message received", "Sound", "no rule")
        self.client.stop()
        self.assertEqual(self.stored("typing_started_notify", POPUP), [{"sticky": True}])
        self.assertEqual(self.stored("message_received", SOUND), [])

    def test_rules_and_settings_are_edited_and_undone_with_the_keyboard_alone(self):
        self.open_settings()
        self.go_to("Typing started", "Pop-up")
        self.wait_for_words("Typing started, Pop-up: one rule", lambda: press(self.desktop, "space"))
        self.tab_to("check box", "Sticky")
        press(self.desktop, "space")
        self.window.find("check box", "Sticky").wait_for_state("checked")
        self.tab_to("spin box", "Drop repeats for")
        press(self.desktop, "ctrl+a")
        write(self.desktop, "30")
        press(self.desktop, "Return", "alt+a")
        self.wait_for_rules("Typing started", "Pop-up", "2 rules")
        self.wait_for_words("Undone: Add: Typing started, Pop-up", lambda: press(self.desktop, "ctrl+z"))
        press(self.desktop, "Escape")
        self.client.stop()
        self.assertEqual(self.stored("typing_started_notify", POPUP), [{"sticky": True}])
        self.assertEqual(self.zepa("setting", "get", "duplicated_notifications_time").strip(), "30")

    def test_what_a_command_changes_is_shown_at_once(self):
        self.open_settings()
        self.wait_for_rules("Typing started", "Pop-up", "no rule")
        self.zepa("rule", "set", "typing_started_notify", POPUP)
        self.wait_for_rules("Typing started", "Pop-up", "one rule")


class SettingsSample(SettingsTest):
    options = {"service": "dunst", "size": "1280x1000"}

    def popups(self):
        return screen.windows(self.desktop, "--class", "Dunst")

    def test_a_sample_shows_the_popup_of_its_event_once_it_has_a_rule(self):
        self.open_settings()
        self.go_to("Typing started", "Pop-up")
        self.wait_for_words("Sample 1: there is no rule", lambda: press(self.desktop, "alt+s"))
        self.assertEqual(self.popups(), [])
        press(self.desktop, "alt+a")
        self.wait_for_rules("Typing started", "Pop-up", "one rule")
        self.wait_for_words("Sample 2 went to: Pop-up", lambda: press(self.desktop, "alt+s"))
        screen.wait_until(self.popups, "the pop-up should be on the screen")
