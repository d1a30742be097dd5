# SPDX-License-Identifier: Apache-2.0
"""What can be measured without a competitor."""

import json
import os
import pathlib
import subprocess

from building import PROGRAMS
from figures import Table, slope
from surroundings import Session, environment, settings_folder
from virtualdesktop.desktop import VirtualDesktop

_MICRO = 1000.0


def dropped(context):
    """Postings that reach nobody."""
    table = Table("dropped", "A posting that reaches nobody", "us", ["library"])
    for name, values in _in_process(context, "^(repeat|unknownType)$").items():
        table.add({"repeat": "a repeat", "unknownType": "of an unknown type"}[name], "library", values)
    return [table]


def rules(context):
    """Rules of a method that does nothing."""
    table = Table("rules", "A posting with rules of a method that does nothing", "us", ["library"])
    columns = {"rules": "library", "rulesWithSettings": "with 4 settings each"}
    for name, values in _in_process(context, "^rules(WithSettings)?/").items():
        case, count = name.split("/")
        table.add(f"{count} rules", columns[case], values)
    return [table, _per_item(table, "rules-each", "What one more rule costs", "a rule")]


def keys(context):
    """Remembered keys with and without TZ."""
    table = Table("keys", "A posting beside remembered ones", "us", ["TZ set"])
    for column, zone in (("TZ set", {"TZ": ":/etc/localtime"}), ("TZ unset", {})):
        env = environment(context.folder)
        del env["TZ"]
        for name, values in _in_process(context, "^keys/", {**env, **zone}).items():
            table.add(f"{int(name.split('/')[1]):,} keys", column, values)
    return [table, _per_item(table, "keys-each", "What one more remembered posting costs", "a key")]


def edit(context):
    """A rule edit, which rewrites the files of all types."""
    table = Table("edit", "A rule edit", "us", ["library"])
    for name, values in _in_process(context, "^edit/", repetitions=10).items():
        table.add(f"{int(name.split('/')[1]):,} types", "library", values)
    return [table]


def start(context):
    """The start of the module in new processes, with and without a session bus."""
    table = Table("start", "Start: getInstance() and init()", "us", ["with a bus", "without a bus"])
    steps = Table("start-steps", "Start with 18 files, step by step", "us", ["with a bus", "without a bus"])
    with Session(context.folder / "start") as session:
        envs = {"with a bus": session.env, "without a bus": environment(context.folder)}
        full = settings_folder(context.folder / "full")
        _run("start_probe", envs["without a bus"], full)
        for turn in range(context.rounds(40)):
            for column, env in envs.items():
                empty = settings_folder(context.folder / f"empty-{column.split()[0]}-{turn}")
                _add(table, "no files", column, sum(_run("start_probe", env, empty)[:2]))
                made, initialised, _ = _run("start_probe", env, full)
                _add(table, "18 files", column, made + initialised)
                _add(steps, "getInstance()", column, made)
                _add(steps, "init()", column, initialised)
    return [_finished(table), _finished(steps)]


def types(context):
    """Further types, registered in new processes with the pop-up method installed."""
    table = Table("types", "Registering further types", "us", ["no file", "a file each"])
    each = Table("types-each", "The same for one type", "us", ["no file", "a file each"])
    env = environment(context.folder)
    bare = settings_folder(context.folder / "bare")
    _run("start_probe", env, bare)
    stored = settings_folder(context.folder / "stored")
    _run("start_probe", env, stored)
    example = pathlib.Path(stored, "notifications", "info_notify").read_bytes()
    for number in range(5000):
        pathlib.Path(stored, "notifications", f"type_{number}").write_bytes(example)
    for turn in range(context.rounds(12)):
        for count in (18, 100, 1000, 5000):
            for column, folder in (("no file", bare), ("a file each", stored)):
                took = _run("start_probe", env, folder, count)[2]
                _add(table, f"{count:,} types", column, took)
                _add(each, f"{count:,} types", column, took / count)
    return [_finished(table), _finished(each)]


