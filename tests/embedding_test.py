# SPDX-License-Identifier: Apache-2.0
"""An example starts, and writes where its user alone can, and not to a name that others can take before."""
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import time

program = sys.argv[1]
longest = 30  # seconds

with tempfile.TemporaryDirectory() as folder:
    home = pathlib.Path(folder, "home")
    shared = pathlib.Path(folder, "tmp")
    others = pathlib.Path(folder, "others")
    for made in (home, shared, others):
        made.mkdir()
    # What another user of the machine leaves in a folder that all can write to.
    (shared / pathlib.Path(program).name.replace("_", "-")).symlink_to(others)
    environment = {"PATH": os.environ["PATH"], "HOME": str(home), "TMPDIR": str(shared), "XDG_RUNTIME_DIR": str(home),
                   "QT_QPA_PLATFORM": "offscreen", "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent",
                   "PULSE_SERVER": "unix:/nonexistent", "LC_ALL": "C.UTF-8",
                   "LSAN_OPTIONS": os.environ.get("LSAN_OPTIONS", "")}
    process = subprocess.Popen([program], env=environment)
    rules = []
    end = time.monotonic() + longest
    # Until no more files come.
    before = None
    while (not rules or rules != before) and time.monotonic() < end:
        before = rules
        time.sleep(0.5)
        rules = sorted(pathlib.Path(folder).glob("*/**/notifications/*"))
    process.send_signal(signal.SIGKILL)
    process.wait()
    faults = []
    if not rules:
        faults.append("the example wrote no rules")
    faults += [f"{file} lies outside of the user's home" for file in rules if home not in file.parents]
    faults += [f"{file} was written through another user's link" for file in others.rglob("*")]
print("\n".join(faults) or "ok")
sys.exit(bool(faults))
