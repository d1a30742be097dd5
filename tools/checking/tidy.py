# SPDX-License-Identifier: Apache-2.0
"""clang-tidy over every compiled source; one that did not change since it was clean is not looked at again."""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess

from sources import ROOMS, ROOT


# What users run. The tests are as many sources again, and take as long.
PRODUCT = ("core", "methods", "host", "platform", "client")


def problems(build, rooms=ROOMS):
    compiled = json.loads((build / "compile_commands.json").read_text())
    entries = [entry for entry in compiled if _room(entry) in rooms]
    if not entries:
        return ["Nothing is compiled."]
    headers = _headers(build)
    stamps = build / "tidy"
    stamps.mkdir(exist_ok=True)

    def check(entry):
        stamp = stamps / _digest(entry, headers.get(_object(entry), []))
        if stamp.exists():
            return []
        ran = subprocess.run(["clang-tidy", "--quiet", "-p", str(build), entry["file"]],
                             cwd=ROOT, capture_output=True, text=True)
        if ran.returncode == 0:
            stamp.touch()
            return []
        return ran.stdout.splitlines() or ran.stderr.splitlines()

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        found = [line for lines in pool.map(check, entries) for line in lines]
    return list(dict.fromkeys(found))


def _object(entry):
    words = shlex.split(entry["command"])
    return words[words.index("-o") + 1]


def _room(entry):
    path = pathlib.Path(entry["file"])
    return path.relative_to(ROOT).parts[0] if ROOT in path.parents else None


def _headers(build):
    """Which of our headers each object depends on, as the build noted it."""
    headers, current = {}, None
    for line in subprocess.run(["ninja", "-C", str(build), "--quiet", "-t", "deps"],
                               capture_output=True, text=True).stdout.splitlines():
        if line and not line.startswith(" "):
            current = headers.setdefault(line.split(":")[0], [])
        elif line.strip():
            path = (build / line.strip()).resolve()
            if ROOT in path.parents:
                current.append(path)
    return headers


def _digest(entry, headers):
    digest = hashlib.sha256(entry["command"].encode())
    for path in sorted({ROOT / ".clang-tidy", pathlib.Path(entry["file"]), *headers}):
        digest.update(path.read_bytes() if path.exists() else b"")
    return digest.hexdigest()
