# SPDX-License-Identifier: Apache-2.0
"""Lists the desktop tests (--list) or runs the one that is named. The exit code 77 means that it was skipped."""

import pathlib
import sys
import unittest

import support
from virtualdesktop.guard import run_guarded

SKIPPED = 77


def all_tests():
    """The tests by name. A file that cannot be loaded is a test that fails and says why."""
    found = unittest.defaultTestLoader.discover(str(pathlib.Path(__file__).parent), "*_test.py")
    return {_name(case): case for case in _cases(found)}


def _cases(suite):
    for part in suite:
        if isinstance(part, unittest.TestSuite):
            yield from _cases(part)
        else:
            yield part


def _name(case):
    return ".".join([type(case).__name__.lstrip("_"), case.id().split(".")[-1].removeprefix("test_")])


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
