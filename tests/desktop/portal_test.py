# SPDX-License-Identifier: Apache-2.0
"""Pop-ups through Debian's notification portal: what a person sees and does, and what `zepa` says about it."""

import pathlib

from support import SERVICES, DesktopTest, bus, screen

# In the order in which they are started.
PORTAL = {
    "org.freedesktop.impl.portal.desktop.gtk": "/usr/libexec/xdg-desktop-portal-gtk",
    "org.freedesktop.portal.Desktop": "/usr/libexec/xdg-desktop-portal",
}
GREEN = "#00e000"


class Portal(DesktopTest):
    """The portal shows its pop-ups through dunst."""

    options = {"service": "dunst"}

    def setUp(self):
        for program in PORTAL.values():
            if not pathlib.Path(program).exists():
                self.skipTest(f"{program} is not installed")
        super().setUp()
        # Which of its parts the portal uses depends on the desktop's name.
        self.desktop.env["XDG_CURRENT_DESKTOP"] = "GNOME"
        self.parts = [self.start_part(name) for name in PORTAL]
        self.desktop.env["ZEPA_POPUPS"] = "portal"
        self.service = SERVICES["dunst"]
        self.screen = screen.Watcher(self.desktop)

    def start_part(self, name):
        program = PORTAL[name]
        part = self.desktop.start(pathlib.Path(program).name, [program])
        part.wait_until(lambda: bus.has_owner(name, self.desktop.env))
        return part

    def post(self, *more):
        self.done = self.desktop.folder / "done"
        return self.start_zepa("post", "message_received", "--title", "Ann", "--text", "Lunch at noon?",
                               "--action", f"touch {self.done}", "--wait", *more)

    def press(self, press, box):
        screen.click(self.desktop, box.at(press.across, press.down), press.button)

    def test_a_clicked_popup_says_so_and_runs_its_action(self):
        posted = self.post()
        box = self.screen.appeared()
        self.assertFalse(self.done.exists())
        self.press(self.service.accept, box)
        self.assertIn("clicked", posted.finish(0).splitlines())
        screen.wait_until(self.done.exists, "the action should have run")

    def test_a_popup_shows_the_picture_of_the_event(self):
        icon = self.desktop.folder / "icon.png"
        self.desktop.run("convert", "-size", "300x300", f"xc:{GREEN}", str(icon))
        self.post("--icon", str(icon))
        box = self.screen.appeared()
        shown = screen.colour(self.screen.now(), GREEN)
        self.assertIsNotNone(shown, "no green picture is seen")
        self.assertTrue(box.holds(shown))

    def test_a_portal_that_ends_answers_its_popups_as_timed_out(self):
        posted = self.post()
        self.screen.appeared()
        self.parts[-1].kill()
        self.assertIn("timed out", posted.finish(3).splitlines())
        self.assertFalse(self.done.exists())

    def test_a_client_that_is_ended_takes_its_popups_with_it(self):
        posted = self.post()
        self.screen.appeared()
        posted.stop()
        self.screen.gone()
