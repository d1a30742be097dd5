# SPDX-License-Identifier: Apache-2.0
"""Whether the checks themselves see what they are there for."""

import pathlib
import tempfile

from include_table import problems_in
from results import Results

_ALLOWED = {
    "core/posting.cpp": '#include "core/notification_module.h"\n#include "host/field.h"\n#include <QHash>\n',
    "core/notification_module.cpp": '#include "methods/sound_notification_method.h"\n',
    "methods/x.cpp": '#include <Growl/Growl.h>\n#include "core/notification.h"\n#include <vector>\n',
    "platform/x.cpp": "#include <QDBusMessage>\n#include <CoreFoundation/CoreFoundation.h>\n",
    "client/x.cpp": '#include "core/notification.h"\n#include <pulse/pulseaudio.h>\n',
}
_FORBIDDEN = {
    "core/posting.cpp": ['"methods/sound_notification_method.h"', "<QDBusMessage>", '"client/client.h"',
                         "<Growl/Growl.h>", '"platform/freedesktop/popup_book.h"'],
    "methods/x.cpp": ["<QDBusMessage>", '"client/client.h"', "<QtDBus/QDBusMessage>", "<pulse/pulseaudio.h>"],
    "host/x.h": ['"core/notification.h"', '"client/client.h"', "<QDBusMessage>"],
    "platform/x.cpp": ['"core/notification.h"', '"host/field.h"', '"methods/sound_notification_method.h"'],
    "client/x.cpp": ['"tests/support/recording_host.h"'],
}
_JUNIT = """<testsuite>
<testcase name="a" status="run"/>
<testcase name="b" status="fail"><failure/><system-out>boom</system-out></testcase>
<testcase name="c" status="notrun"><skipped/><system-out>f.cpp:1: Skipped
no bus

[  SKIPPED ] x
</system-out></testcase>
<testcase name="d" status="notrun"><skipped/><system-out>SKIPPED: no screen</system-out></testcase>
</testsuite>"""


def problems():
    found = []
    for path, text in _ALLOWED.items():
        found += [f"should be allowed: {problem}" for problem in problems_in(pathlib.Path(path), text)]
    for path, names in _FORBIDDEN.items():
        found += [f"should be forbidden: {name} in {path}" for name in names
                  if not problems_in(pathlib.Path(path), f"#include {name}\n")]
    return found + _result_problems()


def _result_problems():
    results = Results()
    with tempfile.NamedTemporaryFile("w", suffix=".xml") as junit:
        junit.write(_JUNIT)
        junit.flush()
        results.add_ctest("", junit.name)
    expected = (1, ["b"], [("c", "no bus"), ("d", "no screen")])
    seen = (results.passed, results.failed, results.skipped)
    return [] if seen == expected else [f"counted {seen}, not {expected}"]
