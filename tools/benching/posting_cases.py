# SPDX-License-Identifier: Apache-2.0
"""A posting with one pop-up rule, beside others that post the same pop-up."""

import contextlib
import pathlib

from building import PROGRAMS
from figures import Table
from surroundings import Poster, Session, settings_folder

MODULE = "library"
SD_BUS = "bare sd-bus"
QT_DBUS = "bare QtDBus"
_MICRO = 1000.0
# Some competitors decode and encode a large picture each time, which takes a quarter of a second.
_ROUNDS = {"no icon": 40, "the same 64-pixel icon": 20, "100 different 256-pixel icons": 10, "one 1024-pixel icon": 3}
# So often with new processes: on which core the system puts a process decides as much as what it does.
_SESSIONS = {"no icon": 8, "the same 64-pixel icon": 5, "100 different 256-pixel icons": 2, "one 1024-pixel icon": 1}
# The library alone is quick with every picture.
_SERVICE_ROUNDS = 20
_SERVICE_SESSIONS = 5
_SERVICES = {"answers at once": "0", "after 5 ms": "5", "never": "never"}


def popup(context):
    """No icon and every kind of icon, with every kind of service: what the caller waits for."""
    table = Table("popup", "A posting with one pop-up rule: the caller waits", "us", [SD_BUS])
    busy = Table("popup-busy", "The same, with what the event loop does afterwards: the thread is busy", "us", [SD_BUS])
    for icon_name, icons in icons_of(context.pictures).items():
        for service_name, delay in _SERVICES.items():
            row = f"{icon_name}, {service_name}"
            context.announce(row)
            samples = {}
            for _ in range(context.rounds(_SESSIONS[icon_name])):
                _add(samples, _alternate(context, delay, icons, context.rounds(_ROUNDS[icon_name])))
            for name, measured in samples.items():
                table.add(row, name, [waited / _MICRO for _, waited, _ in measured])
                busy.add(row, name, [work / _MICRO for _, _, work in measured])
    return [table, busy]


def services(context):
    """The library's postings to a service of every kind, each with a program of its own, in turn."""
    table = Table("services", "The same posting to services of several kinds", "us", list(_SERVICES))
    for icon_name, icons in icons_of(context.pictures).items():
        samples = {}
        for _ in range(context.rounds(_SERVICE_SESSIONS)):
            with contextlib.ExitStack() as stack:
                posters = {}
                for service_name, delay in _SERVICES.items():
                    session = stack.enter_context(Session(context.fresh_folder(), delay))
                    settings = settings_folder(session.folder / "settings")
                    poster = Poster(PROGRAMS / "module_poster", session.env, settings)
                    posters[service_name] = stack.enter_context(poster)
                _add(samples, _in_turn(posters, icons, context.rounds(_SERVICE_ROUNDS)))
        for name, measured in samples.items():
            table.add(icon_name, name, [waited / _MICRO for _, waited, _ in measured])
    return [table]


def popup_unanswered(context):
    """How long libnotify waits for a service that never answers; once, since it takes its time."""
    table = Table("popup-unanswered", "One posting to a service that never answers", "us", [SD_BUS])
    with Session(context.folder / "unanswered", "never") as session:
        for name, program in posters_of(context).items():
            with Poster(program, session.env, settings_folder(session.folder / "settings")) as poster:
                table.add("no icon", name, [waited / _MICRO for _, waited, _ in poster.post(1)])
    return [table]


def first(context):
    """The very first posting of a process, right after its start."""
    table = Table("first", "The first posting of a process", "us", [SD_BUS])
    started = Table("first-start", "What each does before its first posting", "us", [SD_BUS])
    with Session(context.folder / "first") as session:
        settings = settings_folder(session.folder / "settings")
        measured = {}
        for _ in range(context.rounds(30)):
            for name, program in posters_of(context).items():
                with Poster(program, session.env, settings) as poster:
                    measured.setdefault(name, []).append((poster.start_nanoseconds, poster.post(1)[0][1]))
        for name, values in measured.items():
            table.add("no icon", name, [waited / _MICRO for _, waited in values])
            started.add("start", name, [start / _MICRO for start, _ in values])
    return [table, started]


def end_to_end(context):
    """From the begin of a posting to the moment at which the service has the message."""
    table = Table("end-to-end", "Until the service has the message", "us", [SD_BUS])
    with contextlib.ExitStack() as stack:
        session = stack.enter_context(Session(context.folder / "end"))
        settings = settings_folder(session.folder / "settings")
        posters = {name: stack.enter_context(Poster(program, session.env, settings))
                   for name, program in posters_of(context).items()}
        begins = []
        for turn in range(context.rounds(60) + 1):
            for name, poster in posters.items():
                poster.refresh()
                # The first ones wait until it is known what the service can do.
                begins += [(name if turn else None, begin) for begin, _, _ in poster.post(5, 20000 if turn else 100000)]
        arrivals = session.arrivals(len(begins))
        measured = {}
        for (name, begin), arrival in zip(sorted(begins, key=lambda entry: entry[1]), arrivals):
            if name:
                measured.setdefault(name, []).append((arrival - begin) / _MICRO)
        for name, values in measured.items():
            table.add("no icon", name, values)
    return [table]


def posters_of(context):
    """The competitors' programs by name."""
    return {SD_BUS: PROGRAMS / "sdbus_poster", QT_DBUS: PROGRAMS / "qtdbus_poster", MODULE: PROGRAMS / "module_poster", **context.peers}


def icons_of(pictures):
    """The paths of the pictures that postings carry in turn, by what is said of them."""
    pictures = pathlib.Path(pictures)
    return {"no icon": [], "the same 64-pixel icon": [pictures / "64.png"],
            "100 different 256-pixel icons": [pictures / f"256-{number}.png" for number in range(100)],
            "one 1024-pixel icon": [pictures / "1024.png"]}


def _alternate(context, delay, icons, rounds):
    """Lets all competitors post to one service in turn; returns what each measured."""
    with contextlib.ExitStack() as stack:
        session = stack.enter_context(Session(context.fresh_folder(), delay))
        settings = settings_folder(session.folder / "settings")
        posters = {name: stack.enter_context(Poster(program, session.env, settings))
                   for name, program in posters_of(context).items() if not (name == "libnotify" and delay == "never")}
        return _in_turn(posters, icons, rounds)


def _in_turn(posters, icons, rounds):
    """Lets all post in turn, a few pop-ups at a time, each turn led by the next one; returns what each measured."""
    samples = {}
    for poster in posters.values():
        poster.icons(icons)
        # What happens once: asking the service what it can do, and each picture's first time.
        poster.post(5, 100000)
        poster.post(len(icons), 1000)
    order = list(posters)
    for _ in range(rounds):
        for name in order:
            posters[name].refresh()
            samples.setdefault(name, []).extend(posters[name].post(10))
        # Nobody always comes after the same one.
        order.append(order.pop(0))
    return samples


def _add(samples, more):
    for name, measured in more.items():
        samples.setdefault(name, []).extend(measured)
