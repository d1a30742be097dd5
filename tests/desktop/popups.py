# SPDX-License-Identifier: Apache-2.0
"""What every way to the screen must pass: a person sees a pop-up and clicks it, and `zepa` says so."""

from support import SERVICES, screen

GREEN = "#00e000"


class Popups:
    """A class below names the service that shows the pop-ups."""

    options = {}

    def setUp(self):
        super().setUp()
        self.service = SERVICES[self.desktop.service_name]
        self.screen = screen.Watcher(self.desktop)

    def post(self, *more):
        """Posts an event whose click leaves the file `self.done`."""
        self.done = self.desktop.folder / "done"
        return self.start_zepa("post", "message_received", "--title", "Ann", "--text", "Lunch at noon?",
                               "--action", f"touch {self.done}", "--wait", *more)

    def press(self, press, box):
        screen.click(self.desktop, box.at(press.across, press.down), press.button)

    def kill_service(self):
        """Ends the program that `zepa` speaks to."""
        self.desktop.service.kill()

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
        self.assertGreaterEqual(min(shown.width, shown.height), 16)

    def test_a_killed_service_answers_its_popups_as_timed_out(self):
        posted = self.post()
        self.screen.appeared()
        self.kill_service()
        self.assertIn("timed out", posted.finish(3).splitlines())
        self.assertFalse(self.done.exists())
