# SPDX-License-Identifier: Apache-2.0
"""Whether every #include follows the table of rooms (docs/architecture.md)."""

import pathlib
import re

from sources import ROOT, sources

# Which rooms and outside headers each room may include, besides itself and the C++ library.
TABLE = {
    "host": {"Qt"},
    "core": {"Qt", "host", "methods"},
    "methods": {"Qt", "core", "host", "system"},
    "platform": {"Qt", "sd-bus"},
    # The rooms of platform/: what each may include of the others. "system" is platform/include.
    "platform/include": {"Qt", "system"},
    "platform/corefoundation": {"Qt", "system"},
    "platform/bus": {"Qt", "sd-bus", "system"},
    "platform/growl": {"Qt", "system"},
    "platform/freedesktop": {"Qt", "system", "platform/growl", "platform/bus"},
    "platform/portal": {"Qt", "system", "platform/growl", "platform/bus", "platform/freedesktop"},
    "platform/attention": {"Qt", "system", "platform/bus"},
    # The rooms of kit/, in the order in which they stand upon each other.
    "kit": {"Qt", "core", "host", "system", "other"},
    "client": {"Qt", "core", "host", "methods", "kit", "system", "other"},
}
# The one place in core/ that may know the methods: where the module creates its built-in ones.
MAY_CREATE_METHODS = {"core/notification_module.cpp"}

_INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*([<"])([^>"]+)[>"]', re.MULTILINE)
_SYSTEM = re.compile(r"^(Growl|CoreFoundation|zepa_platform|objc)/")
_SDBUS = re.compile(r"^systemd/sd-bus\.h$")
_QTDBUS = re.compile(r"^(QtDBus/.*|QDBus\w+|qdbus\w+\.h)$")
_QT = re.compile(r"^(Qt\w*/.*|Qt?[A-Z]\w+|Qt|q[a-z]\w+\.h)$")
_LANGUAGE = re.compile(r"^([a-z_]+|(assert|errno|fcntl|poll|signal|stdint|stddef|stdio|stdlib|string|time|unistd|dlfcn)\.h"
                       r"|(sys|arpa)/\w+\.h)$")


def _room_of(path):
    """The room that the file `path` (relative to the repository) is in, an inner one where the table has it."""
    inner = "/".join(path.parts[:2])
    return inner if inner in TABLE else path.parts[0]


def _belongs_to(path, quoted, name, rooms):
    """The room or kind of outside header that `name` in the file `path` means."""
    if quoted:
        beside = (ROOT / path).parent / name
        if beside.exists() and ROOT in beside.resolve().parents:
            return _room_of(beside.resolve().relative_to(ROOT))
    first = name.split("/")[0]
    # Inside of a room, its inner rooms are named without it.
    if "/" in name and f"{path.parts[0]}/{first}" in TABLE and quoted:
        return f"{path.parts[0]}/{first}"
    if first in rooms and "/" in name:
        return _room_of(pathlib.PurePath(name))
    for kind, pattern in (("system", _SYSTEM), ("sd-bus", _SDBUS), ("QtDBus", _QTDBUS), ("Qt", _QT),
                          ("language", _LANGUAGE)):
        if pattern.match(name):
            return kind
    room = _room_of(path)
    if quoted and (ROOT / room).is_dir():
        if next((ROOT / room).rglob(name), None) or name.endswith(("_export.h", ".moc")):
            return room
    return "other"


def problems_in(path, text):
    """The includes of the file `path` (relative to the repository) that the table forbids, a line each."""
    room = _room_of(path)
    if room not in TABLE:
        return []
    rooms = {*TABLE, "tests", "benchmarks"}
    found = []
    for match in _INCLUDE.finditer(text):
        name = match[2]
        target = _belongs_to(path, match[1] == '"', name, rooms)
        allowed = target in ("language", room) or target in TABLE[room]
        if room == "core" and target == "methods":
            allowed = str(path) in MAY_CREATE_METHODS
        if not allowed:
            line = text.count("\n", 0, match.start(1)) + 1
            found.append(f"{path}:{line}: {room}/ must not include {name}")
    return found


def problems():
    return [problem for path in sources() for problem in problems_in(path, (ROOT / path).read_text())]
