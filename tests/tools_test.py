# SPDX-License-Identifier: Apache-2.0
"""Every script in tools/ answers --help: it says how it is called, and neither installs nor builds anything for that."""
import os
import pathlib
import subprocess
import sys
import tempfile

tools = pathlib.Path(__file__).resolve().parent.parent / "tools"
forbidden = ("apt-get", "dpkg-query", "sudo", "cmake", "ninja", "make", "ctest", "c++", "g++", "clang++")
scripts = sorted(path for path in tools.iterdir() if path.is_file() and os.access(path, os.X_OK))
faults = [] if len(scripts) > 9 else [f"only {len(scripts)} scripts were found"]

with tempfile.TemporaryDirectory() as folder:
    calls = pathlib.Path(folder, "calls")
    for name in forbidden:
        stand_in = pathlib.Path(folder, name)
        stand_in.write_text(f'#!/bin/sh\necho "{name} $*" >>"{calls}"\nexit 1\n')
        stand_in.chmod(0o755)
    # Packages that are installed on demand.
    for module in ("numpy", "matplotlib", "gi"):
        pathlib.Path(folder, f"{module}.py").write_text("raise ImportError('not installed yet')\n")
    environment = {"PATH": f"{folder}:/usr/bin:/bin", "HOME": folder, "PYTHONPATH": folder, "LC_ALL": "C.UTF-8"}
    for script in scripts:
        for option in ("--help", "-h"):
            calls.unlink(missing_ok=True)
            ran = subprocess.run([script, option], env=environment, cwd=folder, stdin=subprocess.DEVNULL,
                                 capture_output=True, text=True, timeout=60, check=False)
            name = f"tools/{script.name} {option}"
            if ran.returncode != 0:
                faults.append(f"{name} ends with {ran.returncode}: {ran.stderr.strip()}")
            if not ran.stdout.lower().startswith(f"usage: tools/{script.name}"):
                faults.append(f"{name} does not say how it is called: {ran.stdout[:60]!r}")
            if calls.exists():
                faults.append(f"{name} runs {calls.read_text().strip()}")
print("\n".join(faults) or "ok")
sys.exit(bool(faults))
