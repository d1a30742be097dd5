# SPDX-License-Identifier: Apache-2.0
"""What a screen reader gets to know of the windows on a test's desktop, and what its user does with them."""

import collections

import gi

from support import LONG, DesktopTest, screen

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402  (the version is asked for first)

_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
_REGISTRY_DAEMON = "/usr/libexec/at-spi2-registryd"
_REGISTRY = "org.a11y.atspi.Registry"
_ROOT = "/org/a11y/atspi/accessible/root"
_NOWHERE = "/org/a11y/atspi/null"
_ACCESSIBLE = "org.a11y.atspi.Accessible"
_TEXT = "org.a11y.atspi.Text"
_EVENTS = "org.a11y.atspi.Event."
_ON_THE_SCREEN = 0
# Of the states' numbers those that windows like ours can have.
_STATES = {1: "active", 4: "checked", 5: "collapsed", 7: "editable", 8: "enabled", 9: "expandable", 10: "expanded",
           11: "focusable", 12: "focused", 16: "modal", 20: "pressed", 22: "selectable", 23: "selected",
           24: "sensitive", 25: "showing", 30: "visible", 32: "indeterminate", 36: "invalid entry", 39: "default",
           41: "checkable", 42: "has popup", 43: "read only"}

# One thing that a screen reader was told: `kind` is "state-changed", "property-change", "text-changed", ...;
# `detail` says of what ("showing", "accessible-name", "insert"); `numbers` and `value` are as the kind has them.
Event = collections.namedtuple("Event", "node kind detail numbers value")


class AccessibleTest(DesktopTest):
    """A test with a screen reader's view. Have it before DesktopTest's own settings; start programs after setUp().

    Qt's programs on the desktop find the accessibility bus by themselves. Everything is ended with the desktop.
    """

    def setUp(self):
        super().setUp()
        self.accessibility = AccessibilityBus(self.desktop)
        self.addCleanup(self.accessibility.close)

    def application(self, running):
        """The root of the windows of a running program (anything with a `pid`), as soon as it is there."""
        return screen.wait_until(lambda: self.accessibility.application(running.pid),
                                 "the program should be on the accessibility bus")


