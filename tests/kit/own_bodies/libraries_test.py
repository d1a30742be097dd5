# SPDX-License-Identifier: Apache-2.0
"""No body for host/ comes with the libraries that a client with bodies of its own links."""
import pathlib
import re
import subprocess
import sys

headers = pathlib.Path(sys.argv[1])
program, *libraries = sys.argv[2:]


def lines(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.splitlines()


declared = {name for header in headers.glob("*.h")
            for name in re.findall(r"^class (?:\w+_EXPORT )?(Zepa\w+)", header.read_text(), re.MULTILINE)}
# Members alone: names of types (typeinfo) come into every library that an instrumenting compiler makes.
own = re.compile(r"^(?:" + "|".join(sorted(declared)) + r")::")

faults = []
if len(declared) < 10:
    faults.append(f"only {len(declared)} classes found in {headers}")
for binary in (program, *libraries):
    needed = [line for line in lines("readelf", "-dW", binary) if "(NEEDED)" in line]
    if not needed:
        faults.append(f"{binary} needs no library at all")
    faults += [f"{binary}: {line.strip()}" for line in needed if re.search(r"libzepa_kit_(host|sound)\b", line)]
for library in libraries:
    symbols = [line.split(maxsplit=2) for line in lines("nm", "-DC", "--defined-only", library)]
    if not symbols:
        faults.append(f"{library} defines nothing")
    faults += [f"{library} defines {symbol[-1]}" for symbol in symbols if own.match(symbol[-1])]
print("\n".join(faults) or "ok")
sys.exit(bool(faults))
