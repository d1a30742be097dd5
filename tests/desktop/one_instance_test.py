# SPDX-License-Identifier: Apache-2.0
"""A second start of `zepa` on a desktop where it runs already."""

from support import SERVICES, DesktopTest, screen


class OneInstance(DesktopTest):
    options = {"service": "dunst"}

    def windows(self):
        return screen.windows(self.desktop, "--name", "^Zepa$")

    def test_a_second_start_brings_the_first_window_to_the_front(self):
        first = self.start_zepa()
        window = first.wait_until(self.windows, "the main window")[0]
        self.desktop.run("xdotool", "windowminimize", window)
        screen.wait_until(lambda: not self.windows(), "the window should be minimised")
        self.zepa()
        self.assertEqual(first.wait_until(self.windows, "the window again"), [window])
        first.wait_until(lambda: screen.active_window(self.desktop) == window, "it should be the active window")
        first.stop()

    def test_a_posting_of_a_second_start_is_answered_by_the_first(self):
        self.start_zepa().wait_until(self.windows, "the main window")
        clicked = self.desktop.folder / "clicked"
        self.zepa("post", "message_received", "--title", "Ann", "--action", f"touch {clicked}")
        popup = screen.wait_until(lambda: screen.windows(self.desktop, "--class", "Dunst"), "a pop-up")[0]
        box = screen.window_box(self.desktop, popup)
        how = SERVICES["dunst"].accept
        screen.click(self.desktop, box.at(how.across, how.down), how.button)
        screen.wait_until(clicked.exists, "the action should have run")
