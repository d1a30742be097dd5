# SPDX-License-Identifier: Apache-2.0
"""Pop-ups through Debian's notification portal: what a person sees and does, and what `zepa` says about it."""

import pathlib

from popups import Popups
from support import DesktopTest, bus

# In the order in which they are started.
PORTAL = {
    "org.freedesktop.impl.portal.desktop.gtk": "/usr/libexec/xdg-desktop-portal-gtk",
    "org.freedesktop.portal.Desktop": "/usr/libexec/xdg-desktop-portal",
}


class Portal(Popups, DesktopTest):
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

    def start_part(self, name):
        program = PORTAL[name]
        part = self.desktop.start(pathlib.Path(program).name, [program])
        part.wait_until(lambda: bus.has_owner(name, self.desktop.env))
        return part

    def kill_service(self):
        self.parts[-1].kill()

    def test_a_client_that_is_ended_takes_its_popups_with_it(self):
        posted = self.post()
        self.screen.appeared()
        posted.stop()
        self.screen.gone()
