# SPDX-License-Identifier: Apache-2.0
"""Whether the product says something twice: places with six equal lines, but those with a reason beside them."""

import re

from rooms import TABLE, room_of
from sources import ROOT, sources

LIMIT = 6
# On a line of its own within or right above the repeated lines, or up to three lines above those.
_REASON = re.compile(r"//\s*Repeated:\s*\S")
_REASON_ABOVE = 3
_COMMENT = re.compile(r"^(//|/\*|\*)|\s+//.*$")
_NOT_COUNTED = re.compile(r"^(#|using |namespace |extern \"C\"|@import |$)|^[{}();,]*$|[\w ]+:$|.*\boverride;$")


def _counted_lines(text):
    """The lines that count: number and text without indentation and comments. What only declares that an interface is
    followed says nothing of its own."""
    for number, line in enumerate(text.splitlines(), start=1):
        line = line.strip()
        if not _COMMENT.match(line):
            line = _COMMENT.sub("", line)
            if not _NOT_COUNTED.match(line):
                yield number, line


def _has_reason(lines, first, last):
    return any(_REASON.search(line) for line in lines[max(0, first - 1 - _REASON_ABOVE):last])


def problems_in(texts):
    """The repetitions in files, given by their names: a line for each, which says how long it is."""
    seen, found = {}, []
    for name, text in texts.items():
        lines = text.splitlines()
        counted = list(_counted_lines(text))
        covered = 0
        for at in range(len(counted) - LIMIT + 1):
            window = tuple(line for _, line in counted[at:at + LIMIT])
            first, last = counted[at][0], counted[at + LIMIT - 1][0]
            earlier = seen.setdefault(window, (name, first, last, lines))
            if earlier[:2] == (name, first) or first <= covered:
                continue
            if _has_reason(lines, first, last) or _has_reason(earlier[3], earlier[1], earlier[2]):
                continue
            found.append(f"{name}:{first}: the same {LIMIT} lines as in {earlier[0]}:{earlier[1]}; say it once, or "
                         "why not in a comment \"// Repeated: REASON\"")
            covered = last
    return found


def problems():
    return problems_in({str(path): (ROOT / path).read_text() for path in sources() if room_of(path) in TABLE})
