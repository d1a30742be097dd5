# SPDX-License-Identifier: Apache-2.0
"""What there is to measure."""

import dataclasses
import typing

import posting_cases
import process_cases
import stream_cases
import window_case


@dataclasses.dataclass(frozen=True)
class Case:
    about: str
    targets: tuple
    run: typing.Callable


_IN_PROCESS = ("bench_in_process",)
_POSTERS = ("bench_service", "sdbus_poster", "qtdbus_poster", "module_poster")

CASES = {
    "popup": Case("a posting with one pop-up rule, with icons and services of several kinds", _POSTERS,
                  posting_cases.popup),
    "stream": Case("bursts, and postings at intervals: the caller, the whole process, the bus", _POSTERS,
                   stream_cases.streams),
    "services": Case("the library's posting to services that answer at once, later and never, in turn",
                     ("bench_service", "module_poster"), posting_cases.services),
    "popup-unanswered": Case("one posting to a service that never answers", _POSTERS, posting_cases.popup_unanswered),
    "first": Case("the first posting of a process", _POSTERS, posting_cases.first),
    "end-to-end": Case("from posting to the moment at which the service has the message", _POSTERS,
                       posting_cases.end_to_end),
    "dropped": Case("postings that reach nobody", _IN_PROCESS, process_cases.dropped),
    "rules": Case("a posting with 0 to 64 rules", _IN_PROCESS, process_cases.rules),
    "keys": Case("a posting beside 0 to 100,000 remembered ones", _IN_PROCESS, process_cases.keys),
    "other-ways": Case("a sound, a line in a chat window, an attention request", _IN_PROCESS,
                       process_cases.other_ways),
    "start": Case("getInstance() and init()", ("bench_service", "start_probe"), process_cases.start),
    "types": Case("18 to 5,000 further types", ("start_probe",), process_cases.types),
    "edit": Case("a rule edit with 18 to 1,000 types", _IN_PROCESS, process_cases.edit),
    "memory": Case("what is kept in memory", ("bench_service", "memory_base", "memory_probe"), process_cases.memory),
    "window": Case("from the start of the program to its window", ("bench_service", "empty_window", "zepa"),
                   window_case.window),
}