class AccessibilityBus:
    """The bus that screen readers and programs meet on, with its registry, on a desktop that has none."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.heard = []
        launcher = desktop.start("at-spi-bus-launcher",
                                 [_LAUNCHER, "--launch-immediately", "--a11y=1", "--screen-reader=1"])
        launcher.wait_until(lambda: desktop.ask_bus("NameHasOwner", "org.a11y.Bus") == "(true,)")
        address = desktop.run("gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path", "/org/a11y/bus",
                              "--method", "org.a11y.Bus.GetAddress").split("'")[1]
        self._bus = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
            None, None)
        registry = desktop.start("at-spi2-registryd", [_REGISTRY_DAEMON],
                                 dict(desktop.env, DBUS_STARTER_ADDRESS=address, AT_SPI_BUS_ADDRESS=address))
        registry.wait_until(self._registry_is_there)
        # Programs send only the events that somebody has asked the registry for.
        for kind in ("object:", "focus:", "window:"):
            self.call(_REGISTRY, "/org/a11y/atspi/registry", _REGISTRY, "RegisterEvent",
                      GLib.Variant("(sas)", (kind, [])))
        for group in ("Object", "Focus", "Window"):
            self._bus.signal_subscribe(None, _EVENTS + group, None, None, None, Gio.DBusSignalFlags.NONE, self._hear)

    def close(self):
        if not self._bus.is_closed():
            self._bus.close_sync()

    def call(self, name, path, interface, method, arguments=None):
        answer = self._bus.call_sync(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE,
                                     1000 * LONG, None)
        return answer.unpack()

    def application(self, pid):
        """The root of the windows of process `pid`; None while it is not there."""
        for root in Node(self, _REGISTRY, _ROOT).children:
            if self._process(root.owner) == pid:
                return root
        return None

    def listen(self):
        """Forgets what was heard; `events` gives what comes from now on."""
        self.events()
        self.heard.clear()

    def events(self, kind=None, detail=None):
        """What was heard since listen(), in order: of one kind and detail, or all."""
        # The signals come in while the loop turns.
        while GLib.MainContext.default().iteration(False):
            pass
        return [event for event in self.heard
                if kind in (None, event.kind) and detail in (None, event.detail)]

    def wait_for(self, kind, detail=None, where=lambda event: True):
        """The first event of this kind and detail since listen() for which `where` is true; waits for it."""
        def first():
            return next((event for event in self.events(kind, detail) if where(event)), None)

        try:
            return screen.wait_until(first, f"{kind} {detail or ''} on the accessibility bus")
        except screen.NotReady as error:
            raise AssertionError(f"{error}; heard: {[tuple(event)[1:] for event in self.heard]}") from None

    def _registry_is_there(self):
        return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
                         GLib.Variant("(s)", (_REGISTRY,)))[0]

    def _process(self, owner):
        try:
            return self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                             "GetConnectionUnixProcessID", GLib.Variant("(s)", (owner,)))[0]
        except GLib.Error:
            return None

    def _hear(self, _, owner, path, __, signal, arguments):
        detail, *numbers, value = arguments.unpack()[:4]
        # "StateChanged" is "state-changed".
        kind = "".join("-" + letter.lower() if letter.isupper() else letter for letter in signal).lstrip("-")
        self.heard.append(Event(Node(self, owner, path), kind, detail, tuple(numbers), value))


class Node:
    """One thing in a window: what it is, what it says, where it is. Asks the program each time."""

    def __init__(self, bus, owner, path):
        self._bus = bus
        self.owner = owner
        self.path = path

    def __eq__(self, other):
        return isinstance(other, Node) and (self.owner, self.path) == (other.owner, other.path)

    def __hash__(self):
        return hash((self.owner, self.path))

    def __repr__(self):
        try:
            return f"<{self.role} {self.name!r}>"
        except GLib.Error:
            return f"<gone {self.path}>"

    @property
    def name(self):
        return self._get(_ACCESSIBLE, "Name")

    @property
    def description(self):
        return self._get(_ACCESSIBLE, "Description")

    @property
    def role(self):
        """As "frame", "push button", "text", "label", "check box", "notification"."""
        return self._ask(_ACCESSIBLE, "GetRoleName")

    @property
    def states(self):
        """The names of its states: "focused", "checked", "showing", "enabled", ..."""
        words = self._ask(_ACCESSIBLE, "GetState")
        bits = words[0] | words[1] << 32
        return {name for number, name in _STATES.items() if bits >> number & 1}

    @property
    def children(self):
        return [Node(self._bus, owner, path) for owner, path in self._ask(_ACCESSIBLE, "GetChildren")
                if path != _NOWHERE]

    @property
    def text(self):
        """What stands in it, for what has a text of its own beside its name: an input line, a document."""
        return self._ask(_TEXT, "GetText", GLib.Variant("(ii)", (0, -1)))

    @property
    def caret(self):
        return self._get(_TEXT, "CaretOffset")

    @property
    def value(self):
        """For a number to choose: a spin box, a slider, a scroll bar."""
        return self._get("org.a11y.atspi.Value", "CurrentValue")

    @property
    def box(self):
        """Where it is on the screen; not for programs that QT_SCALE_FACTOR enlarges, whose Qt says it unscaled."""
        return screen.Box(*self._ask("org.a11y.atspi.Component", "GetExtents", GLib.Variant("(u)", (_ON_THE_SCREEN,))))

    def all(self):
        """It and everything in it, from the outside in."""
        yield self
        for child in self.children:
            yield from child.all()

    def find_all(self, role=None, name=None):
        """What is in it with this role and this name, either of which may be left out."""
        return [node for node in self.all()
                if (role is None or node.role == role) and (name is None or node.name == name)]

    def find(self, role=None, name=None):
        """The first of find_all(); waits until there is one, and fails with all that is there."""
        def first():
            try:
                return next(iter(self.find_all(role, name)), None)
            except GLib.Error:  # something went away meanwhile
                return None

        try:
            return screen.wait_until(first, f"{role} {name!r} on the accessibility bus")
        except screen.NotReady as error:
            raise AssertionError(f"{error}\n{self.tree()}") from None

    def tree(self, depth=0):
        """Everything in it, a line each: for a person who looks for why a test fails."""
        return "\n".join(["  " * depth + f"{self!r} {sorted(self.states)}",
                          *(child.tree(depth + 1) for child in self.children)])

    def click(self, button=1):
        """Clicks on its middle with the mouse."""
        screen.click(self._bus.desktop, self.box.at(), button)

    def do(self, action="Press"):
        """Does what a screen reader's user can have done without a mouse."""
        interface = "org.a11y.atspi.Action"
        names = [row[0] for row in self._ask(interface, "GetActions")]
        return self._ask(interface, "DoAction", GLib.Variant("(i)", (names.index(action),)))

    def take_focus(self):
        """Has the keyboard go to it."""
        return self._ask("org.a11y.atspi.Component", "GrabFocus")

    def wait_for_state(self, state, present=True):
        screen.wait_until(lambda: (state in self.states) == present,
                          f"{self!r} should be {'' if present else 'not '}{state}")

    def _ask(self, interface, method, arguments=None):
        return self._bus.call(self.owner, self.path, interface, method, arguments)[0]

    def _get(self, interface, name):
        return self._bus.call(self.owner, self.path, "org.freedesktop.DBus.Properties", "Get",
                              GLib.Variant("(ss)", (interface, name)))[0]


def next_in_focus(test, *keys):
    """Presses keys that move the focus of the keyboard, and returns what has it then."""
    test.accessibility.listen()
    press(test.desktop, *keys)
    return test.accessibility.wait_for("state-changed", "focused", lambda event: event.numbers[0] == 1).node


def press(desktop, *keys):
    """Presses keys one after the other, as xdotool names them: "Tab", "shift+Tab", "Prior", "ctrl+a"."""
    desktop.run("xdotool", "key", "--delay", "30", *keys)


def write(desktop, text):
    """Writes on the keyboard into what has the focus. Letters that the keyboard has, that is ASCII."""
    desktop.run("xdotool", "type", "--delay", "20", text)
