#!/usr/bin/env python3
"""The manual pages and completions tell what the commands tell of themselves.

usage: manual_test.py TAVO MANUAL-FOLDER
"""

import gzip
import os
import re
import shutil
import subprocess
import sys
import unittest

TAVO, FOLDER = sys.argv[1:3]


def ask(*words):
    return subprocess.run(words, check=True, capture_output=True, text=True).stdout


def read_page(name):
    with gzip.open(os.path.join(FOLDER, "man", name + ".1.gz"), "rt", encoding="utf-8") as file:
        return file.read()


NAMES = re.findall(r"^  ([a-z][a-z-]*)", ask(TAVO, "--help").split("Commands:\n", 1)[1].split("  tavo help", 1)[0], re.MULTILINE)


def complete(*words):
    """What bash offers for the last of the words."""
    script = (f". '{FOLDER}/bash/tavo'; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _tavo 2>/dev/null;"
              " printf '%s\\n' \"${COMPREPLY[@]}\"")
    return ask("bash", "-c", script, "bash", "tavo", *words).split()


class Manual(unittest.TestCase):
    def test_EveryCommandHasAPageWithAllOfItsOptions(self):
        self.assertGreater(len(NAMES), 15)
        for name in NAMES:
            page = read_page("tavo-" + name).replace("\\-", "-")
            options = set(re.findall(r"^  (--[a-z-]+)", ask(TAVO, "help", name), re.MULTILINE))
            self.assertTrue(options, name)
            for option in options:
                self.assertIn(f"\\fB{option}\\fR", page, name)
            for section in ("NAME", "SYNOPSIS", "DESCRIPTION", "SEE ALSO"):
                self.assertIn(f".SH {section}\n", page, name)

    def test_TheGeneralPageNamesEveryCommand(self):
        page = read_page("tavo").replace("\\-", "-")
        for name in NAMES:
            self.assertIn(f"\\fB{name}\\fR", page)
            self.assertIn(f"\\fBtavo-{name}\\fR(1)", page)

    def test_PagesAreWellFormed(self):
        if shutil.which("groff") is None:
            self.skipTest("no groff")
        for name in sorted(os.listdir(os.path.join(FOLDER, "man"))):
            text = read_page(name[:-len(".1.gz")])
            result = subprocess.run(["groff", "-man", "-Tutf8", "-ww", "-z"], input=text, capture_output=True, text=True,
                                    check=True)
            self.assertEqual(result.stderr, "", name)


class Completion(unittest.TestCase):
    def test_BashOffersCommands(self):
        self.assertEqual(complete("ed"), ["edit"])
        self.assertEqual(set(complete("")), set(NAMES) | {"help", "--help", "--version"})
        self.assertEqual(complete("help", "ag"), ["agenda"])

    def test_BashOffersOptionsAndTheirValues(self):
        self.assertEqual(complete("add", "x", "--re"), ["--repeat", "--remind"])
        self.assertEqual(complete("edit", "1", "--kind", "a"), ["alarm", "anniversary", "appointment"])
        self.assertEqual(complete("memo", "export", "--format", ""), ["svg", "png", "pdf"])
        self.assertEqual(complete("reminders", "o"), ["off", "on"])

    def test_BashOffersFilesWhereFilesAreMeant(self):
        self.assertIn(FOLDER + "/bash", complete("import", FOLDER + "/ba"))
        self.assertEqual(complete("show", FOLDER + "/ba"), [])

    def test_TheOthersNameEveryCommandAndOption(self):
        for kind, name in (("zsh", "_tavo"), ("fish", "tavo.fish")):
            with open(os.path.join(FOLDER, kind, name), encoding="utf-8") as file:
                text = file.read()
            for command in NAMES:
                self.assertIn(command, text)
                for option in re.findall(r"^  --([a-z-]+)", ask(TAVO, "help", command), re.MULTILINE):
                    self.assertIn(option, text)

    def test_TheyAreReadByTheirShells(self):
        for shell, file in (("bash", "bash/tavo"), ("zsh", "zsh/_tavo"), ("fish", "fish/tavo.fish")):
            if shutil.which(shell):
                subprocess.run([shell, "-n", os.path.join(FOLDER, file)], check=True)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
