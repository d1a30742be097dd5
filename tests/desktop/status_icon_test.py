# SPDX-License-Identifier: Apache-2.0
"""The icon in the status area: seen on the screen, for both kinds of hosts, and read from the session bus."""

import subprocess
import threading

import gi
import numpy

from support import LONG, ROOT, DesktopTest, screen

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402  (the version is asked for first)

ICONS = ROOT / "client" / "themes" / "roster" / "default" / "icons"
# Each picture once; those with a size in their name are the same again.
PICTURES = [path for path in sorted(ICONS.glob("*.png")) if "-" not in path.stem]
ITEM = "org.kde.StatusNotifierItem"
WATCHER_XML = """<node><interface name="org.kde.StatusNotifierWatcher">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
</interface></node>"""
WATCHER = ("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher")


def grey(path, width, height, *options):
    """A picture as an array of brightness."""
    raw = subprocess.run(["convert", str(path), *options, "-resize", f"{width}x{height}!", "-colorspace", "gray",
                          "-depth", "8", "gray:-"], stdin=subprocess.DEVNULL, check=True, capture_output=True).stdout
    return numpy.frombuffer(raw, dtype="u1").astype(float)


def likeness(one, other):
    """1 when two pictures are the same up to brightness and contrast; 0 when they have nothing in common."""
    one, other = one - one.mean(), other - other.mean()
    size = numpy.linalg.norm(one) * numpy.linalg.norm(other)
    return float(one @ other / size) if size else 0.0


class StatusIcon:
    """The tests of both kinds; a class below names the host and where on the screen its icons are."""

    def setUp(self):
        super().setUp()
        self.watcher = screen.Watcher(self.desktop)

    def start(self):
        """Starts a client that stays."""
        return self.start_zepa("post", "message_received", "--title", "Ann", "--action", "true", "--wait")

    def icon(self):
        """Where in the area the icon is; None while there is none. Leaves part.png and before-part.png."""
        crop = f"{self.area.width}x{self.area.height}+{self.area.x}+{self.area.y}"
        folder = self.desktop.folder
        for source, target in ((self.watcher.now(), "part.png"), (folder / "before.png", "before-part.png")):
            self.desktop.run("convert", str(source), "-crop", crop, "+repage", str(folder / target))
        return screen.difference(folder / "before-part.png", folder / "part.png")

    def likenesses(self):
        """How much the icon looks like each of the theme's pictures; empty while there is no icon."""
        box = self.icon()
        if not box or min(box.width, box.height) < 12:
            return {}
        shown = grey(self.desktop.folder / "part.png", 32, 32, "-crop",
                     f"{box.width}x{box.height}+{box.x}+{box.y}", "+repage")
        background = self.desktop.run("convert", str(self.desktop.folder / "before-part.png"), "-format",
                                      f"%[pixel:p{{{box.x},{box.y}}}]", "info:")
        return {path.stem: likeness(shown, grey(path, 32, 32, "-trim", "+repage", "-background", background,
                                                "-flatten"))
                for path in PICTURES}

    def test_the_icon_shows_the_picture_of_an_unavailable_presence(self):
        self.start()
        likenesses = {}

        def recognised():
            nonlocal likenesses
            likenesses = self.likenesses()
            return likenesses.get("unavail", 0) > 0.85

        try:
            screen.wait_until(recognised, "the picture in the status area")
        except screen.NotReady:
            self.fail(f"not recognised: {likenesses}")
        self.assertEqual(max(likenesses, key=likenesses.get), "unavail", likenesses)

    def test_the_icon_goes_with_the_client(self):
        client = self.start()
        screen.wait_until(self.icon, "the icon in the status area")
        client.stop()
        screen.wait_until(lambda: self.icon() is None, "the status area without the icon")


class IconOfAWindow:
    """What is done with the icon of a client that has a window: a class below says how a host does it."""

    def setUp(self):
        super().setUp()
        self.client = self.start_zepa()
        self.window = self.client.wait_until(self.windows, "the main window")[0]
        screen.wait_until(lambda: screen.active_window(self.desktop) == self.window, "the main window should be the active one")

    def windows(self):
        return screen.windows(self.desktop, "--name", "^Zepa$")

    def minimise(self):
        self.desktop.run("xdotool", "windowminimize", "--sync", self.window)
        screen.wait_until(lambda: not self.windows(), "the main window should be minimised")

    def wait_until_shown(self):
        screen.wait_until(lambda: self.windows() == [self.window], "the main window should be shown")
        screen.wait_until(lambda: screen.active_window(self.desktop) == self.window, "the main window should be the active one")

    def test_a_click_brings_the_window_back(self):
        self.minimise()
        self.click_icon()
        self.wait_until_shown()

    def test_show_in_the_menu_brings_the_window_back(self):
        self.minimise()
        self.choose("Show")
        self.wait_until_shown()

    def test_quit_in_the_menu_ends_the_client(self):
        self.choose("Quit")
        self.client.finish(0)
        self.assertEqual(self.windows(), [])


class StatusIconInTrayer(StatusIcon, DesktopTest):
    """XEmbed: the icon is a window in the host's window."""

    options = {"service": "dunst", "tray": "trayer"}
    area = screen.Box(0, 0, 200, 32)


