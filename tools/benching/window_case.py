# SPDX-License-Identifier: Apache-2.0
"""From the start of a program to its window on the screen."""

import os
import re
import select
import subprocess
import time

from building import PROGRAMS
from figures import Table
from surroundings import Session

_PATIENCE_SECONDS = 20
_MAPPED = re.compile(rb"MapNotify event[^\n]*\n[^\n]*override NO")


def window(context):
    """The client's main window beside an empty one, in new processes on a screen without a window manager."""
    table = Table("window", "From the start of the program to its window", "ms", ["an empty window"])
    with Session(context.folder / "window") as session, _Screen(session) as screen:
        commands = {"an empty window": [PROGRAMS / "empty_window"], "the main window": [PROGRAMS / "zepa"]}
        measured = {}
        for turn in range(context.rounds(20) + 1):
            for name, command in commands.items():
                seconds = screen.seconds_until_mapped(command)
                # The first of each brings the program's files into memory, and makes its settings.
                if turn:
                    measured.setdefault(name, []).append(seconds * 1000)
        for name, values in measured.items():
            table.add("until it is mapped", name, values)
    return [table]


class _Screen:
    """A screen, and somebody who watches which windows appear on it."""

    def __init__(self, session):
        self._env = dict(session.env, QT_QPA_PLATFORM="xcb", LIBGL_ALWAYS_SOFTWARE="1", NO_AT_BRIDGE="1")
        reader, writer = os.pipe()
        self._server = subprocess.Popen(
            ["setpriv", "--pdeathsig", "KILL", "--", "Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x800x24",
             "-nolisten", "tcp", "-noreset"],
            pass_fds=(writer,), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as lines:
            self._env["DISPLAY"] = f":{int(lines.readline())}"
        self._watcher = subprocess.Popen(
            ["setpriv", "--pdeathsig", "KILL", "--", "stdbuf", "-oL", "xev", "-root", "-event", "substructure"],
            env=self._env, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self._rest = b""
        # It says nothing when it is ready; until then it misses windows.
        self._wait_for_window(0.5)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for process in (self._watcher, self._server):
            process.terminate()
            process.wait()

    def seconds_until_mapped(self, command):
        begin = time.monotonic()
        program = subprocess.Popen([str(word) for word in command], env=self._env, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            if not self._wait_for_window(_PATIENCE_SECONDS):
                raise RuntimeError(f"{command[0].name} showed no window within {_PATIENCE_SECONDS} seconds")
            return time.monotonic() - begin
        finally:
            program.terminate()
            try:
                program.wait(5)
            except subprocess.TimeoutExpired:
                program.kill()
                program.wait()
            # Windows that are still on their way.
            self._wait_for_window(0.2)

    def _wait_for_window(self, seconds):
        """Whether a window that a window manager would care for was mapped."""
        end = time.monotonic() + seconds
        while (left := end - time.monotonic()) > 0:
            if not select.select([self._watcher.stdout], [], [], left)[0]:
                return False
            self._rest += os.read(self._watcher.stdout.fileno(), 65536)
            mapped = list(_MAPPED.finditer(self._rest))
            if mapped:
                self._rest = self._rest[mapped[-1].end():]
                return True
        return False
