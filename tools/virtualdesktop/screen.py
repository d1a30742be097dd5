# SPDX-License-Identifier: Apache-2.0
"""What a person sees on the screen and does with the mouse."""

import dataclasses
import re
import subprocess

from .processes import NotReady, wait_until

__all__ = ["Box", "NotReady", "Watcher", "active_window", "click", "colour", "difference", "picture", "wait_until", "window_box",
           "windows"]


@dataclasses.dataclass(frozen=True)
class Box:
    x: int
    y: int
    width: int
    height: int

    def at(self, across=0.5, down=0.5):
        """A point inside, as shares of the width and the height."""
        return self.x + int(self.width * across), self.y + int(self.height * down)

    def holds(self, other):
        return (self.x <= other.x and self.y <= other.y and other.x + other.width <= self.x + self.width
                and other.y + other.height <= self.y + self.height)


def picture(desktop, path):
    """Saves what the screen shows now as a png."""
    desktop.run("maim", "--hidecursor", str(path))
    return path


def difference(before, after):
    """The smallest box around everything that differs between two pictures; None when nothing does."""
    ran = subprocess.run(
        ["convert", str(before), str(after), "-compose", "difference", "-composite", "-colorspace", "gray",
         "-threshold", "2%", *_EXTENT],
        stdin=subprocess.DEVNULL, capture_output=True, text=True)
    return _box(ran.stdout)


def colour(path, name, within=None):
    """The smallest box around everything of the colour `name` (#rrggbb) in a picture, or in the box `within` of it.

    None when there is none.
    """
    part = within or Box(0, 0, 0, 0)
    crop = ["-crop", f"{part.width}x{part.height}+{part.x}+{part.y}", "+repage"] if within else []
    ran = subprocess.run(
        ["convert", str(path), *crop, "-alpha", "off", "-fuzz", "8%", "-fill", "black", "+opaque", name, *_EXTENT],
        stdin=subprocess.DEVNULL, capture_output=True, text=True)
    found = _box(ran.stdout)
    return found and dataclasses.replace(found, x=found.x + part.x, y=found.y + part.y)


# Prints what a trim would keep of a picture on black, and how bright it gets. A border of one pixel lets it trim a
# picture that has only one colour.
_EXTENT = ("-bordercolor", "black", "-border", "1", "-format", "%@ %[fx:maxima]", "info:")


def _box(printed):
    found = re.match(r"(\d+)x(\d+)\+(\d+)\+(\d+) (\S+)", printed)
    if not found or float(found[5]) == 0:
        return None
    width, height, x, y = (int(found[n]) for n in range(1, 5))
    return Box(x - 1, y - 1, width, height)


class Watcher:
    """Sees what changed on the screen since it was made."""

    def __init__(self, desktop):
        self._desktop = desktop
        self._before = picture(desktop, desktop.folder / "before.png")

    def change(self):
        return difference(self._before, self.now())

    def now(self):
        return picture(self._desktop, self._desktop.folder / "now.png")

    def appeared(self, what="something new on the screen"):
        """Waits until something new is there and has stopped moving; returns the box around it."""
        last = None

        def settled():
            nonlocal last
            previous, last = last, self.change()
            return last if last and last == previous else None

        return wait_until(settled, what)

    def gone(self, what="the screen as it was before"):
        wait_until(lambda: self.change() is None, what)


def click(desktop, point, button=1):
    """Moves the mouse to a point of the screen and clicks, with the pauses of a hand."""
    x, y = point
    desktop.run("xdotool", "mousemove", str(x - 1), str(y), "sleep", "0.1", "mousemove", str(x), str(y), "sleep", "0.2",
                "click", str(button))


def window_box(desktop, window):
    """Where a window is on the screen."""
    shown = desktop.run("xdotool", "getwindowgeometry", "--shell", window)
    values = dict(line.split("=") for line in shown.split())
    return Box(int(values["X"]), int(values["Y"]), int(values["WIDTH"]), int(values["HEIGHT"]))


def active_window(desktop):
    """The id of the active window; empty while there is none."""
    ran = subprocess.run(["xdotool", "getactivewindow"], env=desktop.env, stdin=subprocess.DEVNULL,
                         capture_output=True, text=True)
    return ran.stdout.strip()


def windows(desktop, *search):
    """The ids of the visible windows that xdotool finds."""
    ran = subprocess.run(["xdotool", "search", "--onlyvisible", *search], env=desktop.env, stdin=subprocess.DEVNULL,
                         capture_output=True, text=True)
    return ran.stdout.split()
