# SPDX-License-Identifier: Apache-2.0
"""What the library offers and what it asks for, compared with the list that is kept with the tests."""

import re
import subprocess

from sources import ROOT

LIBRARY = "libzepa_gui_notification.so"
LIST = ROOT / "tests" / "exports" / "libzepa_gui_notification.txt"
_SYSTEM = re.compile(r"^(libQt6|libc\.|libm\.|libstdc\+\+|libgcc_s|ld-linux)")


def _symbols(library, *options):
    """The dynamic symbols of a library: mangled names without their version."""
    ran = subprocess.run(["nm", "--dynamic", *options, str(library)], capture_output=True, text=True, check=True)
    return {line.split()[-1].split("@")[0] for line in ran.stdout.splitlines()}, ran.stdout


def _readable(names):
    ran = subprocess.run(["c++filt"], input="\n".join(sorted(names)), capture_output=True, text=True, check=True)
    return sorted(set(ran.stdout.splitlines()))


def export_problems(build):
    exported = _readable(_symbols(build / "lib" / LIBRARY, "--defined-only")[0])
    listed = [line for line in LIST.read_text().splitlines() if line and not line.startswith("#")]
    return ([f"exported, but not in {LIST.relative_to(ROOT)}: {name}" for name in exported if name not in listed]
            + [f"in {LIST.relative_to(ROOT)}, but not exported: {name}" for name in listed if name not in exported])


def unresolved_problems(build):
    """Whatever the library leaves open must be the host's, the platform's, Qt's, or the language's."""
    library = build / "lib" / LIBRARY
    open_names, listing = _symbols(library, "--undefined-only")
    weak = {line.split()[-1].split("@")[0] for line in listing.splitlines() if " w " in line}
    loaded = subprocess.run(["ldd", str(library)], capture_output=True, text=True, check=True).stdout
    known = set()
    for name, path in re.findall(r"^\s*(\S+) => (\S+)", loaded, re.MULTILINE):
        if _SYSTEM.match(name) or name.startswith("libzepa_platform."):
            known |= _symbols(path, "--defined-only")[0]
    known |= _symbols("/lib64/ld-linux-x86-64.so.2", "--defined-only")[0] if "x86-64" in loaded else set()
    host = {name for header in (ROOT / "host").rglob("*.h")
            for name in re.findall(r"\bclass\s+(?:\w+_EXPORT\s+)?(Zepa\w+)", header.read_text())}
    host_name = re.compile(rf"\b({'|'.join(sorted(host))})::|\b(typeinfo|vtable) for ({'|'.join(sorted(host))})\b")
    return [f"neither the host's, the platform's nor Qt's: {name}"
            for name in _readable(open_names - known - weak) if not host_name.search(name)]
