# SPDX-License-Identifier: Apache-2.0
"""Where the measured programs run: folders, an environment, a bus and a notification service of their own."""

import os
import pathlib
import shutil
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))

from virtualdesktop import bus  # noqa: E402: the path comes first
from virtualdesktop.processes import Process, wait_until  # noqa: E402

from building import PROGRAMS, ROOT  # noqa: E402


def environment(folder, **more):
    """Private folders below `folder`, no bus, no display, and a time zone that is said rather than looked for."""
    env = {name: value for name, value in os.environ.items()
           if not name.startswith(("XDG_", "DBUS_", "QT_", "PULSE_", "WAYLAND_", "DISPLAY"))}
    home = pathlib.Path(folder, "home")
    run = pathlib.Path(folder, "run")
    for path in (home, run):
        path.mkdir(exist_ok=True)
    run.chmod(0o700)
    env.update(HOME=str(home), TMPDIR=str(folder), XDG_RUNTIME_DIR=str(run), XDG_CONFIG_HOME=str(home / "config"),
               XDG_DATA_HOME=str(home / "data"), XDG_CACHE_HOME=str(home / "cache"), LC_ALL="C.UTF-8",
               TZ=":/etc/localtime", QT_QPA_PLATFORM="offscreen", GSETTINGS_BACKEND="memory", GIO_USE_VFS="local",
               DBUS_SESSION_BUS_ADDRESS="unix:path=/nonexistent")
    env.update(more)
    return env


def settings_folder(path, repeat_seconds=0):
    """A folder of settings; with 0 seconds a repeat is forgotten after one second."""
    path = pathlib.Path(path)
    (path / "notifications").mkdir(parents=True, exist_ok=True)
    (path / "settings.ini").write_text(f"[General]\nduplicated_notifications_time={repeat_seconds}\n")
    return path


class Session:
    """A bus with one notification service, in the folder `folder`."""

    def __init__(self, folder, delay="0"):
        self.folder = pathlib.Path(folder)
        self.folder.mkdir()
        socket = self.folder / "bus"
        services = self.folder / "services"
        services.mkdir()
        self.env = environment(self.folder, DBUS_SESSION_BUS_ADDRESS=f"unix:path={socket}")
        events = pathlib.Path(self.env["XDG_DATA_HOME"], "knotifications5")
        events.mkdir(parents=True)
        shutil.copy(ROOT / "benchmarks/posting/knotifications/zepa_bench.notifyrc", events)
        config = bus.write_config(self.folder, socket, services)
        self._bus = Process("bus", ["dbus-daemon", f"--config-file={config}", "--nofork"], self.env,
                            self.folder / "bus.log")
        self._bus.wait_until(socket.exists)
        self._stamps = self.folder / "stamps"
        self._stamps.touch()
        self._service = Process("service", [str(PROGRAMS / "bench_service"), str(self._stamps), delay], self.env,
                                self.folder / "service.log")
        self._service.wait_until(lambda: self._stamps.stat().st_size)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._service.stop()
        self._bus.stop()

    def bus_nanoseconds(self):
        """The processor time that the bus has used so far."""
        return int(pathlib.Path(f"/proc/{self._bus.pid}/schedstat").read_text().split()[0])

    def has_arrived(self, count):
        """Whether the service has had `count` pop-ups so far."""
        return self._stamps.read_bytes().count(b"\n") > count

    def arrivals(self, count):
        """When the service had each pop-up so far, in nanoseconds, in order; waits until there are `count`."""
        def read():
            lines = self._stamps.read_text().splitlines()[1:]
            return lines if len(lines) >= count else None

        return [int(line.split()[0]) for line in wait_until(read, f"{count} pop-ups should arrive")]


class Poster:
    """One competitor's program while it runs."""

    def __init__(self, program, env, *arguments):
        self._popen = subprocess.Popen(["setpriv", "--pdeathsig", "KILL", "--", str(program), *map(str, arguments)],
                                       env=env, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                       stderr=subprocess.DEVNULL, text=True)
        self.start_nanoseconds = int(self._answer().split()[1])

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._popen.stdin.close()
        try:
            self._popen.wait(5)
        except subprocess.TimeoutExpired:
            self._popen.kill()
            self._popen.wait()

    def icons(self, paths):
        self._say("icons " + " ".join(map(str, paths)))

    def refresh(self):
        self._say("refresh")

    def post(self, count, pause_microseconds=2000):
        """Posts; returns (begin, waited, busy) in nanoseconds for each."""
        words = self._say(f"post {count} {pause_microseconds}").split()
        return [tuple(map(int, word.split(":"))) for word in words]

    def stream(self, count, pause_microseconds):
        """Posts `count` pop-ups; returns when the first began, and what all calls together took, in nanoseconds."""
        begin, waited = self._say(f"stream {count} {pause_microseconds}").split()
        return int(begin), int(waited)

    def settle(self, microseconds):
        self._say(f"settle {microseconds}")

    def processor_nanoseconds(self):
        """The processor time that all of the program's threads have used so far."""
        return int(self._say("processor"))

    def _say(self, line):
        self._popen.stdin.write(line + "\n")
        self._popen.stdin.flush()
        return self._answer()

    def _answer(self):
        line = self._popen.stdout.readline()
        if not line:
            raise RuntimeError(f"{self._popen.args[4]} ended with {self._popen.wait()}")
        return line
