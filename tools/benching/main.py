# SPDX-License-Identifier: Apache-2.0
"""What tools/bench does once everything that it needs is installed."""

import argparse
import dataclasses
import datetime
import json
import os
import pathlib
import platform
import subprocess
import sys

import building
import cases
import report
import surroundings  # noqa: F401: brings the virtual desktop's modules within reach
from virtualdesktop.guard import run_guarded

OUTPUT = building.ROOT / "bench-output"


@dataclasses.dataclass
class Context:
    """What every case gets."""
    folder: pathlib.Path
    pictures: pathlib.Path
    peers: dict
    quick: bool
    _folders: int = 0

    def rounds(self, number):
        """How often to repeat, where `number` is enough for figures to quote."""
        return max(2, number // 20) if self.quick else number

    def fresh_folder(self):
        self._folders += 1
        return self.folder / f"folder-{self._folders}"

    def fresh_folder_made(self):
        folder = self.fresh_folder()
        folder.mkdir()
        return folder

    @staticmethod
    def announce(what):
        print(f"   {what}", file=sys.stderr, flush=True)


def main():
    options = _parse()
    if options.list:
        for name, case in cases.CASES.items():
            print(f"{name:20} {case.about}")
        return 0
    if options.install_peers:
        subprocess.run([building.ROOT / "tools/install-dependencies", "peers"], check=True)
    if options.instructions or options.write_budgets:
        import budgets
        return budgets.main(options.write_budgets)
    return run_guarded(lambda folder: _measure(options, pathlib.Path(folder)))


def _parse():
    parser = argparse.ArgumentParser(
        prog="tools/bench", allow_abbrev=False,
        description="Measures what the library costs; prints a table for each case and leaves bench-output/.")
    parser.add_argument("cases", metavar="CASE", nargs="*", help="only these; see --list")
    parser.add_argument("--list", action="store_true", help="says what there is to measure")
    parser.add_argument("--install-peers", action="store_true", help="installs the competitors' libraries first")
    parser.add_argument("--quick", action="store_true", help="a twentieth of the rounds: to see that everything runs")
    parser.add_argument("--instructions", action="store_true",
                        help="counts instructions instead, and compares them with benchmarks/budgets.json")
    parser.add_argument("--write-budgets", action="store_true",
                        help="counts instructions and makes them the new budgets")
    options = parser.parse_args()
    unknown = [name for name in options.cases if name not in cases.CASES]
    if unknown:
        parser.error(f"there is no case {', '.join(unknown)}; tools/bench --list says what there is")
    return options


def _measure(options, folder):
    # They need packages that --help does without.
    import pictures
    wanted = options.cases or list(cases.CASES)
    try:
        building.build(*sorted({target for name in wanted for target in cases.CASES[name].targets}))
        peers = building.build_peers()
    except building.BuildFailed as error:
        print(error, file=sys.stderr)
        return 1
    context = Context(folder, folder / "pictures", peers, options.quick)
    pictures.write_all(context.pictures)
    tables = []
    for name in wanted:
        print(f"== {name}: {cases.CASES[name].about}", file=sys.stderr, flush=True)
        for table in cases.CASES[name].run(context):
            print(f"{report.markdown(table)}\n", flush=True)
            tables.append(table)
    _write(tables)
    return 0


def _write(tables):
    import plots
    OUTPUT.mkdir(exist_ok=True)
    machine = {"date": datetime.datetime.now(datetime.timezone.utc).strftime("%Y-%m-%d %H:%M UTC"),
               "processor": _processor(), "cores": os.cpu_count(), "kernel": platform.release(),
               "system": platform.freedesktop_os_release()["PRETTY_NAME"], "load": os.getloadavg()[0]}
    results = {"machine": machine, "tables": {table.name: table.as_json() for table in tables}}
    (OUTPUT / "results.json").write_text(json.dumps(results, indent=1) + "\n")
    (OUTPUT / "tables.md").write_text("\n\n".join(report.markdown(table) for table in tables) + "\n")
    plots.write(tables, OUTPUT)
    print(f"bench-output/: results.json, tables.md and plots. {machine['processor']}, load {machine['load']:.1f}")


def _processor():
    lines = pathlib.Path("/proc/cpuinfo").read_text().splitlines()
    return next((line.split(":")[1].strip() for line in lines if line.startswith("model name")), platform.machine())


sys.exit(main())
