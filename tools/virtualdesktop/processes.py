# SPDX-License-Identifier: Apache-2.0
"""Processes that never outlive whoever started them, each ended by its own id."""

import os
import pathlib
import signal
import subprocess
import time


class NotReady(Exception):
    """A part of the desktop did not come up; the text says which, and what it printed."""


# How long to wait for anything, in seconds: longer than it takes on a machine whose processors are all busy with other
# things. Only what never comes is waited for so long.
LIMIT = 150.0


def wait_until(ask, what, seconds=LIMIT):
    """Asks until the answer is true, and returns it; raises NotReady after `seconds`.

    Asks every 20 ms at first, and more and more seldom: each question may start a program of its own, and what is
    waited for needs the processor, too.
    """
    end = time.monotonic() + seconds
    pause = 0.02
    while True:
        answer = ask()
        if answer:
            return answer
        if time.monotonic() > end:
            raise NotReady(f"{what}: no success within {seconds:g} seconds")
        time.sleep(pause)
        pause = min(pause * 1.5, 0.4)


class Process:
    """One running program. Its output goes to the file `log`; it is killed when we die, however that happens."""

    def __init__(self, name, command, env, log, user=None, pass_fds=()):
        self.name = name
        self.log = pathlib.Path(log)
        # The order matters to setpriv: a change of user would clear the signal that is set before it.
        prefix = ["setpriv", "--pdeathsig", "KILL"]
        if user is not None:
            prefix += [f"--reuid={user.pw_uid}", f"--regid={user.pw_gid}", "--clear-groups"]
        with open(self.log, "ab") as output:
            self._popen = subprocess.Popen(
                prefix + ["--"] + command, env=env, stdin=subprocess.DEVNULL, stdout=output, stderr=output,
                pass_fds=pass_fds)
        self.pid = self._popen.pid

    def running(self):
        return self._popen.poll() is None

    def wait_until(self, ask, seconds=LIMIT):
        """As the function above, and gives up at once when the program has ended."""
        def ask_while_running():
            return ask() or (None if self.running() else _ENDED)

        try:
            answer = wait_until(ask_while_running, f"{self.name} should be ready", seconds)
        except NotReady as error:
            raise NotReady(f"{error}\n{self.output()}") from None
        if answer is _ENDED:
            raise NotReady(f"{self.name} ended with {self._popen.returncode} before it was ready\n{self.output()}")
        return answer

    def output(self):
        return self.log.read_text(errors="replace") if self.log.exists() else ""

    def send(self, which):
        if self.running():
            self._popen.send_signal(which)

    def kill(self):
        """Ends it as a crash would."""
        self.send(signal.SIGKILL)
        self._popen.wait()

    def stop(self, seconds=3.0):
        """Asks it to end, and insists after `seconds`."""
        self.send(signal.SIGTERM)
        self.send(signal.SIGCONT)
        try:
            self._popen.wait(seconds)
        except subprocess.TimeoutExpired:
            self.kill()


_ENDED = object()


def end_children(seconds=2.0):
    """Ends every process that is still our child; with a child subreaper that is all that was ever started below us."""
    end = time.monotonic() + seconds
    asked = set()
    while children := _children():
        for pid in children:
            if pid not in asked or time.monotonic() > end:
                _signal(pid, signal.SIGTERM if pid not in asked else signal.SIGKILL)
                _signal(pid, signal.SIGCONT)
                asked.add(pid)
        try:
            while os.waitpid(-1, os.WNOHANG)[0] != 0:
                pass
        except ChildProcessError:
            return
        time.sleep(0.01)


def _children():
    listed = pathlib.Path(f"/proc/self/task/{os.getpid()}/children")
    return [int(pid) for pid in listed.read_text().split()]


def _signal(pid, which):
    try:
        os.kill(pid, which)
    except ProcessLookupError:
        pass
