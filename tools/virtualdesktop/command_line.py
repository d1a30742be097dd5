# SPDX-License-Identifier: Apache-2.0
"""The command line of tools/virtual-desktop."""

import argparse
import subprocess
import sys

from .desktop import VirtualDesktop
from .guard import run_guarded
from .notification_services import SERVICES
from .processes import NotReady


def main(arguments):
    options = _parse(arguments)

    def work(folder):
        try:
            with VirtualDesktop(folder, service=options.service, size=options.size, sound=options.sound,
                                tray=options.tray, wayland=options.wayland) as desktop:
                code = _run(options.command, desktop.env)
                if options.record:
                    desktop.sound.save(options.record)
                if options.screenshot:
                    desktop.run("maim", options.screenshot, env=desktop.env)
                return code
        except NotReady as error:
            print(f"The virtual desktop could not start. {error}", file=sys.stderr)
            return 125

    return run_guarded(work)


def _parse(arguments):
    parser = argparse.ArgumentParser(
        prog="tools/virtual-desktop", allow_abbrev=False,
        description="Runs COMMAND on a desktop of its own and ends the desktop afterwards. The exit code is COMMAND's; "
                    "125 when the desktop could not start.")
    parser.add_argument("--service", choices=[*SERVICES, "none"],
                        help="the notification service (default: dunst; mako with --wayland)")
    parser.add_argument("--size", default="1280x800", metavar="WxH", help="the screen in pixels (default: 1280x800)")
    parser.add_argument("--sound", action="store_true", help="a sound server without loudspeaker")
    parser.add_argument("--record", metavar="FILE", help="writes what was played to FILE (wav); implies --sound")
    parser.add_argument("--tray", choices=["trayer", "lxqt-panel"], help="a status area")
    parser.add_argument("--wayland", action="store_true", help="sway in a window on the screen")
    parser.add_argument("--screenshot", metavar="FILE", help="a picture of the screen at the end (png)")
    parser.add_argument("command", nargs=argparse.REMAINDER, metavar="COMMAND...")
    options = parser.parse_args(arguments)
    if options.command[:1] == ["--"]:
        del options.command[0]
    if not options.command:
        parser.error("there is no COMMAND to run")
    options.sound = options.sound or options.record is not None
    if options.service is None:
        options.service = "mako" if options.wayland else "dunst"
    if options.service == "mako" and not options.wayland:
        parser.error("mako needs --wayland")
    return options


def _run(command, env):
    try:
        code = subprocess.Popen(command, env=env).wait()
    except OSError as error:
        print(f"{command[0]}: {error.strerror}", file=sys.stderr)
        return 127 if isinstance(error, FileNotFoundError) else 126
    return code if code >= 0 else 128 - code