def other_ways(context):
    """A sound, a line in a chat window and an attention request, on a desktop with a sound server."""
    table = Table("other-ways", "A posting with another rule", "us", ["library"])
    with VirtualDesktop(context.fresh_folder_made(), service="none", sound=True) as desktop:
        env = {**os.environ, **desktop.env, "TZ": ":/etc/localtime", "TMPDIR": str(context.folder)}
        labels = {"sound": "a sound", "chatLine": "a line in a chat window", "attention": "an attention request"}
        for name, values in _in_process(context, "^(sound|chatLine|attention)/", env, repetitions=None).items():
            table.add(labels[name.split("/")[0]], "library", values)
    return [table]


def memory(context):
    """What the library and what it keeps cost in memory."""
    table = Table("memory", "Resident memory over the same program without the library", "KiB", ["library"])
    kept = Table("memory-each", "What one costs in memory", "bytes", ["library"])
    with Session(context.folder / "memory") as session:
        settings = settings_folder(session.folder / "settings", repeat_seconds=300)
        _run_words("memory_probe", session.env, settings)
        for _ in range(context.rounds(10)):
            without = dict(_run_words("memory_base", session.env, settings))
            with_library = dict(_run_words("memory_probe", session.env, settings))
            for row in ("resident", "private", "heap"):
                _add(table, f"{row} memory with 18 types", "library", int(with_library[row]) - int(without[row]), 1024)
            for row in ("type", "rule", "remembered key", "pending pop-up"):
                _add(kept, f"a {row}", "library", int(with_library[row.replace(" ", "-")]), 1)
    return [_finished(table), _finished(kept)]


def _in_process(context, pattern, env=None, repetitions=30):
    """Runs the benchmarks whose names match; returns the repetitions of each, in microseconds, by name."""
    out = context.fresh_folder()
    command = [PROGRAMS / "bench_in_process", f"--benchmark_filter={pattern}", f"--benchmark_out={out}",
               "--benchmark_out_format=json"]
    if repetitions is not None:
        command += [f"--benchmark_repetitions={context.rounds(repetitions)}", "--benchmark_min_time=0.01",
                    "--benchmark_enable_random_interleaving=true"]
    subprocess.run([str(word) for word in command], env=env or environment(context.folder), check=True,
                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    units = {"ns": 1000.0, "us": 1.0, "ms": 0.001}
    values = {}
    for run in json.loads(out.read_text())["benchmarks"]:
        if run["run_type"] == "iteration":
            name = run["run_name"].removesuffix("/iterations:1/manual_time").removesuffix("/manual_time")
            values.setdefault(name, []).append(run["real_time"] / units[run["time_unit"]])
    if not values:
        raise RuntimeError(f"no benchmark matches {pattern}")
    # They ran in a random order.
    return dict(sorted(values.items(), key=lambda entry: [int(word) if word.isdigit() else 0
                                                          for word in entry[0].split("/")]))


def _per_item(table, name, title, label):
    """What each further one costs, from the straight line through all medians but those of the largest counts."""
    each = Table(name, title, "ns", list(table.columns))
    for column in table.columns:
        points = [(int(row.split()[0].replace(",", "")), cells[column].median) for row, cells in table.rows.items()]
        each.add(label, column, [slope([point for point in points if point[0] <= 10_000]) * _MICRO])
    return each


def _run(program, env, *arguments):
    ran = subprocess.run([str(PROGRAMS / program), *map(str, arguments)], env=env, check=True,
                         stdin=subprocess.DEVNULL, capture_output=True, text=True)
    return [int(word) for word in ran.stdout.split()]


def _run_words(program, env, *arguments):
    ran = subprocess.run([str(PROGRAMS / program), *map(str, arguments)], env=env, check=True,
                         stdin=subprocess.DEVNULL, capture_output=True, text=True)
    return [line.split() for line in ran.stdout.splitlines()]


def _add(table, row, column, value, divisor=_MICRO):
    table.rows.setdefault(row, {}).setdefault(column, []).append(value / divisor)


def _finished(table):
    """The table with figures in place of the lists that _add() gathered."""
    rows, table.rows = table.rows, {}
    for row, cells in rows.items():
        for column, values in cells.items():
            table.add(row, column, values)
    return table
