# SPDX-License-Identifier: Apache-2.0
"""Whether the checks themselves see what they are there for."""

import pathlib
import tempfile

import repeated_lines
from include_table import circles, problems_in
from results import Results
from room_picture import drawing

_ALLOWED = {
    "core/posting.cpp": '#include "core/notification_module.h"\n#include "host/field.h"\n#include <QHash>\n',
    "methods/x.cpp": '#include <Growl/Growl.h>\n#include "core/built_in_methods.h"\n#include <vector>\n',
    "platform/freedesktop/x.cpp": '#include "growl/popup_service.h"\n#include "quiet_watch.h"\n'
                                  '#include <zepa_platform/popups.h>\n#include <zepa_platform/bus.h>\n',
    "platform/growl/x.cpp": '#include <CoreFoundation/CoreFoundation.h>\n#include "growl/session.h"\n'
                            '#include "session.h"\n#include "x.moc"\n',
    "platform/portal/x.cpp": '#include "growl/popup_service.h"\n#include "freedesktop/bus_text.h"\n',
    "kit/sound/x.cpp": '#include <pulse/context.h>\n#include <sndfile.h>\n#include "kit/files/regular_file.h"\n',
    "kit/journal/x.cpp": '#include "kit/rules/method_titles.h"\n#include "kit/journal/popup_pictures.h"\n',
    "client/client.cpp": '#include "core/notification_module.h"\n#include "client/chats/chat_attention.h"\n',
    "client/instance/x.cpp": '#include "client/cli/job.h"\n#include "client/client.h"\n'
                             '#include "client/instance/quota.h"\n#include <zepa_platform/bus.h>\n',
    "client/main.cpp": '#include "client/instance/server.h"\n#include "client/window/main_window.h"\n',
}
_FORBIDDEN = {
    "core/notification_module.cpp": ['"methods/sound_notification_method.h"'],
    "core/posting.cpp": ['"methods/sound_notification_method.h"', "<QDBusMessage>", '"client/client.h"',
                         "<Growl/Growl.h>", '"platform/freedesktop/popup_book.h"'],
    "methods/x.cpp": ["<QDBusMessage>", '"client/client.h"', "<QtDBus/QDBusMessage>", "<pulse/pulseaudio.h>",
                      '"core/local_clock.h"', '"kit/texts/plain_text.h"'],
    "host/x.h": ['"core/notification.h"', '"client/client.h"', "<QDBusMessage>"],
    "platform/x.cpp": ['"core/notification.h"', '"host/field.h"', '"methods/sound_notification_method.h"'],
    "platform/growl/x.cpp": ['"freedesktop/bus_text.h"', '"bus/session_bus.h"', "<QDBusMessage>", '"bus_text.h"',
                             '"../freedesktop/bus_text.h"', '"platform/freedesktop/bus_text.h"'],
    "platform/freedesktop/x.cpp": ['"portal/x.h"', '"attention/window_alert.h"', '"corefoundation/object.h"',
                                   "<QDBusMessage>"],
    "platform/corefoundation/x.cpp": ['"growl/session.h"', '"bus/session_bus.h"', "<QDBusMessage>",
                                      '"freedesktop/quiet_watch.h"', '"attention/window_alert.h"'],
    "platform/attention/x.cpp": ['"growl/session.h"', '"freedesktop/quiet_watch.h"', "<QDBusMessage>"],
    "platform/bus/x.cpp": ['"growl/session.h"', '"freedesktop/quiet_watch.h"', "<QDBusMessage>"],
    "platform/include/zepa_platform/x.h": ['"growl/session.h"', "<QDBusMessage>"],
    "platform/portal/x.cpp": ['"growl/session.h"', '"freedesktop/quiet_watch.h"'],
    "kit/x.h": ['"kit/files/regular_file.h"', '"host/field.h"'],
    "kit/files/x.cpp": ['"kit/settings/settings.h"', '"host/field.h"', '"core/notification.h"'],
    "kit/values/x.cpp": ['"kit/files/regular_file.h"', '"core/notification.h"'],
    "kit/texts/x.cpp": ['"kit/rules/rule_state.h"', '"host/field.h"'],
    "kit/sound/x.cpp": ['"core/notification.h"', '"kit/settings/settings.h"', "<systemd/sd-bus.h>"],
    "kit/settings/x.cpp": ['"kit/rules/rule_store.h"', '"kit/values/xml_reader.h"', '"client/client.h"'],
    "kit/rules/x.cpp": ['"kit/journal/journal.h"', '"kit/settings/themes.h"', '"client/client.h"',
                        "<Growl/Growl.h>"],
    "kit/journal/x.cpp": ['"kit/rules/stored_file.h"', '"kit/extra_methods/extra_methods.h"', '"client/client.h"',
                          '"../rules/stored_file.h"'],
    "kit/extra_methods/x.cpp": ['"kit/rules/rule_store.h"', '"kit/journal/journal.h"', "<Growl/Growl.h>"],
    "kit/widgets/x.cpp": ['"kit/settings_page/notification_settings.h"', '"kit/rules/rule_state.h"'],
    "kit/settings_page/x.cpp": ['"kit/journal/popup_pictures.h"', '"client/window/main_window.h"',
                                '"kit/extra_methods/speech/speaker.h"'],
    "client/client.cpp": ['"client/window/main_window.h"', '"client/chats/chat_history.h"', '"host/field.h"'],
    "client/chats/x.cpp": ['"client/client.h"', '"client/window/main_window.h"', '"kit/rules/rule_state.h"'],
    "client/cli/x.cpp": ['"client/window/main_window.h"', '"client/instance/server.h"', '"client/termination.h"'],
    "client/window/x.cpp": ['"client/cli/job.h"', '"client/instance/server.h"', '"client/chats/chat_line.h"'],
    "client/instance/x.cpp": ['"client/cli/player.h"', '"kit/rules/rule_state.h"', '"client/termination.h"'],
    "client/main.cpp": ['"tests/support/recording_host.h"', '"platform/growl/session.h"', '"platform/bus/address.h"',
                        '"platform/freedesktop/quiet_watch.h"', '"platform/include/zepa_platform/bus.h"', "<QDBusMessage>",
                        "<QtDBus/QDBusMessage>", "<systemd/sd-bus.h>", "<pulse/context.h>", '"client/window/simulator.h"'],
    "other/x.cpp": ["<QString>"],
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
    return found + _circle_problems() + _picture_problems() + _repeat_problems() + _result_problems()


def _circle_problems():
    seen = circles({"a": {"b", "d"}, "b": {"c"}, "c": {"a"}, "d": {"c"}, "e": {"e"}})
    expected = ["a -> b -> c -> a", "e -> e"]
    found = [] if seen == expected else [f"saw the circles {seen}, not {expected}"]
    return found + [f"sees a circle where there is none: {circle}" for circle in circles({"a": {"b", "c"}, "b": {"c"}})]


def _picture_problems():
    one, other = (drawing({"kit/a": {"kit/b", "core"}, "kit/b": set(more)}) for more in (["core"], []))
    found = [f"{room} is not in the picture" for room in ("kit/a", "kit/b", "core") if f">{room}<" not in one]
    return found if one != other else [*found, "an include more draws the same picture"]


def _repeat_problems():
    lines = "".join(f"    call(number{at});\n" for at in range(repeated_lines.LIMIT))
    other = lines.replace("\n", "\n\n    // Said in other words.\n")
    beside = f"    // Repeated: the two change for different reasons.\n{other}"
    shorter = other.replace("number0", "another")
    found = []
    for text, expected in ((other, 1), (beside, 0), (shorter, 0)):
        seen = repeated_lines.problems_in({"a.cpp": f"void f()\n{{\n{lines}}}\n", "b.cpp": f"int g()\n{{\n{text}}}\n"})
        if len(seen) != expected:
            found.append(f"found {seen} in place of {expected} repetitions in:\n{text}")
    return found


def _result_problems():
    results = Results()
    with tempfile.NamedTemporaryFile("w", suffix=".xml") as junit:
        junit.write(_JUNIT)
        junit.flush()
        results.add_ctest("", junit.name)
    expected = (1, ["b"], [("c", "no bus"), ("d", "no screen")])
    seen = (results.passed, results.failed, results.skipped)
    return [] if seen == expected else [f"counted {seen}, not {expected}"]
