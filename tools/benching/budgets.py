# SPDX-License-Identifier: Apache-2.0
"""Instruction budgets: a fixed set of cases under callgrind, compared with benchmarks/budgets.json."""

import json
import pathlib
import re
import subprocess
import sys
import tempfile

import building
import pictures
from surroundings import environment

BUDGETS = building.ROOT / "benchmarks/budgets.json"
TOLERANCE = 0.05
# The program has no other use for what the processor can do, and counts then depend on the compiler and Qt alone.
_SAME_EVERYWHERE = {
    "TZ": "UTC", "QT_HASH_SEED": "0",
    "QT_NO_CPU_FEATURE": "sse4.2 avx avx2 bmi bmi2 avx512f avx512bw avx512vl avx512dq avx512cd movbe rdrnd rdseed",
    "GLIBC_TUNABLES": "glibc.cpu.hwcaps=-AVX,-AVX2,-AVX512F,-AVX512VL,-AVX512BW,-BMI1,-BMI2,-LZCNT,-MOVBE,-ERMS,-FSRM,"
                      "-SSE4_1,-SSE4_2,-SSSE3",
}


def main(write):
    """Counts and prints; returns the exit code. With `write` the counts become the budgets."""
    try:
        counts = count()
    except (building.BuildFailed, RuntimeError) as error:
        print(error, file=sys.stderr)
        return 1
    budgets = json.loads(BUDGETS.read_text()) if BUDGETS.exists() else {}
    for name, instructions in counts.items():
        print(f"{name:50} {instructions:>12,} {_change(instructions, budgets.get(name)):>8}")
    if write:
        BUDGETS.write_text(json.dumps(counts, indent=2) + "\n")
        return 0
    found = problems(counts, budgets)
    print("\n".join(found) or "All within their budgets.")
    return 1 if found else 0


def count():
    """The instructions of each case."""
    program = building.build_counted()
    with tempfile.TemporaryDirectory(prefix="zepa-instructions-") as name:
        folder = pathlib.Path(name)
        pictures.write_one(folder / "picture.png", 64)
        out = folder / "callgrind.out"
        ran = subprocess.run(
            ["valgrind", "--tool=callgrind", f"--callgrind-out-file={out}", "--instr-atstart=no", "--collect-atstart=no",
             str(program), str(folder / "picture.png")],
            env=environment(folder, **_SAME_EVERYWHERE), stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, text=True)
        if ran.returncode != 0:
            raise RuntimeError(f"counting failed:\n{ran.stdout}")
        dumps = sorted(folder.glob("callgrind.out.*"), key=lambda path: int(path.suffix[1:]))
        return dict(filter(None, (read_dump(path.read_text()) for path in dumps)))


def read_dump(text):
    """The case's name and count in one of callgrind's files; None for the one of the program's end."""
    name = re.search(r"^desc: Trigger: Client Request: (.+)$", text, re.MULTILINE)
    total = re.search(r"^(?:totals|summary): (\d+)$", text, re.MULTILINE)
    return (name[1], int(total[1])) if name and total else None


def problems(counts, budgets):
    """What is wrong, a line each: cases that grew by more than the tolerance, and budgets that fit no case."""
    found = [f"{name}: {counts[name]:,} instructions, {_change(counts[name], budget)} over its budget of {budget:,}"
             for name, budget in budgets.items()
             if name in counts and counts[name] > budget * (1 + TOLERANCE)]
    found += [f"{name}: has a budget and was not counted" for name in budgets if name not in counts]
    found += [f"{name}: has no budget; tools/bench --write-budgets gives it one" for name in counts
              if name not in budgets]
    return found


def _change(instructions, budget):
    return f"{instructions / budget - 1:+.1%}" if budget else "new"


if __name__ == "__main__":
    sys.exit(main(write=False))
