# SPDX-License-Identifier: Apache-2.0
"""Completion for bash, asked as bash asks, and with keys typed into a real shell."""

import os
import pathlib
import pty
import re
import select
import signal
import subprocess
import time

SCRIPT = pathlib.Path(__file__).resolve().parent.parent.parent / "data" / "completions" / "zepa"
LIBRARY = "/usr/share/bash-completion/bash_completion"
ERASE_LINE = b"\x15"

ASK = """
source "$1"; source "$2"; shift 2
COMP_LINE="$1"; COMP_POINT=${#1}; COMP_TYPE=9; COMP_KEY=9; shift
COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
compopt() { :; }
_zepa
printf '%s\\n' "${COMPREPLY[@]}"
"""


def offered(line):
    """What a press on Tab offers behind `line`."""
    # bash parts words at "=", too.
    words = [part for word in line.split(" ") for part in re.split(r"(=)", word) if part or not word]
    if line.endswith("="):
        words.append("")
    result = subprocess.run(["bash", "--norc", "-c", ASK, "bash", LIBRARY, str(SCRIPT), line, *words],
                            capture_output=True, text=True, check=False)
    if result.stderr:
        raise AssertionError(f"{line}: {result.stderr}")
    return sorted(result.stdout.split())


def compare(program):
    """The problems: where it offers something else than what the program knows."""
    def differs(line, expected):
        found = offered(line)
        return None if found == sorted(expected) else f"{line!r} offers {found}, not {sorted(expected)}"

    verbs = program.verbs()
    types = [one["id"] for one in program.listed("types")]
    methods = program.listed("methods")
    settings = program.listed("setting", "get")
    yield differs("zepa ", {verb.split()[0] for verb in verbs})
    for first in ("rule", "setting"):
        yield differs(f"zepa {first} ", [verb.split()[1] for verb in verbs if verb.startswith(first + " ")])
    for verb, options in verbs.items():
        yield differs(f"zepa {verb} --", options)
        yield differs(f"zepa --settings /x {verb} --", options)
    yield differs("zepa --", ["--help", "--settings", "--version"])
    for verb in ("post", "rules", "rule set", "rule remove"):
        yield differs(f"zepa {verb} ", types)
    yield differs("zepa post message_received --buddy ann ", [])
    yield differs("zepa rule set conf", [one for one in types if one.startswith("conf")])
    for verb in ("rule set", "rule remove"):
        yield differs(f"zepa {verb} message_sent ", [one["id"] for one in methods])
    for method in methods:
        line = f"zepa rule set message_sent {method['id']} "
        yield differs(line, [one["id"] + "=" for one in method["fields"]])
        for field in method["fields"]:
            if choice := choices(field["allowed"]):
                yield differs(line + field["id"] + "=", choice)
                yield differs(line + "other=1 " + field["id"] + "=" + choice[0][:2],
                              [one for one in choice if one.startswith(choice[0][:2])])
    for verb in ("setting get", "setting set"):
        yield differs(f"zepa {verb} ", [one["id"] for one in settings])
    for setting in settings:
        # The names of themes are the user's own.
        if not setting["id"].endswith("_theme"):
            yield differs(f"zepa setting set {setting['id']} ", choices(setting["allowed"]) or [])


def choices(allowed):
    if allowed["type"] == "boolean":
        return ["false", "true"]
    return allowed.get("enum")


class Shell:
    """An interactive shell and the terminal in which it runs, with us at the keys."""

    PROMPT = b"ready> "
    LIMIT = 120  # seconds; only a shell that hangs takes so long

    def __init__(self):
        self._child, self._terminal = pty.fork()
        if self._child == 0:
            os.execve("/bin/bash", ["bash", "--norc", "--noprofile", "-i"],
                      {"PS1": self.PROMPT.decode(), "TERM": "dumb", "PATH": "/usr/bin:/bin", "HOME": "/nonexistent",
                       "HISTFILE": "/dev/null", "INPUTRC": "/dev/null", "LC_ALL": "C.UTF-8"})
        self._shown = b""
        self.shows(self.PROMPT)

    def keys(self, text):
        os.write(self._terminal, text)

    def shows(self, text):
        """Reads what it shows up to `text` and returns that; the rest is for the next call."""
        end = time.monotonic() + self.LIMIT
        while text not in self._shown:
            ready = select.select([self._terminal], [], [], max(0.0, end - time.monotonic()))[0]
            if not ready:
                raise AssertionError(f"{text} was not shown, but {self._shown}")
            try:
                self._shown += os.read(self._terminal, 65536)
            except OSError:  # what a terminal answers whose shell has ended
                raise AssertionError(f"the shell ended before {text}: {self._shown}") from None
        before, after, self._shown = self._shown.partition(text)
        return before + after

    def end(self):
        os.kill(self._child, signal.SIGKILL)
        os.close(self._terminal)
        os.waitpid(self._child, 0)


def type_in_a_shell(script):
    """Keys go into an interactive shell; what stands behind the prompt afterwards is looked at."""
    shell = Shell()
    try:
        shell.keys(f"source {LIBRARY}; source {script}; echo lo''aded\n".encode())
        shell.shows(b"loaded\r\n")
        shell.shows(Shell.PROMPT)
        for typed, completed in ((b"zepa po\t", b"zepa post "),
                                 (b"zepa rule s\tmessage_s\tzepa_hi\tsti\tt\t",
                                  b"zepa rule set message_sent zepa_hint_notification sticky=true"),
                                 (b"zepa setting set al\tn\t", b"zepa setting set alerts never")):
            shell.keys(typed)
            shell.shows(completed)
            # Keys that the shell takes in their turn. A Ctrl+C is a signal: one that comes while the shell still
            # completes is not noticed before the next key, and the prompt that we wait for is not shown.
            shell.keys(ERASE_LINE + b"\n")
            shell.shows(Shell.PROMPT)
    except AssertionError as problem:
        yield str(problem)
    finally:
        shell.end()
