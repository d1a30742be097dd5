# SPDX-License-Identifier: Apache-2.0
"""Whether every source looks as .clang-format says."""

import re
import subprocess

from sources import ROOT, sources


def problems():
    files = [str(path) for path in sources()]
    if not files:
        return ["There are no sources."]
    ran = subprocess.run(["clang-format", "--dry-run", "-Werror", *files], cwd=ROOT, capture_output=True, text=True)
    if ran.returncode == 0:
        return []
    wrong = sorted(set(re.findall(r"^([^\s:]+):\d+:\d+: error", ran.stderr, re.MULTILINE)))
    return [f"{name} (clang-format -i {name})" for name in wrong] or ran.stderr.splitlines()
