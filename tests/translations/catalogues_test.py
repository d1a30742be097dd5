#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""The translations as files: catalogues_test.py TEST."""

import collections
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
FOLDER = ROOT / "translations"
LANGUAGES = {"de", "es", "fr", "pl", "pt"}
#: How many forms a language has for a counted text.
FORMS = {"de": 2, "es": 2, "fr": 2, "pl": 3, "pt": 2}

Message = collections.namedtuple("Message", "file language context source comment texts unfinished")


def messages():
    found = []
    for file in sorted(FOLDER.glob("*.ts")):
        language = file.stem.rsplit("_", 1)[1]
        for context in xml.etree.ElementTree.parse(file).getroot().iter("context"):
            for message in context.iter("message"):
                translation = message.find("translation")
                forms = [form.text or "" for form in translation.iter("numerusform")]
                found.append(Message(file.name, language, context.findtext("name"), message.findtext("source"),
                                     message.findtext("comment") or "", forms or [translation.text or ""],
                                     translation.get("type")))
                if message.get("numerus") == "yes" and len(forms) != FORMS[language]:
                    found[-1] = found[-1]._replace(unfinished=f"{len(forms)} forms")
    return found


def are_up_to_date():
    """Collecting the texts again finds nothing new and nothing gone."""
    with tempfile.TemporaryDirectory() as copy:
        for file in FOLDER.glob("*.ts"):
            shutil.copy(file, copy)
        subprocess.run([ROOT / "tools" / "update-translations", copy], check=True, stderr=subprocess.DEVNULL)
        return [f"{file.name} is out of date: run tools/update-translations"
                for file in sorted(pathlib.Path(copy).glob("*.ts"))
                if not (FOLDER / file.name).exists() or file.read_bytes() != (FOLDER / file.name).read_bytes()]


def lack_nothing():
    """Every text has a translation in every language, and is done."""
    problems = [f"{one.file}: {one.source!r} ({one.context}) is unfinished" for one in messages()
                if one.unfinished or not all(text.strip() for text in one.texts)]
    for catalogue in ("library", "client"):
        there = {one.language: set() for one in messages()} | {language: set() for language in LANGUAGES}
        for one in messages():
            if one.file.startswith(catalogue):
                there[one.language].add((one.context, one.source, one.comment))
        for language in sorted(there):
            for text in sorted(set.union(*there.values()) - there[language]):
                problems.append(f"{catalogue}_{language}.ts has no entry for {text}")
    if {file.stem.rsplit("_", 1)[1] for file in FOLDER.glob("*.ts")} != LANGUAGES:
        problems.append(f"the languages are not {sorted(LANGUAGES)}")
    return problems


def shape(text):
    """What a translation may not change: placeholders, blanks at both ends, and whether there is a key to press."""
    keys = len(re.findall(r"&(?=[^&\s])", text.replace("&&", "")))
    return (sorted(re.findall(r"%L?\d+|%n|%[A-Za-z]", text)), text[:1].isspace(), text[-1:].isspace(), keys)


def keep_placeholders_and_blanks():
    return [f"{one.file}: {text!r} does not fit {one.source!r}" for one in messages() for text in one.texts
            if not one.unfinished and shape(text) != shape(one.source)]


def have_the_librarys_texts_as_they_are():
    """Users' translations rely on the wording of the source texts, odd as some are."""
    sources = {(one.source, one.comment) for one in messages() if one.file == "library_de.ts"}
    problems = [f"{text} is missing" for text in (
        ("When you sent message", "notification event description"),
        ("When buddy start typing", "notification event description"),
        ("Typing stoped", "notification event"),
        ("Alert received", "notification event"),
        ("Alert received", "notification event description"),
        ("sound file", "nc"),
        ("Display a Growl notification", "growl - Mac OS X system wide notification method"),
    ) if text not in sources]
    contexts = {one.context for one in messages() if one.file.startswith("library")}
    if contexts != {"translation"}:
        problems.append(f"the library's texts are in the contexts {contexts}")
    # Eighteen names, eighteen descriptions, and nine texts of the methods.
    if len(sources) != 45:
        problems.append(f"the library has {len(sources)} texts")
    return problems


TESTS = {"AreUpToDate": are_up_to_date, "LackNothing": lack_nothing,
         "KeepPlaceholdersAndBlanks": keep_placeholders_and_blanks,
         "HaveTheLibrarysTextsAsTheyAre": have_the_librarys_texts_as_they_are}


def main():
    if not messages():
        sys.exit("there are no translations")
    problems = TESTS[sys.argv[1]]()
    if problems:
        sys.exit("\n".join(problems))


if __name__ == "__main__":
    main()