class IconOfAWindowInTrayer(IconOfAWindow, DesktopTest):
    options = {"service": "none", "tray": "trayer"}

    def icon(self):
        """The icon's window is the only one of the client's in the corner where the host is."""
        boxes = (screen.window_box(self.desktop, window) for window in self.own_windows())
        return next((box for box in boxes if box.y < 32 and box.height <= 32), None)

    def own_windows(self):
        """The client's windows that are shown, its icon and its menu among them."""
        return set(screen.windows(self.desktop, "--pid", str(self.client.pid)))

    def click_icon(self, button=1):
        screen.click(self.desktop, screen.wait_until(self.icon, "the icon in the status area").at(), button)

    def choose(self, name):
        icon = screen.wait_until(self.icon, "the icon in the status area")
        before = self.own_windows()
        screen.click(self.desktop, icon.at(), 3)
        [menu] = screen.wait_until(lambda: self.own_windows() - before, "the menu")
        screen.click(self.desktop, screen.window_box(self.desktop, menu).at(0.5, {"Show": 0.25, "Quit": 0.75}[name]))


class BusTest(DesktopTest):
    """Has no test itself: reads icons that are objects on the session bus, and chooses from their menus."""

    def setUp(self):
        super().setUp()
        self.bus = Gio.DBusConnection.new_for_address_sync(
            self.desktop.env["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        self.addCleanup(self.bus.close_sync)

    def call(self, name, path, interface, method, arguments):
        return self.bus.call_sync(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                                  1000 * LONG, None).unpack()

    def read(self, name, path, interface, property_name):
        return self.call(name, path, "org.freedesktop.DBus.Properties", "Get",
                         GLib.Variant("(ss)", (interface, property_name)))[0]

    def item(self):
        """The bus name and the path of the only icon, as soon as it is there."""
        items = screen.wait_until(lambda: self.read(*WATCHER, "RegisteredStatusNotifierItems"), "an item")
        self.assertEqual(len(items), 1)
        name, _, path = items[0].partition("/")
        return name, f"/{path}" if path else "/StatusNotifierItem"

    def choose(self, name):
        owner, path = self.item()
        menu = (owner, self.read(owner, path, ITEM, "Menu"), "com.canonical.dbusmenu")
        _, (_, _, entries) = self.call(*menu, "GetLayout", GLib.Variant("(iias)", (0, -1, [])))
        labels = {properties["label"].replace("_", ""): number for number, properties, _ in entries}
        self.assertEqual(list(labels), ["Show", "Quit"])
        self.call(*menu, "Event", GLib.Variant("(isvu)", (labels[name], "clicked", GLib.Variant("s", ""), 0)))


class IconOfAWindowInPanel(IconOfAWindow, BusTest):
    options = {"service": "none", "tray": "lxqt-panel"}

    def click_icon(self):
        self.call(*self.item(), ITEM, "Activate", GLib.Variant("(ii)", (0, 0)))


class ItemOnTheBus:
    """The test of X11 and Wayland; a class below names the desktop."""

    def test_the_item_on_the_bus_has_the_theme_s_picture_and_a_menu(self):
        self.start()
        owner, path = self.item()

        def item(property_name):
            return self.read(owner, path, ITEM, property_name)

        self.assertNotEqual(item("Menu"), "/")
        width, height, pixels = max(item("IconPixmap"))
        argb = numpy.frombuffer(bytes(pixels), dtype="u1").reshape(height, width, 4).astype(float)
        red, green, blue = (argb[:, :, channel] for channel in (1, 2, 3))
        shown = ((0.2126 * red + 0.7152 * green + 0.0722 * blue) * argb[:, :, 0] / 255).ravel()
        flat = ("-background", "black", "-flatten")
        likenesses = {path.stem: likeness(shown, grey(path, width, height, *flat)) for path in PICTURES}
        self.assertGreater(likenesses["unavail"], 0.95, likenesses)
        self.assertEqual(max(likenesses, key=likenesses.get), "unavail", likenesses)


class StatusIconInPanel(StatusIcon, ItemOnTheBus, BusTest):
    """StatusNotifierItem: the panel draws the icon."""

    options = {"service": "dunst", "tray": "lxqt-panel"}
    # Without the clock in the corner.
    area = screen.Box(1000, 766, 247, 34)


class StatusIconOnWayland(ItemOnTheBus, BusTest):
    """Debian has no panel for sway that shows icons, so the test is the host that they look for."""

    options = {"service": "none", "wayland": True}

    def setUp(self):
        super().setUp()
        self.items = []
        self.bus.register_object(WATCHER[1], Gio.DBusNodeInfo.new_for_xml(WATCHER_XML).interfaces[0], self.register,
                                 lambda *asked: self.properties()[asked[-1]], None)
        # Icons wait for the host's answers at times when the test is waiting for theirs.
        loop = GLib.MainLoop()
        answering = threading.Thread(target=loop.run)
        answering.start()
        self.addCleanup(answering.join)
        self.addCleanup(loop.quit)
        self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                  GLib.Variant("(su)", (WATCHER[0], 0)))

    def properties(self):
        return {"IsStatusNotifierHostRegistered": GLib.Variant("b", True),
                "RegisteredStatusNotifierItems": GLib.Variant("as", self.items),
                "ProtocolVersion": GLib.Variant("i", 0)}

    def register(self, _, sender, *call):
        arguments, invocation = call[-2:]
        self.items.append(arguments.unpack()[0])
        invocation.return_value(None)

    def start(self):
        return self.start_zepa()

    def item(self):
        name = screen.wait_until(lambda: self.items, "an item")[0]
        return name, "/StatusNotifierItem"

    def test_quit_in_the_menu_ends_the_client(self):
        client = self.start()
        self.choose("Quit")
        client.finish(0)
