# SPDX-License-Identifier: Apache-2.0
"""The virtual desktop itself: starts its parts one by one, each when the one before it answers."""

import os
import pathlib
import pwd
import subprocess

from . import bus, panel, screen
from .notification_services import BUS_NAME, SERVICES
from .processes import LIMIT, NotReady, Process
from .sound import Sound

# What a surrounding desktop may have set, and what would lead programs out of ours.
_DROPPED = ("XDG_", "DBUS_", "QT_", "GTK_", "GDK_", "PULSE_", "WAYLAND_", "SWAY", "WLR_", "XAUTHORITY", "DESKTOP_",
            "SESSION_MANAGER", "AT_SPI_")
_TRAYS = {
    "trayer": ["trayer", "--edge", "top", "--align", "left", "--widthtype", "pixel", "--width", "200",
               "--height", "32"],
    "lxqt-panel": ["lxqt-panel"],
}
_TRAYER_COLOUR = "#dcdad5"
_BACKGROUND = "#34506b"
class VirtualDesktop:
    """A desktop in the folder `folder`, which the caller removes. `env` is the environment of programs on it.

    Its parts are attributes, None where there is none: screen, window_manager, compositor, service, tray, sound.
    """

    def __init__(self, folder, *, service="dunst", size="1280x800", sound=False, tray=None, wayland=False,
                 popup_seconds=10):
        self.folder = pathlib.Path(folder)
        self.size = size
        self.service_name = service
        self._popup_seconds = popup_seconds
        self.screen = self.window_manager = self.compositor = self.service = self.tray = self.sound = None
        self.display = None
        self._processes = []
        self._wayland_user = None
        self._services = self.folder / "services"
        self._make_folders()
        self.env = self._environment()
        try:
            self._start_bus()
            self._start_screen()
            if wayland:
                self._start_compositor()
            else:
                self._start_window_manager()
            if sound:
                self.sound = Sound(self.start, self.env, self.folder / "run", self.folder)
            if tray:
                self._start_tray(tray)
            if service != "none":
                self.start_service()
        except BaseException:
            self.stop()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()

    def start(self, name, command, env=None, user=None, pass_fds=()):
        """Starts a program that is ended together with the desktop."""
        process = Process(name, command, env or self.env, self.folder / "logs" / f"{name}.log", user, pass_fds)
        self._processes.append(process)
        return process

    def stop(self):
        """Ends everything, the latest first."""
        while self._processes:
            self._processes.pop().stop()

    def start_service(self):
        """Starts the notification service; again, after it was killed."""
        service = SERVICES[self.service_name]
        service.write_config(self.env["XDG_CONFIG_HOME"], self._popup_seconds)
        if self.compositor:
            self.service = self.start(self.service_name, [service.program()], self._wayland_env, self._wayland_user)
        else:
            self.service = self.start(self.service_name, [service.program()])
        self.service.wait_until(lambda: bus.has_owner(BUS_NAME, self.env))

    def let_bus_start_service(self):
        """Makes the notification service one that the bus starts when somebody calls it."""
        bus.offer(self._services, BUS_NAME, SERVICES[self.service_name].program())
        self.ask_bus("ReloadConfig")

    def ask_bus(self, method, *arguments):
        """Calls a method of the bus itself; returns the answer as gdbus prints it."""
        return subprocess.run(
            ["gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path", "/org/freedesktop/DBus",
             "--method", f"org.freedesktop.DBus.{method}", *arguments],
            env=self.env, stdin=subprocess.DEVNULL, check=True, capture_output=True, text=True).stdout.strip()

    def run(self, *command, **options):
        """Runs a program on this desktop to its end and returns what it printed; raises when it fails."""
        options = {"env": self.env, "stdin": subprocess.DEVNULL, "check": True, "capture_output": True, "text": True,
                   "timeout": LIMIT} | options
        return subprocess.run(command, **options).stdout

    def _make_folders(self):
        for name in ("home", "home/.config", "home/.cache", "home/.local/share", "home/.local/state", "run", "tmp",
                     "services", "logs"):
            (self.folder / name).mkdir(parents=True, exist_ok=True)
        (self.folder / "run").chmod(0o700)

    def _environment(self):
        home = self.folder / "home"
        kept = {name: value for name, value in os.environ.items() if not name.startswith(_DROPPED)}
        return kept | {
            "LANG": "C.UTF-8",
            "HOME": str(home),
            "XDG_CONFIG_HOME": str(home / ".config"),
            "XDG_CACHE_HOME": str(home / ".cache"),
            "XDG_DATA_HOME": str(home / ".local/share"),
            "XDG_STATE_HOME": str(home / ".local/state"),
            "XDG_RUNTIME_DIR": str(self.folder / "run"),
            "XDG_CONFIG_DIRS": "/etc/xdg",
            "XDG_DATA_DIRS": "/usr/local/share:/usr/share",
            "TMPDIR": str(self.folder / "tmp"),
            "LIBGL_ALWAYS_SOFTWARE": "1",
            "NO_AT_BRIDGE": "1",
            "GSETTINGS_BACKEND": "memory",
            "GIO_USE_VFS": "local",
            "QT_QPA_PLATFORM": "xcb",
        }

    def _start_bus(self):
        config = bus.write_config(self.folder, self.folder / "bus", self._services)
        address = self._start_and_read("dbus-daemon", lambda fd: [
            "dbus-daemon", f"--config-file={config}", "--nofork", "--nopidfile", f"--print-address={fd}"])
        self.env["DBUS_SESSION_BUS_ADDRESS"] = address

    def _start_screen(self):
        number = self._start_and_read("Xvfb", lambda fd: [
            "Xvfb", "-displayfd", str(fd), "-screen", "0", f"{self.size}x24", "-nolisten", "tcp", "-noreset"])
        self.screen = self._processes[-1]
        self.display = f":{number}"
        self.env["DISPLAY"] = self.display

    def _start_window_manager(self):
        # What it says on the screen comes before it manages windows; what it runs for us comes after.
        ready = self.folder / "window-manager-is-ready"
        self.window_manager = self.start("openbox", ["openbox", "--sm-disable", "--startup", f"touch {ready}"])
        self.window_manager.wait_until(ready.exists)

    def _start_tray(self, name):
        if name == "lxqt-panel":
            panel.write_config(self.env["XDG_CONFIG_HOME"], self.env["XDG_DATA_HOME"])
        self.tray = self.start(name, _TRAYS[name])
        if name == "lxqt-panel":
            self.tray.wait_until(lambda: bus.has_owner("org.kde.StatusNotifierWatcher", self.env))
            self.tray.wait_until(self._panel_is_drawn)
        else:
            self.tray.wait_until(self._trayer_is_drawn)

    def _panel_is_drawn(self):
        width, height = (int(number) for number in self.size.split("x"))
        at_the_bottom = screen.Box(0, height - panel.HEIGHT, width, panel.HEIGHT)
        shown = screen.picture(self, self.folder / "now.png")
        found = screen.colour(shown, panel.COLOUR, at_the_bottom)
        return found is not None and found.x == 0 and found.height >= panel.HEIGHT - 4

    def _trayer_is_drawn(self):
        shown = screen.picture(self, self.folder / "now.png")
        found = screen.colour(shown, _TRAYER_COLOUR)
        drawn = found is not None and found.x == 0 and found.y == 0 and found.width == 200
        if not drawn:
            # Now and then it misses the order to draw itself, and would stay black.
            self.run("xrefresh")
        return drawn

    def _start_and_read(self, name, command):
        """Starts a program that writes one line to a descriptor when it is ready; returns the line."""
        readable, writable = os.pipe()
        try:
            process = self.start(name, command(writable), pass_fds=(writable,))
            os.close(writable)
            writable = None
            with os.fdopen(readable) as pipe:
                readable = None
                line = pipe.readline().strip()
        finally:
            for descriptor in (readable, writable):
                if descriptor is not None:
                    os.close(descriptor)
        if not line:
            raise NotReady(f"{name} did not start\n{process.output()}")
        return line

    def _start_compositor(self):
        """Starts sway in a window on the screen, as an ordinary user: it refuses to run as root."""
        run = self.folder / "run"
        if os.geteuid() == 0:
            self._wayland_user = pwd.getpwnam("nobody")
            run = self.folder / "wayland-run"
            run.mkdir(mode=0o700)
            os.chown(run, self._wayland_user.pw_uid, self._wayland_user.pw_gid)
            # The user must reach the socket of the bus and the configuration, so the folders are let through.
            for passed in (self.folder, self.folder / "home"):
                passed.chmod(0o711)
        config = self.folder / "sway.conf"
        width, height = self.size.split("x")
        config.write_text(
            f"output * mode {width}x{height}\n"
            f"output * bg {_BACKGROUND} solid_color\nseat * hide_cursor 0\nxwayland disable\nfocus_follows_mouse no\n")
        self._wayland_env = dict(
            self.env, XDG_RUNTIME_DIR=str(run), WLR_BACKENDS="x11", WLR_RENDERER="pixman",
            WLR_LIBINPUT_NO_DEVICES="1", SWAYSOCK=str(run / "sway.sock"), HOME="/nonexistent",
            XDG_CACHE_HOME=str(run))
        self.compositor = self.start("sway", ["sway", "--config", str(config)], self._wayland_env, self._wayland_user)
        self.compositor.wait_until(lambda: list(run.glob("wayland-?")) and self._sway_answers(run))
        self.compositor.wait_until(self._background_is_drawn)
        socket = next(run.glob("wayland-?"))
        self._wayland_env["WAYLAND_DISPLAY"] = socket.name
        self.env.update(WAYLAND_DISPLAY=str(socket), QT_QPA_PLATFORM="wayland", SWAYSOCK=str(run / "sway.sock"))

    def _background_is_drawn(self):
        shown = screen.picture(self, self.folder / "now.png")
        return screen.colour(shown, _BACKGROUND) == screen.Box(0, 0, *(int(number) for number in self.size.split("x")))

    def _sway_answers(self, run):
        asked = subprocess.run(["swaymsg", "--socket", str(run / "sway.sock"), "-t", "get_outputs"],
                               stdin=subprocess.DEVNULL, capture_output=True, text=True)
        return asked.returncode == 0 and '"active": true' in asked.stdout
