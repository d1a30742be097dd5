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
    gap_size = 8
    corner_radius = 6
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
    background = "#263238"
    foreground = "#eceff1"
    frame_color = "#546e7a"
[urgency_normal]
    background = "#1f2d3a"
    foreground = "#f5f7fa"
    frame_color = "#4a90d9"
[urgency_critical]
    background = "#4a1c1c"
    foreground = "#fff5f5"
    frame_color = "#e05555"
"""

_MAKO = """font=DejaVu Sans 11
width=340
default-timeout=10000
"""


@dataclasses.dataclass(frozen=True)
class NotificationService:
    """`command` may hold a `*` where the path names the machine's architecture."""

    command: str
    window_class: str = ""
    config_file: str = ""
    config: str = ""

    def program(self):
        return next(iter(glob.glob(self.command)), self.command)

    def write_config(self, config_home):
        if self.config_file:
            path = pathlib.Path(config_home, self.config_file)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(self.config)


SERVICES = {
    "dunst": NotificationService("/usr/bin/dunst", "Dunst", "dunst/dunstrc", _DUNST),
    "xfce4-notifyd": NotificationService("/usr/lib/*/xfce4/notifyd/xfce4-notifyd", "Xfce4-notifyd"),
    "lxqt-notificationd": NotificationService("/usr/bin/lxqt-notificationd", "lxqt-notificationd"),
    "mako": NotificationService("/usr/bin/mako", "", "mako/config", _MAKO),
}
