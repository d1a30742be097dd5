# SPDX-License-Identifier: Apache-2.0
"""The sources that the checks look at."""

import pathlib

ROOT = pathlib.Path(__file__).resolve().parents[2]
ROOMS = ("core", "methods", "host", "platform", "kit", "client", "tests", "benchmarks")


def sources(*suffixes):
    """The C++ files of all rooms, sorted, as paths relative to the repository."""
    wanted = suffixes or (".cpp", ".h")
    found = [path for room in ROOMS for path in (ROOT / room).rglob("*") if path.suffix in wanted]
    return sorted(path.relative_to(ROOT) for path in found)
