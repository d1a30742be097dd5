# SPDX-License-Identifier: Apache-2.0
"""Whether the library that is given refers to nothing that could log or print, but for Growl's own diagnostic print."""

import re
import shutil
import subprocess
import sys

WAYS = re.compile(r"QMessageLogger|QLoggingCategory|QDebug|qt_message|^q(Debug|Info|Warning|Critical|Fatal)\b|"
                  r"std::(cout|cerr|clog|wcout|wcerr|wclog|basic_ostream|print)|"
                  r"^_?_?(v|f|vf|d|vd|w|fw|vw)?w?printf(_chk)?\b|^(f?puts|f?putc|fwrite|perror|std(out|err)|v?syslog|write)\b")

if not shutil.which("nm"):
    print("SKIPPED: nm (package binutils) is missing")
    sys.exit(77)
symbols = subprocess.run(["nm", "-D", "-C", "--undefined-only", "--without-symbol-versions", sys.argv[1]],
                         capture_output=True, text=True, check=True).stdout
names = [line.split(maxsplit=1)[1] for line in symbols.splitlines()]
# What it does refer to shows that the list is read as it is meant.
if "CFShow" not in names or "ftruncate" not in names:
    sys.exit("the symbols of the library cannot be read")
found = [name for name in names if WAYS.search(name)]
if found:
    sys.exit("the library can log: " + ", ".join(found))
