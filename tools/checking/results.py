# SPDX-License-Identifier: Apache-2.0
"""What passed, failed and was skipped, and the line that says so in the end."""

import dataclasses
import re
import xml.etree.ElementTree as ElementTree


@dataclasses.dataclass
class Results:
    passed: int = 0
    failed: list = dataclasses.field(default_factory=list)
    skipped: list = dataclasses.field(default_factory=list)

    def add(self, name, problems):
        """Notes one check: passed when `problems` (lines of text) is empty."""
        if problems:
            print(f"FAILED {name}")
            for line in problems:
                print(f"  {line}")
            self.failed.append(name)
        else:
            print(f"passed {name}")
            self.passed += 1

    def add_ctest(self, prefix, junit):
        """Adds the results in the file that ctest --output-junit wrote."""
        for case in ElementTree.parse(junit).getroot().iter("testcase"):
            name = prefix + case.get("name")
            output = case.findtext("system-out") or ""
            if case.get("status") == "run":
                self.passed += 1
            elif case.find("skipped") is not None and case.get("status") == "notrun":
                self.skipped.append((name, _reason(output)))
            else:
                self.failed.append(name)

    def report(self):
        """Prints the sum; returns the exit code."""
        for name, reason in self.skipped:
            print(f"skipped {name}: {reason}")
        for name in self.failed:
            print(f"FAILED {name}")
        line = f"{self.passed} passed, {len(self.failed)} failed"
        if self.skipped:
            line += f", {len(self.skipped)} skipped"
        print(line, flush=True)
        return 0 if self.passed and not self.failed else 1


def _reason(output):
    """Why a test was skipped, from what GoogleTest or the desktop tests printed."""
    found = (re.search(r"^SKIPPED: (.+)$", output, re.MULTILINE)
             or re.search(r": Skipped\n((?:(?!\[|\n).+\n)+)", output))
    return " ".join(found[1].split()) if found else "no reason given"
