# SPDX-License-Identifier: Apache-2.0
"""Plays the conversation on the person's desktop, or on a virtual one where there is none."""

import argparse
import os
import pathlib
import subprocess
import sys
import tempfile

from virtualdesktop import screen
from virtualdesktop.desktop import VirtualDesktop
from virtualdesktop.guard import run_guarded
from virtualdesktop.processes import NotReady
from virtualdesktop.sound import RATE

from . import sound_picture
from .play import Play

ROOT = pathlib.Path(__file__).resolve().parents[2]
SCRIPT = ROOT / "client" / "demo" / "conversation.jsonl"
OUTPUT = ROOT / "demo-output"
# The colours of two people's pictures (client/demo/make-pictures): what is looked for on the screen.
ANN, BOB = "#d9577a", "#3f8f6b"
POPUPS = screen.Box(900, 0, 380, 740)
_NOTE = """Saturday

[x] tent
[x] sleeping bags
[ ] bread, cheese, tomatoes
[ ] ask Ann about the boat"""


def main():
    parser = argparse.ArgumentParser(
        prog="tools/demo", allow_abbrev=False,
        description="Plays a short conversation. On a desktop it shows itself there; elsewhere, or with --virtual, it "
                    "makes a desktop of its own and leaves pictures and the sound in demo-output/.")
    parser.add_argument("--virtual", action="store_true", help="use a desktop of its own even where there is one")
    options = parser.parse_args()
    if not options.virtual and _has_desktop():
        return _on_this_desktop()
    return run_guarded(_on_virtual_desktop)


def _has_desktop():
    environment = os.environ
    has_bus = "DBUS_SESSION_BUS_ADDRESS" in environment or os.path.exists(
        os.path.join(environment.get("XDG_RUNTIME_DIR", "/nonexistent"), "bus"))
    return has_bus and bool(environment.get("DISPLAY") or environment.get("WAYLAND_DISPLAY"))


def _on_this_desktop():
    print("Watch the corner in which your desktop shows notifications, and click one that has a message.\n")
    with tempfile.TemporaryDirectory(prefix="zepa-demo-") as settings:
        playing = Play(os.environ["ZEPA_PROGRAM"], SCRIPT, settings, os.environ)
        for _ in playing:
            pass
        return playing.finish()


def _on_virtual_desktop(folder):
    OUTPUT.mkdir(exist_ok=True)
    print("There is no desktop here, so the demo makes its own.\n", flush=True)
    try:
        with VirtualDesktop(folder, sound=True, tray="lxqt-panel", popup_seconds=30) as desktop:
            return _play_on(desktop)
    except (NotReady, subprocess.SubprocessError) as error:
        print(f"The demo could not be shown. {error}", file=sys.stderr)
        return 1


def _play_on(desktop):
    desktop.run("hsetroot", "-add", "#6d93b8", "-add", "#27405c", "-gradient", "200")
    events = sum(1 for line in SCRIPT.read_text().splitlines() if line.strip())
    start = desktop.sound.position()
    marks = []
    settings = desktop.folder / "settings"
    settings.mkdir()
    playing = Play(os.environ["ZEPA_PROGRAM"], SCRIPT, settings, desktop.env)
    reports = iter(playing)
    for report in reports:
        if not marks:
            _work_on_something_else(desktop)
        if report["event"] == "posted":
            events -= 1
            marks.append(((desktop.sound.position() - start) / RATE, report["type"]))
        elif events == 0:
            _look_and_click(desktop)
            break
    for _ in reports:
        pass
    code = playing.finish()
    if code != 0 or events > 0:
        print(f"The conversation stopped too early: zepa ended with {code}.", file=sys.stderr)
        return code or 1
    desktop.sound.save(OUTPUT / "sounds.wav", start)
    sound_picture.draw(OUTPUT / "sounds.png", desktop.sound.samples(start), RATE, marks)
    print("\nSee demo-output/desktop.png and demo-output/sounds.png; hear demo-output/sounds.wav.")
    return code


def _work_on_something_else(desktop):
    """Puts another program's window in front: nobody asks for attention while they have it."""
    desktop.start("note", ["xmessage", "-title", "Shopping list", "-geometry", "340x130+50+600", "-buttons", "", "-fn",
                           "fixed", "-bg", "#fffbe6", _NOTE])
    screen.wait_until(lambda: desktop.run("xdotool", "getactivewindow", "getwindowname").strip() == "Shopping list",
                      "the other window in front")


def _look_and_click(desktop):
    """Takes the picture when everything is on the screen, then clicks one pop-up and closes another."""
    ann, bob = (screen.wait_until(lambda: _seen(desktop, colour), f"{name}'s pop-up")
                for colour, name in ((ANN, "Ann"), (BOB, "Bob")))
    screen.picture(desktop, OUTPUT / "desktop.png")
    print("                     The mouse closes Bob's pop-up and clicks Ann's.", flush=True)
    # The lower one goes first: the others then stay where they are.
    for box, button in sorted(((ann, 1), (bob, 3)), key=lambda pair: -pair[0].y):
        screen.click(desktop, box.at(), button)


def _seen(desktop, colour):
    return screen.colour(screen.picture(desktop, desktop.folder / "now.png"), colour, POPUPS)
