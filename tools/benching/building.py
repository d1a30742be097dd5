# SPDX-License-Identifier: Apache-2.0
"""Builds what is measured, as users get it."""

import pathlib
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = ROOT / "build" / "release"
PROGRAMS = BUILD / "bin"
_PEER = BUILD / "knotifications"


class BuildFailed(Exception):
    pass


def build(*targets):
    """Builds the targets of the release preset."""
    _run("cmake", "--preset", "release", "-DZEPA_BUILD_BENCHMARKS=ON", "-DCMAKE_CXX_COMPILER_LAUNCHER=ccache",
         "--log-level=WARNING")
    _run("cmake", "--build", BUILD, "--target", *targets, "--", "--quiet")


def build_peers():
    """Builds the competitors whose libraries are installed; returns their names with their programs."""
    peers = {}
    if subprocess.run(["pkg-config", "--exists", "libnotify"]).returncode == 0:
        build("libnotify_poster")
        peers["libnotify"] = PROGRAMS / "libnotify_poster"
    if pathlib.Path("/usr/include/KF5/KNotifications").is_dir():
        _run("cmake", "-G", "Ninja", "-S", ROOT / "benchmarks/posting/knotifications", "-B", _PEER,
             "-DCMAKE_BUILD_TYPE=RelWithDebInfo", "--log-level=WARNING")
        _run("cmake", "--build", _PEER, "--", "--quiet")
        peers["KNotifications"] = _PEER / "knotifications_poster"
    return peers


def build_counted():
    """Builds the program whose instructions are counted, and returns it: by itself and quickly, since every check does."""
    folder = ROOT / "build" / "instructions"
    _run("cmake", "-G", "Ninja", "-S", ROOT, "-B", folder, "-DCMAKE_BUILD_TYPE=Release", "-DZEPA_BUILD_TESTS=OFF",
         "-DZEPA_BUILD_BENCHMARKS=ON", "-DZEPA_UNITY=all", "-DCMAKE_CXX_COMPILER_LAUNCHER=ccache", "--log-level=WARNING")
    _run("cmake", "--build", folder, "--target", "instruction_cases", "--", "--quiet")
    return folder / "bin/instruction_cases"


def _run(*command):
    words = [str(word) for word in command]
    ran = subprocess.run(words, cwd=ROOT, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                         text=True)
    if ran.returncode != 0:
        raise BuildFailed(f"{' '.join(words)} failed:\n{ran.stdout}")
