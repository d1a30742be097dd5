# SPDX-License-Identifier: Apache-2.0
"""The notification services that Debian brings, and how to get each going."""

import dataclasses
import glob
import pathlib

BUS_NAME = "org.freedesktop.Notifications"

_DUNST = """[global]
    font = DejaVu Sans 11
    width = 340
    height = 160
    origin = top-right
    offset = 16x16
    notification_limit = 8
    padding = 12
    horizontal_padding = 14
    frame_width = 2
    separator_height = 2
    separator_color = frame
    min_icon_size = 48
    max_icon_size = 48
    icon_corner_radius = 4
    format = "<b>%s</b>\\n%b"
    markup = full
    idle_threshold = 0
    show_indicators = no
    mouse_left_click = do_action, close_current
    mouse_middle_click = do_action, close_current
    mouse_right_click = close_current
[urgency_low]
    timeout = {seconds}
    background = "#263238"
    foreground = "#eceff1"
    frame_color = "#546e7a"
[urgency_normal]
    timeout = {seconds}
    background = "#1f2d3a"
    foreground = "#f5f7fa"
    frame_color = "#4a90d9"
[urgency_critical]
    timeout = {seconds}
    background = "#4a1c1c"
    foreground = "#fff5f5"
    frame_color = "#e05555"
"""

_MAKO = """font=DejaVu Sans 11
width=340
default-timeout={seconds}000
"""

_LXQT = """[General]
server_decides={seconds}
"""


@dataclasses.dataclass(frozen=True)
class Press:
    """Where on a pop-up to press which mouse button; the place as shares of its width and height."""

    across: float = 0.5
    down: float = 0.5
    button: int = 1


@dataclasses.dataclass(frozen=True)
class NotificationService:
    """`command` may hold a `*` where the path names the machine's architecture.

    `config` may hold `{seconds}`: how long a pop-up stays. `accept` and `dismiss` are what a person does to run a
    pop-up's action and to close it.
    """

    command: str
    accept: Press
    dismiss: Press
    config_file: str = ""
    config: str = ""

    def program(self):
        return next(iter(glob.glob(self.command)), self.command)

    def write_config(self, config_home, seconds):
        if self.config_file:
            path = pathlib.Path(config_home, self.config_file)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(self.config.replace("{seconds}", str(seconds)))


SERVICES = {
    "dunst": NotificationService("/usr/bin/dunst", Press(), Press(button=3), "dunst/dunstrc", _DUNST),
    # Its pop-ups stay for ten seconds unless its settings daemon, which we leave out, says otherwise.
    "xfce4-notifyd": NotificationService("/usr/lib/*/xfce4/notifyd/xfce4-notifyd", Press(0.75, 0.7), Press(0.2, 0.4)),
    "lxqt-notificationd": NotificationService("/usr/bin/lxqt-notificationd", Press(), Press(0.92, 0.18),
                                              "lxqt/notifications.conf", _LXQT),
    "mako": NotificationService("/usr/bin/mako", Press(), Press(button=3), "mako/config", _MAKO),
}
