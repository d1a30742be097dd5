# SPDX-License-Identifier: Apache-2.0
"""The main window of `zepa`, driven by mouse and keyboard and read as a screen reader reads it."""

from accessible import AccessibleTest, next_in_focus, press, write
from support import SERVICES, screen

# The simulator's events in their order.
WRITES, E_MAIL, NEWS, FAILS, COMES_ONLINE, STARTS_TYPING = 0, 6, 7, 8, 10, 14
# The journal's columns.
VERDICT, EVENT, ABOUT, METHODS = 1, 2, 4, 5


class MainWindowTest(AccessibleTest):
    """Has no test itself: the program with its main window."""

    def open(self):
        self.client = self.start_zepa()
        self.window = self.application(self.client).find("frame", "Zepa")
        self.contacts = self.window.find("list", "Contacts")
        self.contacts.wait_for_state("focused")
        self.wait_for_keyboard()
        self.details = self.window.find("text", "Why did this not pop up?")

    def wait_for_keyboard(self):
        """Until keys come to the main window: the X server decides, and what the program says of it may be old."""
        def has_it():
            focus = self.desktop.run("xdotool", "getwindowfocus", "getwindowname").strip()
            return focus == "Zepa" and "active" in self.window.states

        screen.wait_until(has_it, "the main window should have the keyboard")

    def close(self):
        """Closes the main window by the window manager's key, which it does not hear while it is at work."""
        def is_closed():
            press(self.desktop, "alt+F4")
            return not screen.windows(self.desktop, "--name", "^Zepa$")

        screen.wait_until(is_closed, "the window should be closed")

    def choose(self, event):
        """Chooses an event of the simulator by keys."""
        events = self.window.find("panel", "Simulator").find("combo box")

        def is_focused():
            # A key that comes while another window has the keyboard is lost; a second one does no harm.
            press(self.desktop, "alt+e")
            return "focused" in events.states

        screen.wait_until(is_focused, "the list of events should have the focus")
        press(self.desktop, "Home", *["Down"] * event)

    def post(self, event):
        """Posts an event for the chosen contact, by keys and by the mouse."""
        self.choose(event)
        self.window.find("push button", "Post").click()

    def told(self, answer):
        """Waits until the journal answers this for the posting that it shows."""
        screen.wait_until(lambda: answer in self.details.text, f"{answer!r} in the journal's details")

    def journal(self):
        """The rows of the journal, each a list of its cells' texts."""
        cells = [cell.name for cell in self.window.find("table", "Journal").find_all("cell")]
        return [cells[start:start + METHODS + 1] for start in range(0, len(cells), METHODS + 1)]

    def click_popup(self, how):
        popups = screen.wait_until(lambda: screen.windows(self.desktop, "--class", "Dunst"), "a pop-up")
        box = screen.window_box(self.desktop, popups[0])
        screen.click(self.desktop, box.at(how.across, how.down), how.button)


class MainWindowVerdicts(MainWindowTest):
    """Every verdict by a real posting, with a real notification service."""

    options = {"service": "dunst"}

    def test_the_journal_says_of_each_posting_why_it_did_not_pop_up(self):
        # Longer than the test takes: what is posted twice is a repeat, however slow the machine.
        self.zepa("setting", "set", "duplicated_notifications_time", "300")
        self.open()

        press(self.desktop, "alt+t")
        write(self.desktop, "Lunch?")
        press(self.desktop, "Return")
        self.told("waits for an answer")
        self.told("Text: Lunch?")
        self.click_popup(SERVICES["dunst"].accept)
        self.told("It popped up and was clicked.")
        # The click's action: the chat with whom the pop-up was about.
        self.application(self.client).find("frame", "Ann").find("text", "Message to Ann").wait_for_state("focused")
        press(self.desktop, "Escape")
        self.wait_for_keyboard()

        self.post(WRITES)
        self.told("It was dropped as a repeat: the same type and title was posted")
        self.told("repeats are dropped for 300 s")

        self.post(STARTS_TYPING)
        self.told('The type "Typing started" has no rule')

        self.contacts.find("list item", "Ben (not available)").click()
        self.post(COMES_ONLINE)
        self.told('No rule of the type "Buddy connected" calls the pop-up method; called was: Sound.')
        self.contacts.find("list item", "Ben (available)")

        self.post(E_MAIL)
        self.told("waits for an answer")
        self.click_popup(SERVICES["dunst"].dismiss)
        self.told("ended without a click")
        self.wait_for_keyboard()

        press(self.desktop, "alt+a")
        self.window.find("check box", "With an action for a click").wait_for_state("checked", False)
        self.post(NEWS)
        self.told("It has no action, so nobody tells what became of it.")

        self.desktop.service.kill()
        screen.wait_until(lambda: self.desktop.ask_bus("NameHasOwner", "org.freedesktop.Notifications") == "(false,)",
                          "the service should be gone")
        self.post(FAILS)
        self.told("there is no notification service on the session bus")

        self.assertEqual([(row[EVENT], row[VERDICT]) for row in self.journal()],
                         [("Message received", "clicked"), ("Message received", "repeat"),
                          ("Typing started", "no rule"), ("Buddy connected", "no rule for a pop-up"),
                          ("New email", "timed out"), ("Information message", "pop-up"),
                          ("Error message", "no notification service")])
        self.assertEqual([row[ABOUT] for row in self.journal()], ["Ann", "Ann", "Ann", "Ben", "", "", ""])


