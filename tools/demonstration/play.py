# SPDX-License-Identifier: Apache-2.0
"""Runs `zepa play` and tells in plain words what it reports."""

import json
import subprocess
import sys
import tempfile

_METHODS = {
    "zepa_hint_notification": "pop-up",
    "zepa_sound_notification_method": "sound",
    "zepa_chat_window_notification_method": "line in the chat window",
    "zepa_dock_bounce_notification_method": "attention request",
}


class Play:
    """A conversation that is being played. `reports` are zepa's own, one dictionary each, in their order."""

    def __init__(self, zepa, script, settings, env):
        self.reports = []
        self._complaints = tempfile.TemporaryFile("w+")
        # Pop-ups nobody answers have long gone after a minute; then the demo ends without them.
        self._popen = subprocess.Popen(
            [zepa, "play", str(script), "--json", "--chats", "--wait", "60", "--settings", str(settings)],
            env=env, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=self._complaints,
            text=True)

    def __iter__(self):
        """Each report, told to the person as it comes."""
        for line in self._popen.stdout:
            report = _parsed(line)
            if report is None:
                print(f"                     {line.rstrip()}", flush=True)
                continue
            self.reports.append(report)
            print(_told(report), flush=True)
            yield report

    def finish(self):
        """The exit code. When it is not 0, whatever zepa complained of is shown."""
        try:
            code = self._popen.wait(90)
            if code != 0:
                self._complaints.seek(0)
                print(self._complaints.read(), file=sys.stderr)
            return code
        finally:
            if self._popen.poll() is None:
                self._popen.kill()
            self._popen.stdout.close()
            self._complaints.close()


def _parsed(line):
    try:
        return json.loads(line)
    except ValueError:
        return None


def _told(report):
    what = report["event"]
    if what == "summary":
        return ("\n{posted} events were posted: {delivered} delivered, {repeats} dropped as a repeat, {without_rule} "
                "without a rule.\nPop-ups with an action: {clicked} clicked, {timed_out} went away without a click, "
                "{waiting} unanswered.").format(**report)
    text = f"{report['at']:6.1f} s  {what:<9}  "
    if what == "posted":
        return f"{text}{report['type']}: {report['title']}"
    if what == "delivered":
        return text + ", ".join(_METHODS.get(method, method) for method in report["methods"])
    if what == "dropped":
        return text + ("a repeat" if report["reason"] == "repeat" else "no rule for it")
    return f"{text}{report['title']}: {report.get('answer', '')}"
