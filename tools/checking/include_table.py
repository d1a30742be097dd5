# SPDX-License-Identifier: Apache-2.0
"""Whether every #include follows the table of rooms (docs/architecture.md)."""

import re

from sources import ROOT, sources

# Which rooms and outside headers each room may include, besides itself and the C++ library.
TABLE = {
    "host": {"Qt"},
    "core": {"Qt", "host", "methods"},
    "methods": {"Qt", "core", "host", "system"},
    "platform": {"Qt", "QtDBus", "sd-bus"},
    "client": {"Qt", "QtDBus", "core", "host", "methods", "platform", "system", "other"},
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


def _belongs_to(path, quoted, name, rooms):
    """The room or kind of outside header that `name` in the file `path` means."""
    if quoted:
        beside = (ROOT / path).parent / name
        if beside.exists() and ROOT in beside.resolve().parents:
            return beside.resolve().relative_to(ROOT).parts[0]
    first = name.split("/")[0]
    if first in rooms and "/" in name:
        return first
    for kind, pattern in (("system", _SYSTEM), ("sd-bus", _SDBUS), ("QtDBus", _QTDBUS), ("Qt", _QT),
                          ("language", _LANGUAGE)):
        if pattern.match(name):
            return kind
    if quoted and (ROOT / path.parts[0]).is_dir():
        if next((ROOT / path.parts[0]).rglob(name), None) or name.endswith(("_export.h", ".moc")):
            return path.parts[0]
    return "other"


def problems_in(path, text):
    """The includes of the file `path` (relative to the repository) that the table forbids, a line each."""
    room = path.parts[0]
    if room not in TABLE:
        return []
    rooms = {*TABLE, "tests", "benchmarks"}
    found = []
    for match in _INCLUDE.finditer(text):
        name = match[2]
        target = _belongs_to(path, match[1] == '"', name, rooms)
        allowed = target in ("language", room) or target in TABLE[room] or (room == "platform" and target == "system")
        if room == "core" and target == "methods":
            allowed = str(path) in MAY_CREATE_METHODS
        if not allowed:
            line = text.count("\n", 0, match.start(1)) + 1
            found.append(f"{path}:{line}: {room}/ must not include {name}")
    return found


def problems():
    return [problem for path in sources() for problem in problems_in(path, (ROOT / path).read_text())]
