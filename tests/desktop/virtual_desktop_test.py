# SPDX-License-Identifier: Apache-2.0
"""tools/virtual-desktop: what it promises whoever runs something on it."""

import os
import pathlib
import signal
import subprocess
import unittest
import uuid

from support import LONG, ROOT
from virtualdesktop.processes import wait_until

PROGRAM = str(ROOT / "tools" / "virtual-desktop")


class VirtualDesktopProgram(unittest.TestCase):
    def setUp(self):
        # Everything that a desktop starts inherits this, so that what is left over can be told from other processes.
        self.mark = f"ZEPA_TEST_MARK={uuid.uuid4()}"
        self.env = dict(os.environ, **dict([self.mark.split("=")]))

    def run_on(self, *command):
        return subprocess.run([PROGRAM, "--service", "none", *command], env=self.env, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=LONG)

    def start_on(self, script):
        """Starts a shell script on a desktop and waits for the line that it prints: returns both."""
        running = subprocess.Popen([PROGRAM, "sh", "-c", script], env=self.env, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, text=True)
        self.addCleanup(running.stdout.close)
        self.addCleanup(lambda: running.poll() is None and running.kill())
        return running, running.stdout.readline().strip()

    def left_over(self):
        """The names of processes with our mark."""
        names = []
        for process in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if self.mark.encode() in (process / "environ").read_bytes():
                    names.append((process / "comm").read_text().strip())
            except OSError:
                continue
        return names

    def assert_nothing_left(self, home):
        wait_until(lambda: not self.left_over(), "all processes of the desktop should have ended")
        wait_until(lambda: not pathlib.Path(home).parent.exists(), "the desktop's folder should be gone")

    def test_the_exit_code_is_the_command_s(self):
        self.assertEqual(self.run_on("sh", "-c", "exit 7").returncode, 7)
        self.assertEqual(self.run_on("sh", "-c", "kill -9 $$").returncode, 137)
        self.assertEqual(self.run_on("/nonexistent").returncode, 127)

    def test_nothing_is_left_when_the_command_has_ended(self):
        ran = self.run_on("sh", "-c", "setsid sleep 1000 & echo $HOME")
        self.assertEqual(ran.returncode, 0, ran.stderr)
        self.assert_nothing_left(ran.stdout.strip())

    def test_nothing_is_left_when_it_is_asked_to_end(self):
        for which in (signal.SIGTERM, signal.SIGINT):
            running, home = self.start_on("setsid sleep 1000 & echo $HOME; wait")
            self.assertIn("dunst", self.left_over())
            running.send_signal(which)
            self.assertEqual(running.wait(LONG), 128 + which)
            self.assert_nothing_left(home)

    def test_nothing_is_left_when_it_is_killed(self):
        running, home = self.start_on("setsid sleep 1000 & echo $HOME; wait")
        # The shell prints before the process beside it has become what it will be.
        wait_until(lambda: "sleep" in self.left_over(), "the process in a session of its own should run")
        running.kill()
        running.wait(LONG)
        self.assert_nothing_left(home)

    def test_several_run_side_by_side(self):
        desktops = [self.start_on("echo $DISPLAY $HOME $DBUS_SESSION_BUS_ADDRESS; sleep 1000") for _ in range(3)]
        for seen in zip(*(line.split() for _, line in desktops)):
            self.assertEqual(len(set(seen)), 3, seen)
        for running, _ in desktops:
            running.terminate()
            running.wait(LONG)

    def test_its_bus_starts_no_service_by_itself(self):
        ran = self.run_on("gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path",
                          "/org/freedesktop/DBus", "--method", "org.freedesktop.DBus.ListActivatableNames")
        self.assertEqual(ran.stdout.strip(), "(['org.freedesktop.DBus'],)", ran.stderr)
