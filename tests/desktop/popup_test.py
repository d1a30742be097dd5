# SPDX-License-Identifier: Apache-2.0
"""Pop-ups of the real notification services: what a person sees and does, and what `zepa` says about it."""

from support import SERVICES, DesktopTest, screen

GREEN = "#00e000"


class Popups:
    """The tests that every service must pass; a class below names the service."""

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

    def test_a_popup_that_the_person_closes_counts_as_timed_out(self):
        posted = self.post()
        self.press(self.service.dismiss, self.screen.appeared())
        self.assertIn("timed out", posted.finish(3).splitlines())
        self.screen.gone()
        self.assertFalse(self.done.exists())

    def test_a_killed_service_answers_its_popups_as_timed_out(self):
        posted = self.post()
        self.screen.appeared()
        self.desktop.service.kill()
        self.assertIn("timed out", posted.finish(3).splitlines())
        self.assertFalse(self.done.exists())

    def test_popups_are_shown_and_clicked_again_after_a_restart_of_the_service(self):
        script = self.desktop.folder / "script.jsonl"
        script.write_text('{"at": 0, "type": "message_received", "title": "Ann", "action": "true"}\n'
                          '{"at": 20, "type": "message_received", "title": "Bob", "action": "true"}\n')
        played = self.start_zepa("play", str(script), "--wait", "600")
        self.screen.appeared()
        self.desktop.service.kill()
        self.assertIn('"Ann"  timed out', played.line_with("answered"))
        self.desktop.start_service()
        played.line_with("delivered")
        self.press(self.service.accept, self.screen.appeared())
        self.assertIn('"Bob"  clicked', played.line_with("answered"))
        played.finish(0)


class QuickPopups:
    """With pop-ups that go away soon where the service can be told so."""

    def test_an_expired_popup_counts_as_timed_out(self):
        watcher = screen.Watcher(self.desktop)
        posted = self.start_zepa("post", "message_received", "--title", "Ann", "--action", "true", "--wait")
        self.assertIsNotNone(watcher.appeared())
        self.assertIn("timed out", posted.finish(3).splitlines())
        watcher.gone()


class Dunst(Popups, DesktopTest):
    options = {"service": "dunst"}


class Xfce(Popups, DesktopTest):
    options = {"service": "xfce4-notifyd"}


class Lxqt(Popups, DesktopTest):
    options = {"service": "lxqt-notificationd"}


class MakoOnWayland(Popups, DesktopTest):
    options = {"service": "mako", "wayland": True}


class DunstExpiry(QuickPopups, DesktopTest):
    options = {"service": "dunst", "popup_seconds": 10}


class XfceExpiry(QuickPopups, DesktopTest):
    options = {"service": "xfce4-notifyd"}


class LxqtExpiry(QuickPopups, DesktopTest):
    options = {"service": "lxqt-notificationd", "popup_seconds": 10}


class MakoOnWaylandExpiry(QuickPopups, DesktopTest):
    options = {"service": "mako", "wayland": True, "popup_seconds": 10}
