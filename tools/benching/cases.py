# SPDX-License-Identifier: Apache-2.0
"""What there is to measure."""

import dataclasses
import typing

import posting_cases


@dataclasses.dataclass(frozen=True)
class Case:
    about: str
    targets: tuple
    run: typing.Callable


_POSTERS = ("bench_service", "limit_poster", "module_poster")

CASES = {
    "popup": Case("a posting with one pop-up rule, with icons and services of several kinds", _POSTERS,
                  posting_cases.popup),
    "popup-unanswered": Case("one posting to a service that never answers", _POSTERS, posting_cases.popup_unanswered),
    "first": Case("the first posting of a process", _POSTERS, posting_cases.first),
    "end-to-end": Case("from posting to the moment at which the service has the message", _POSTERS,
                       posting_cases.end_to_end),
}
