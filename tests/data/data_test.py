#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""What is installed beside the program: data_test.py TEST PROGRAM BUILD-FOLDER."""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

import completion

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
DATA = ROOT / "data"


class Program:
    """The program with settings of its own, no display and no bus."""

    def __init__(self, path, folder, **environment):
        self.path = path
        self.folder = folder
        self.environment = {
            "PATH": f"{pathlib.Path(path).parent}:/usr/bin:/bin", "HOME": folder, "XDG_RUNTIME_DIR": folder,
            "XDG_CONFIG_HOME": f"{folder}/config", "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen",
            "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nonexistent", "PULSE_SERVER": "unix:/nonexistent", **environment}
        # Where the address sanitizer and its like take their options from.
        self.environment |= {name: value for name, value in os.environ.items() if name.endswith("SAN_OPTIONS")}

    def run(self, *arguments):
        return self.shell([str(self.path), *arguments])

    def shell(self, command):
        return subprocess.run(command, shell=isinstance(command, str), env=self.environment, cwd=self.folder,
                              capture_output=True, text=True, timeout=60, check=False)

    def says(self, *arguments):
        result = self.run(*arguments)
        if result.returncode != 0:
            raise AssertionError(f"{arguments}: {result.stderr}")
        return result.stdout

    def listed(self, *verb):
        return json.loads(self.says(*verb, "--json"))

    def verbs(self):
        """Each verb with the names of its options."""
        names = [" ".join(re.findall(r"(?<!\S)[a-z]+(?!\S)", line))
                 for line in re.findall(r"^zepa (.*)$", self.says("--help"), re.MULTILINE) if "--help" not in line]
        options = {}
        for name in filter(None, names):
            text = self.says(*name.split(), "--help").split("\nOptions:\n")[1].split("\nExample:\n")[0]
            options[name] = re.findall(r"^  (--[a-z-]+)", text, re.MULTILINE)
        return options


def output_of(*command):
    """What the command says, in both channels; None when it is content and silent."""
    result = subprocess.run(command, capture_output=True, text=True, check=False)
    said = (result.stdout + result.stderr).strip()
    return f"{command[0]} ends with {result.returncode}: {said}" if result.returncode or said else None


def desktop_file_is_valid(_program):
    text = (DATA / "zepa.desktop").read_text(encoding="utf-8")
    yield output_of("desktop-file-validate", str(DATA / "zepa.desktop"))
    for line in ("Exec=zepa", "Icon=zepa", "Terminal=false", "StartupWMClass=zepa"):
        yield None if f"\n{line}\n" in text else f"{line} is missing"
    # Docks find the file by the name that the program gives itself.
    if 'setDesktopFileName(u"zepa"_s)' not in (ROOT / "client" / "main.cpp").read_text(encoding="utf-8"):
        yield "the program names another desktop file"
    for language in ("de", "es", "fr", "pl", "pt"):
        for key in ("GenericName", "Comment", "Keywords"):
            yield None if f"\n{key}[{language}]=" in text else f"{key}[{language}] is missing"


def metainfo_is_valid(_program):
    # The project has no domain of its own that an identifier could begin with.
    result = subprocess.run(["appstreamcli", "validate", "--no-net", "--no-color",
                             "--override=cid-desktopapp-is-not-rdns=info", str(DATA / "zepa.metainfo.xml")],
                            capture_output=True, text=True, check=False)
    yield result.stdout if result.returncode else None


def manual_is_clean(_program):
    manual = str(DATA / "zepa.1")
    yield output_of("mandoc", "-Tlint", "-Wwarning", manual)
    yield output_of("groff", "-mandoc", "-ww", "-Tutf8", "-z", manual)


def manual_names_what_the_program_knows(program):
    shown = subprocess.run(["mandoc", "-Tutf8", "-Owidth=200", str(DATA / "zepa.1")], capture_output=True, text=True,
                           check=True).stdout
    text = re.sub(r"\s+", " ", re.sub(r".\x08", "", shown))

    def is_there(word):
        return None if re.search(rf"(?<![\w-]){re.escape(word)}(?![\w-])", text) else f"the manual lacks {word}"

    verbs = program.verbs()
    if len(verbs) < 9:
        yield f"only {len(verbs)} verbs were found in the help"
    for verb, options in verbs.items():
        yield is_there(f"zepa {verb}")
        yield from map(is_there, options)
    for option in re.findall(r"^  (--[a-z-]+)", program.says("--help"), re.MULTILINE):
        yield is_there(option)
    for method in program.listed("methods"):
        yield is_there(method["id"])
        for field in method["fields"]:
            yield is_there(field["id"])


def examples_in_help_are_understood(program):
    text = program.says("--help")
    examples = re.findall(r"^    Example: (.*)$", text, re.MULTILINE)
    if len(examples) != len(program.verbs()):
        yield f"{len(examples)} examples for {len(program.verbs())} verbs"
    for example in examples:
        result = program.shell(example)
        # 4: there is no notification service here.
        yield None if result.returncode in (0, 4) else f"{example}: {result.returncode}, {result.stderr}"


def completion_offers_what_the_program_knows(program):
    yield from completion.compare(program)


def completion_works_in_a_real_shell(_program):
    yield from completion.type_in_a_shell(DATA / "completions" / "zepa")


def installed_program_stands_on_its_own(program):
    prefix = f"{program.folder}/prefix"
    subprocess.run(["cmake", "--install", program.build, "--prefix", prefix], capture_output=True, check=True)
    for name in ("share/applications/zepa.desktop", "share/metainfo/zepa.metainfo.xml", "share/man/man1/zepa.1",
                 "share/bash-completion/completions/zepa", "share/icons/hicolor/48x48/apps/zepa.png",
                 "share/icons/hicolor/scalable/apps/zepa.svg", "share/zepa/translations/library_pl.qm",
                 "share/zepa/themes/icons/default/icons/speech.png"):
        yield None if (pathlib.Path(prefix) / name).is_file() else f"{name} is not installed"
    # Without the build tree beside it, in a language, and asked for what it finds.
    installed = Program(f"{prefix}/bin/zepa", program.folder, LC_ALL="de_DE.UTF-8")
    names = {one["id"]: one["name"] for one in installed.listed("types")}
    yield None if names["message_received"] == "Nachricht erhalten" else f"no German: {names}"
    for method in installed.listed("methods"):
        icon = method["icon"]
        if icon and not (pathlib.Path(icon).is_file() and icon.startswith(prefix)):
            yield f"{icon} is not what is installed"
    libraries = subprocess.run(["ldd", f"{prefix}/bin/zepa"], capture_output=True, text=True, check=True).stdout
    for line in libraries.splitlines():
        if "libzepa" in line and f"=> {prefix}/" not in line:
            yield f"a library from elsewhere: {line.strip()}"


TESTS = {"DesktopFileIsValid": desktop_file_is_valid, "MetainfoIsValid": metainfo_is_valid,
         "ManualIsClean": manual_is_clean, "ManualNamesWhatTheProgramKnows": manual_names_what_the_program_knows,
         "ExamplesInHelpAreUnderstood": examples_in_help_are_understood,
         "CompletionOffersWhatTheProgramKnows": completion_offers_what_the_program_knows,
         "CompletionWorksInARealShell": completion_works_in_a_real_shell,
         "InstalledProgramStandsOnItsOwn": installed_program_stands_on_its_own}


def main():
    test, path, build = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        program = Program(path, folder)
        program.build = build
        problems = [problem for problem in TESTS[test](program) if problem]
    if problems:
        sys.exit("\n".join(problems))


if __name__ == "__main__":
    main()
