# SPDX-License-Identifier: Apache-2.0
"""`zepa` on a desktop whose session bus accepts everybody and never says a word."""

import socket

from support import DesktopTest, screen


class SilentBus(DesktopTest):
    options = {"service": "none"}

    def setUp(self):
        super().setUp()
        path = self.desktop.folder / "silent"
        self.bus = socket.socket(socket.AF_UNIX)
        self.addCleanup(self.bus.close)
        self.bus.bind(str(path))
        self.bus.listen(50)
        self.desktop.env["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={path}"

    def test_a_posting_is_made_and_ends(self):
        printed = self.zepa("post", "message_received", "--title", "Ann")
        self.assertIn("handed to:", printed)
        self.assertIn("no D-Bus session", printed)

    def test_the_main_window_answers_and_closes(self):
        client = self.start_zepa()
        window = client.wait_until(lambda: screen.windows(self.desktop, "--name", "^Zepa$"), "the main window")[0]

        def is_gone():
            # Without a status area the program ends with its window.
            self.desktop.run("xdotool", "windowfocus", window, "key", "alt+F4", check=False)
            return not screen.windows(self.desktop, "--name", "^Zepa$")

        screen.wait_until(is_gone, "the window should be closed")
        client.finish(0)
