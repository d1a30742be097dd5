# SPDX-License-Identifier: Apache-2.0
"""Pop-ups of the real notification services: what a person sees and does, and what `zepa` says about it."""

from popups import Popups
from support import DesktopTest, screen


class ServicePopups(Popups):
    """The tests that every service must pass; a class below names the service."""

    def test_a_popup_that_the_person_closes_counts_as_timed_out(self):
        posted = self.post()
        self.press(self.service.dismiss, self.screen.appeared())
        self.assertIn("timed out", posted.finish(3).splitlines())
        self.screen.gone()
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


class Dunst(ServicePopups, DesktopTest):
    options = {"service": "dunst"}


class Xfce(ServicePopups, DesktopTest):
    options = {"service": "xfce4-notifyd"}


class Lxqt(ServicePopups, DesktopTest):
    options = {"service": "lxqt-notificationd"}


class MakoOnWayland(ServicePopups, DesktopTest):
    options = {"service": "mako", "wayland": True}


class DunstExpiry(QuickPopups, DesktopTest):
    options = {"service": "dunst", "popup_seconds": 10}


class XfceExpiry(QuickPopups, DesktopTest):
    options = {"service": "xfce4-notifyd"}


class LxqtExpiry(QuickPopups, DesktopTest):
    options = {"service": "lxqt-notificationd", "popup_seconds": 10}


class MakoOnWaylandExpiry(QuickPopups, DesktopTest):
    options = {"service": "mako", "wayland": True, "popup_seconds": 10}
