# SPDX-License-Identifier: Apache-2.0
"""Many postings, one after another and at intervals: what they cost the caller, the whole process and the bus."""

import contextlib
import time

from figures import Table
from posting_cases import SD_BUS, icons_of, posters_of
from surroundings import Poster, Session, settings_folder

_MICRO = 1000.0
_MILLI = 1_000_000.0
_BURST = 1000
_PACED = 200
_SESSIONS = 8
# How a competitor's postings come: with which picture, how many, and the event loop's time after each in microseconds.
_STREAMS = {"a burst of 1,000": ("no icon", _BURST, 0),
            "a burst of 1,000, the same 64-pixel icon": ("the same 64-pixel icon", _BURST, 0),
            "one every 10 ms": ("no icon", _PACED, 10_000)}


def streams(context):
    """Bursts, and postings at intervals; each session has new processes and is led by another competitor."""
    tables = {
        "caller": Table("stream", "One of many postings: the caller waits", "us", [SD_BUS]),
        "process": Table("stream-process", "The same: processor time of the whole process", "us", [SD_BUS]),
        "bus": Table("stream-bus", "The same: processor time of the bus", "us", [SD_BUS]),
        "received": Table("stream-received", "From the first posting until the service has received all", "ms", [SD_BUS])}
    pictures = icons_of(context.pictures)
    for row, (icon_name, count, pause) in _STREAMS.items():
        context.announce(row)
        samples = {}
        for turn in range(context.rounds(_SESSIONS)):
            _add(samples, _session(context, turn, pictures[icon_name], count, pause))
        for (name, what), values in samples.items():
            tables[what].add(row, name, values)
    return list(tables.values())


def _session(context, turn, icons, count, pause):
    """One bus and one service to which all competitors post in turn; returns what each measured."""
    with contextlib.ExitStack() as stack:
        session = stack.enter_context(Session(context.fresh_folder()))
        settings = settings_folder(session.folder / "settings")
        programs = list(posters_of(context).items())
        programs = programs[turn % len(programs):] + programs[:turn % len(programs)]
        posters = {name: stack.enter_context(Poster(program, session.env, settings)) for name, program in programs}
        arrived = 0
        measured = {}
        for name, poster in posters.items():
            poster.icons(icons)
            # What happens once: connecting, asking the service what it can do, the picture's first time.
            poster.post(5, 100_000)
            arrived += 5
            _settle(session, poster, arrived)
            measured[name] = _stream(session, poster, arrived, count, pause)
            arrived += count
        return measured


def _stream(session, poster, before, count, pause):
    processor, bus = poster.processor_nanoseconds(), session.bus_nanoseconds()
    begin, waited = poster.stream(count, pause)
    _settle(session, poster, before + count)
    last = session.arrivals(before + count)[before + count - 1]
    return {"caller": waited / count / _MICRO, "process": (poster.processor_nanoseconds() - processor) / count / _MICRO,
            "bus": (session.bus_nanoseconds() - bus) / count / _MICRO, "received": (last - begin) / _MILLI}


def _settle(session, poster, count, seconds=60):
    """Lets the program handle events until the service has had `count` pop-ups, and the replies have come."""
    end = time.monotonic() + seconds
    while not session.has_arrived(count):
        if time.monotonic() > end:
            raise RuntimeError(f"the service received fewer than {count} pop-ups within {seconds} seconds")
        poster.settle(20_000)
    poster.settle(100_000)


def _add(samples, measured):
    for name, values in measured.items():
        for what, value in values.items():
            samples.setdefault((name, what), []).append(value)
