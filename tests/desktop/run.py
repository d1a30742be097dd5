# SPDX-License-Identifier: Apache-2.0
"""Lists the desktop tests (--list) or runs the one that is named. The exit code 77 means that it was skipped."""

import pathlib
import sys
import unittest

import support
from virtualdesktop.guard import run_guarded

SKIPPED = 77


def all_tests():
    found = unittest.defaultTestLoader.discover(str(pathlib.Path(__file__).parent), "*_test.py")
    cases = [case for module in found for group in module for case in group]
    if unittest.defaultTestLoader.errors:
        sys.exit("\n".join(unittest.defaultTestLoader.errors))
    return {f"{type(case).__name__}.{case.id().split('.')[-1].removeprefix('test_')}": case for case in cases}


def run(name):
    case = all_tests()[name]

    def work(folder):
        support.DesktopTest.folder = folder
        result = unittest.TextTestRunner(verbosity=2).run(case)
        for _, reason in result.skipped:
            print(f"SKIPPED: {reason}")
        if not result.wasSuccessful():
            return 1
        return SKIPPED if result.skipped else 0

    return run_guarded(work)


if sys.argv[1:] == ["--list"]:
    print("\n".join(sorted(all_tests())))
else:
    sys.exit(run(sys.argv[1]))
