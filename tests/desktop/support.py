# SPDX-License-Identifier: Apache-2.0
"""What the desktop tests share: a desktop for each test, the program `zepa` on it, and its answers."""

import os
import pathlib
import subprocess
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))

from virtualdesktop import bus, screen  # noqa: E402  (the path above comes first)
from virtualdesktop.desktop import VirtualDesktop  # noqa: E402
from virtualdesktop.notification_services import SERVICES  # noqa: E402

ZEPA = os.environ.get("ZEPA_PROGRAM", "")
# Seconds for a program to end: only one that hangs takes so long.
LONG = 150


class DesktopTest(unittest.TestCase):
    """A test on a desktop of its own. run.py sets `folder`, which is removed after the test."""

    folder = None
    options = {}

    def setUp(self):
        # Pop-ups stay until they are answered, however long a busy machine takes for that.
        self.desktop = VirtualDesktop(self.folder, **{"popup_seconds": 600} | self.options)
        self.addCleanup(self.desktop.stop)
        self.settings = self.desktop.folder / "settings"
        self.settings.mkdir()

    def zepa(self, *arguments, code=0):
        """Runs `zepa` to its end and returns what it printed."""
        running = self.start_zepa(*arguments)
        return running.finish(code)

    def start_zepa(self, *arguments):
        return RunningZepa(self, [ZEPA, *arguments, "--settings", str(self.settings)])


class RunningZepa:
    def __init__(self, test, command):
        self._test = test
        self._popen = subprocess.Popen(command, env=test.desktop.env, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                       stderr=subprocess.STDOUT, text=True)
        self._printed = ""
        self.pid = self._popen.pid
        test.addCleanup(self._end)

    def line_with(self, text):
        """Reads what it prints up to the first line that holds `text`, and returns that line."""
        for line in self._popen.stdout:
            self._printed += line
            if text in line:
                return line.rstrip("\n")
        raise AssertionError(f"no line with {text!r} in:\n{self._printed}")

    def wait_until(self, ask, what):
        """As the screen's, and gives up at once when the program has ended."""
        def ask_while_running():
            answer = ask()
            if not answer and self._popen.poll() is not None:
                raise AssertionError(f"{what}: zepa ended with {self._popen.returncode}:\n{self._popen.stdout.read()}")
            return answer

        return screen.wait_until(ask_while_running, what)

    def finish(self, code=0):
        """Waits for its end, checks its exit code, and returns all that it printed."""
        self._printed += self._popen.communicate(timeout=LONG)[0]
        self._test.assertEqual(self._popen.returncode, code, self._printed)
        return self._printed

    def stop(self):
        """Ends it as its user would who logs out."""
        self._popen.terminate()
        self._popen.wait(LONG)

    def _end(self):
        if self._popen.poll() is None:
            self._popen.kill()
            self._popen.wait()
        self._popen.stdout.close()
