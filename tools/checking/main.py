# SPDX-License-Identifier: Apache-2.0
"""What tools/check does once everything that it needs is installed."""

import argparse
import os
import subprocess
import sys
import time

import exports
import formatting
import include_table
import repeated_lines
import room_picture
import self_test
import tidy
from results import Results
from sources import ROOT


def main():
    options = _parse()
    # So that ccache takes results of precompiled headers.
    os.environ.setdefault("CCACHE_SLOPPINESS", "pch_defines,time_macros")
    results = Results()
    if not options.sanitize or options.all:
        _check_debug(options, results)
    if options.sanitize or options.all:
        _run_tests("sanitize", "sanitize: ", ["-L", "^(unit|service)$", *_selection(options)], results)
    if options.all:
        # What has threads or is called from several; one bus is enough.
        _run_tests("thread", "thread: ",
                   ["-L", "^(unit|service)$", "-E", "_test_(broker|proxy)[.]", *_selection(options)], results,
                   folder="tests/platform")
    return results.report()


def _parse():
    parser = argparse.ArgumentParser(
        prog="tools/check", allow_abbrev=False,
        description="Builds, runs every test, and ends with a line \"N passed, M failed\".")
    parser.add_argument("--sanitize", action="store_true",
                        help="unit and service tests under the address, undefined and leak sanitizers instead")
    parser.add_argument("--tidy", action="store_true", help="clang-tidy over all sources besides")
    parser.add_argument("--all", action="store_true",
                        help="what runs for every change: the sanitizers too, the thread sanitizer for platform/, and "
                             "clang-tidy but for the tests")
    parser.add_argument("-R", metavar="REGEX", action="append", default=[], help="only the tests whose name matches")
    return parser.parse_args()


def _selection(options):
    return ["-R", "|".join(options.R)] if options.R else []


def _check_debug(options, results):
    """Everything that looks at the ordinary build; with -R only its tests."""
    if not options.R:
        results.add("checks: the checks see what they are there for", self_test.problems())
        results.add("format: sources look as .clang-format says", formatting.problems())
        results.add("includes: every room includes only what the table allows", include_table.problems())
        results.add("picture: docs/pictures/rooms.svg shows the includes that are there", room_picture.problems())
        results.add("repeated: no six lines of the product stand in two places without a reason",
                    repeated_lines.problems())
    built = _run_tests("debug", "", _selection(options), results)
    if options.R or not built:
        return
    build = ROOT / "build" / "debug"
    results.add("exports: the library offers exactly the listed symbols", exports.export_problems(build))
    results.add("unresolved: the library asks only for what the host, the platform and Qt bring",
                exports.unresolved_problems(build))
    if options.tidy or options.all:
        _announce("clang-tidy")
        rooms = tidy.ROOMS if options.tidy else tidy.PRODUCT
        results.add(f"tidy: clang-tidy finds nothing in {', '.join(rooms)}", tidy.problems(build, rooms))
    if options.all:
        _check_budgets(results)


def _check_budgets(results):
    """Counts instructions, which watch speed on any machine: times on a shared one are no test."""
    _announce("instruction budgets")
    ran = subprocess.run(["/usr/bin/python3", "-B", str(ROOT / "tools/benching/budgets.py")], cwd=ROOT,
                         stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    problems = [] if ran.returncode == 0 else ran.stdout.splitlines()
    results.add("budget: no watched case takes over 5 % more instructions than its budget", problems)


def _run_tests(preset, prefix, selection, results, folder=""):
    """Builds a preset and runs its tests, those of one folder if given; returns whether it could be built."""
    build = ROOT / "build" / preset
    _announce(f"build {preset}")
    commands = [["cmake", "--preset", preset, "-DCMAKE_CXX_COMPILER_LAUNCHER=ccache", "--log-level=WARNING"],
                ["cmake", "--build", "--preset", preset, "--", "--quiet"]]
    for command in commands:
        if subprocess.run(command, cwd=ROOT, stdin=subprocess.DEVNULL).returncode != 0:
            results.add(f"build: {preset}", [f"{' '.join(command)} failed; its output is above."])
            return False
    _announce(f"test {preset}")
    junit = build / "test-results.xml"
    junit.unlink(missing_ok=True)
    subprocess.run(
        # More than there are cores: many tests wait most of the time.
        ["ctest", "--test-dir", str(build / folder), "--output-on-failure", "--progress", "--parallel",
         str(os.cpu_count() + 1), "--output-junit", str(junit), *selection],
        cwd=ROOT, stdin=subprocess.DEVNULL)
    if junit.exists():
        results.add_ctest(prefix, junit)
    else:
        results.add(f"test: {preset}", ["ctest left no results."])
    return True


def _announce(what):
    print(f"== {what} ({time.strftime('%H:%M:%S')})", flush=True)


sys.exit(main())
