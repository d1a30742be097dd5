# SPDX-License-Identifier: Apache-2.0
"""Whether every #include follows the table of rooms (rooms.py): none runs up, and none reaches a private header."""

import pathlib
import re

from rooms import PUBLIC, TABLE, is_public, room_of
from sources import ROOT, sources

_INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*([<"])([^>"]+)[>"]', re.MULTILINE)
_OUTSIDE = (
    ("system", re.compile(r"^(Growl|CoreFoundation|zepa_platform|objc)/")),
    ("sd-bus", re.compile(r"^systemd/sd-bus\.h$")),
    ("sound", re.compile(r"^(pulse/.*|sndfile\.h)$")),
    ("QtDBus", re.compile(r"^(QtDBus/.*|QDBus\w+|qdbus\w+\.h)$")),
    ("Qt", re.compile(r"^(Qt\w*/.*|Qt?[A-Z]\w+|Qt|q[a-z]\w+\.h)$")),
    ("language", re.compile(r"^([a-z_]+|(sys|arpa)/\w+\.h|(assert|dlfcn|errno|fcntl|poll|pwd|signal|spawn|stddef|stdint|"
                            r"stdio|stdlib|string|time|unistd)\.h)$")),
)
_TESTING = {"tests", "benchmarks"}


def _file_of(path, name):
    """The file of the repository that the quoted `name` in the file `path` means; None if there is no such file."""
    for folder in (path.parent, pathlib.PurePath(), pathlib.PurePath(path.parts[0])):
        found = (ROOT / folder / name).resolve()
        if found.is_file() and ROOT in found.parents:
            return found.relative_to(ROOT)
    return None


def _room_by_name(path, name):
    """The room that a name means whose file does not exist: it is generated, or a check asks about it."""
    named = pathlib.PurePath(name)
    if len(named.parts) == 1:
        generated = name.endswith(("_export.h", ".moc")) or (ROOT / path.parent / f"{name}.in").is_file()
        return room_of(path) if generated else "other"
    for known in (room_of(named), room_of(pathlib.PurePath(path.parts[0]) / named)):
        if known in TABLE or known in _TESTING:
            return known
    return "other"


def included(path, text):
    """What the file `path` includes: line, name, room or kind, and the file where it is one of the repository."""
    for match in _INCLUDE.finditer(text):
        name = match[2]
        line = text.count("\n", 0, match.start(1)) + 1
        if match[1] == "<":
            kind = next((kind for kind, pattern in _OUTSIDE if pattern.match(name)), "other")
            yield line, name, kind, None
        else:
            file = _file_of(path, name)
            yield line, name, room_of(file) if file else _room_by_name(path, name), file


def problems_in(path, text):
    """The includes of the file `path` (relative to the repository) that the table forbids, a line each."""
    room = room_of(path)
    if room in _TESTING:
        return []
    if room not in TABLE:
        return [f"{path}: belongs to no room"]
    found = []
    for line, name, target, file in included(path, text):
        if target in ("language", room):
            continue
        if target not in TABLE[room]:
            found.append(f"{path}:{line}: {room}/ must not include {name}")
        elif file and target in TABLE and not is_public(file):
            found.append(f"{path}:{line}: {name} is private to {target}/")
    return found


def circles(arrows):
    """The circles in a graph, given as a dictionary from each node to those it leads to; one line for each."""
    found, done = [], set()

    def walk(node, way):
        if node in way:
            found.append(" -> ".join([*way[way.index(node):], node]))
        elif node not in done:
            for target in sorted(arrows.get(node, ())):
                walk(target, [*way, node])
            done.add(node)

    for node in sorted(arrows):
        walk(node, [])
    return found


def arrows():
    """What is really included: from each file to files, and from each room to rooms, but for headers of exports."""
    files, rooms = {}, {}
    for path in sources():
        room = room_of(path)
        if room in _TESTING:
            continue
        for _, name, target, file in included(path, (ROOT / path).read_text()):
            if file and file != path:
                files.setdefault(str(path), set()).add(str(file))
            if target == "system":
                target = "platform/include"
            if target in TABLE and target != room and not name.endswith("_export.h"):
                rooms.setdefault(room, set()).add(target)
    return files, rooms


def problems():
    found = [problem for path in sources() for problem in problems_in(path, (ROOT / path).read_text())]
    found += [f"the table has a circle: {circle}" for circle in circles(TABLE)]
    files, _ = arrows()
    found += [f"files include each other: {circle}" for circle in circles(files)]
    for room, headers in PUBLIC.items():
        found += [f"{room}/{name} is listed as public and does not exist" for name in sorted(headers)
                  if not (ROOT / room / name).is_file()]
    return found
