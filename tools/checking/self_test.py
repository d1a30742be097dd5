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
    "platform/freedesktop/x.cpp": '#include "growl/popup_service.h"\n#include "outbox.h"\n'
                                  '#include <zepa_platform/popups.h>\n#include "bus/session_bus.h"\n',
    "platform/growl/x.cpp": '#include <CoreFoundation/CoreFoundation.h>\n#include "growl/session.h"\n'
                            '#include "session.h"\n#include "x.moc"\n',
    "platform/portal/x.cpp": '#include "growl/popup_service.h"\n#include "freedesktop/bus_text.h"\n',
    "client/x.cpp": '#include "core/notification.h"\n#include <pulse/pulseaudio.h>\n'
                    '#include <zepa_platform/popups.h>\n#include <zepa_platform/bus.h>\n',
}
_FORBIDDEN = {
    "core/posting.cpp": ['"methods/sound_notification_method.h"', "<QDBusMessage>", '"client/client.h"',
                         "<Growl/Growl.h>", '"platform/freedesktop/popup_book.h"'],
    "methods/x.cpp": ["<QDBusMessage>", '"client/client.h"', "<QtDBus/QDBusMessage>", "<pulse/pulseaudio.h>"],
    "host/x.h": ['"core/notification.h"', '"client/client.h"', "<QDBusMessage>"],
    "platform/x.cpp": ['"core/notification.h"', '"host/field.h"', '"methods/sound_notification_method.h"'],
    "platform/growl/x.cpp": ['"freedesktop/bus_text.h"', '"bus/session_bus.h"', "<QDBusMessage>", '"bus_text.h"',
                             '"../freedesktop/bus_text.h"', '"platform/freedesktop/bus_text.h"'],
    "platform/freedesktop/x.cpp": ['"portal/x.h"', '"attention/window_alert.h"', '"corefoundation/object.h"',
                                   "<QDBusMessage>"],
    "platform/corefoundation/x.cpp": ['"growl/session.h"', '"bus/session_bus.h"', "<QDBusMessage>",
                                      '"freedesktop/outbox.h"', '"attention/window_alert.h"'],
    "platform/attention/x.cpp": ['"growl/session.h"', '"freedesktop/outbox.h"', "<QDBusMessage>"],
    "platform/bus/x.cpp": ['"growl/session.h"', '"freedesktop/outbox.h"', "<QDBusMessage>"],
    "platform/include/zepa_platform/x.h": ['"growl/session.h"', "<QDBusMessage>"],
    "client/x.cpp": ['"tests/support/recording_host.h"', '"platform/growl/session.h"', '"platform/bus/address.h"',
                     '"platform/freedesktop/outbox.h"', '"platform/include/zepa_platform/bus.h"', "<QDBusMessage>",
                     "<QtDBus/QDBusMessage>", "<systemd/sd-bus.h>"],
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