class MainWindowByKeyboard(MainWindowTest):
    """Without a notification service and without a status area."""

    options = {"service": "none"}

    def setUp(self):
        super().setUp()
        self.open()

    def test_every_part_is_reached_by_the_tab_key(self):
        focusable = {node for node in self.window.all()
                     if {"focusable", "showing", "enabled"} <= node.states
                     and node.role in ("list", "combo box", "text", "check box", "push button", "table")}
        self.assertGreaterEqual(len(focusable), 9, self.window.tree())
        reached = {next_in_focus(self, "Tab") for _ in range(len(focusable) + 2)}
        self.assertEqual(focusable - reached, set())
        for node in focusable:
            self.assertNotEqual(node.name, "", node)

    def test_the_chosen_lines_are_filtered_and_copied_by_keys(self):
        for event in (COMES_ONLINE, STARTS_TYPING, COMES_ONLINE):
            self.choose(event)
            press(self.desktop, "alt+p")
        self.told("dropped as a repeat")
        press(self.desktop, "alt+f")
        write(self.desktop, "TYPING")
        screen.wait_until(lambda: len(self.journal()) == 1, "one line that is left")
        self.assertEqual(self.journal()[0][EVENT], "Typing started")
        press(self.desktop, "ctrl+a", "BackSpace")
        screen.wait_until(lambda: len(self.journal()) == 3, "all lines")

        self.window.find("table", "Journal").find("cell", "Typing started").click()
        self.told("has no rule")
        press(self.desktop, "ctrl+c", "alt+t", "ctrl+v")
        text = self.window.find("text", "Text:")
        screen.wait_until(lambda: "typing_started_notify" in text.text, "what was copied")
        self.assertIn("Ann", text.text)
        self.assertIn('has no rule, so no method was called', text.text)
        self.assertNotIn("buddy_connected", text.text)

    def test_the_chat_and_the_events_of_a_contact_are_in_its_menu(self):
        press(self.desktop, "Down", "alt+c")
        menu = self.window.find("menu item", "Contact").find("popup menu")
        menu.wait_for_state("showing")
        items = [item.name for item in menu.find_all("menu item")]
        self.assertEqual(items[:2], ["Open the chat", "Ben writes"])
        self.assertEqual(len(items), 19)
        press(self.desktop, "Escape", "Escape")
        self.contacts.wait_for_state("focused")
        # The same as a menu of its own, which screen readers get to know when it is there.
        self.accessibility.listen()
        press(self.desktop, "Menu")
        self.accessibility.wait_for("state-changed", "showing", lambda event: event.node.role == "popup menu")
        press(self.desktop, "Down", "Down", "Return")
        self.told("there is no notification service")
        self.assertEqual(self.journal()[0][ABOUT], "Ben")
        press(self.desktop, "alt+o")
        self.contacts.wait_for_state("focused")
        press(self.desktop, "Return")
        message = self.application(self.client).find("frame", "Ben").find("text", "Message to Ben")
        message.wait_for_state("focused")
        write(self.desktop, "Hello")
        press(self.desktop, "Return")
        self.told("Message sent")

    def test_closing_ends_the_program_which_stands_where_it_stood_the_next_time(self):
        window = screen.windows(self.desktop, "--name", "^Zepa$")[0]
        self.desktop.run("xdotool", "windowsize", "--sync", window, "1000", "700", "windowmove", window, "60", "50")
        screen.wait_until(lambda: screen.window_box(self.desktop, window).width == 1000, "the new size")
        place = screen.window_box(self.desktop, window)
        self.close()
        self.client.finish(0)
        self.open()
        window = screen.windows(self.desktop, "--name", "^Zepa$")[0]
        screen.wait_until(lambda: screen.window_box(self.desktop, window) == place,
                          f"{place}, not {screen.window_box(self.desktop, window)}")


class MainWindowWithStatusArea(MainWindowTest):
    options = {"service": "none", "tray": "trayer"}

    def test_closing_hides_the_window_and_the_icon_brings_it_back(self):
        self.open()
        self.close()
        # The first of the area's icons.
        screen.click(self.desktop, (16, 16))
        screen.wait_until(lambda: screen.windows(self.desktop, "--name", "^Zepa$"), "the window should be back")
        self.wait_for_keyboard()
        press(self.desktop, "ctrl+q")
        self.client.finish(0)
