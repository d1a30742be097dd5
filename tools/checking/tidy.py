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
PRODUCT = ("core", "methods", "host", "platform", "kit", "client")
# What only g++ understands.
FOREIGN = ("-Wno-subobject-linkage", "-fpch-preprocess", "-Winvalid-pch")
# How many sources one run looks at: nearly all of its time goes to Qt's headers, which it then reads once.
TOGETHER = 8


def problems(build, rooms=ROOMS):
    compiled = json.loads((build / "compile_commands.json").read_text())
    entries = [entry for entry in compiled if _room(entry) in rooms]
    if not entries:
        return ["Nothing is compiled."]
    headers = _headers(build)
    stamps = build / "tidy"
    stamps.mkdir(exist_ok=True)

    def check(group):
        """Looks at the sources of a group in one run, or, where they do not get along, at each by itself."""
        fresh = [(entry, stamp) for entry, stamp in group if not stamp.exists()]
        if not fresh:
            return []
        found = _look_at([entry for entry, _ in fresh], build, stamps)
        if len(fresh) > 1 and any("[clang-diagnostic-" in line for line in found):
            return [line for pair in fresh for line in check([pair])]
        if not found:
            for _, stamp in fresh:
                stamp.touch()
        return found

    groups = {}
    for entry in entries:
        stamp = stamps / _digest(entry, headers.get(_object(entry), []))
        groups.setdefault(tuple(_flags(entry)), []).append((entry, stamp))
    parts = [group[at:at + TOGETHER] for group in groups.values() for at in range(0, len(group), TOGETHER)]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        found = [line for lines in pool.map(check, parts) for line in lines]
    return list(dict.fromkeys(found))


def _look_at(entries, build, stamps):
    """What clang-tidy says of these sources, which are compiled with the same flags, as of one."""
    together = stamps / f"{hashlib.sha256(repr([entry['file'] for entry in entries]).encode()).hexdigest()}.cpp"
    together.write_text("".join(f'#include "{entry["file"]}"\n' for entry in entries))
    source = str(together) if len(entries) > 1 else entries[0]["file"]
    # That sources are included is our doing.
    checks = ["--checks=-bugprone-suspicious-include"] if len(entries) > 1 else []
    ran = subprocess.run(["clang-tidy", "--quiet", *checks, source, "--", *_flags(entries[0])],
                         cwd=build, capture_output=True, text=True)
    together.unlink()
    if ran.returncode == 0:
        return []
    return ran.stdout.splitlines() or ran.stderr.splitlines()


def _flags(entry):
    """What the compiler is told beside the names of source and object."""
    words = shlex.split(entry["command"])
    words = words[next(at for at, word in enumerate(words) if word.startswith("-")):]
    at = words.index("-o")
    del words[at:at + 2]
    words = [word for word in words[:words.index("-c")] if word not in FOREIGN]
    # A precompiled header of g++ is no use to another compiler, which reads what the sources themselves include.
    while "-include" in words:
        at = words.index("-include")
        del words[at:at + 2]
    return words


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
