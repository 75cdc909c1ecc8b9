"""What clang-tidy said of a file is kept for as long as everything stays that it rests on. The two tools are stand-ins."""

import json
import os
import shutil
import subprocess
import sys

from made_up_tree import ROOT, MadeUpTree, run_tests

COMPILER = """#!/bin/sh
echo "one.o: $TREE/host/one.cpp \\\\"
echo "  $TREE/host/one.h"
"""

# Counts how often it is asked, and finds fault with what says so.
TIDY = """#!/bin/sh
[ "$1" = --version ] && echo 14 && exit
echo asked >> "$TREE/asked"
echo "said of it"
! grep -q fault "$TREE/host/one.h"
"""


class TidyCheck(MadeUpTree):
    def setUp(self):
        super().setUp()
        self.write("scripts/here", "")
        shutil.copy(ROOT / "scripts" / "check_tidy.py", self.root / "scripts")
        self.write("host/one.cpp", '#include "host/one.h"\n')
        self.write("host/one.h", "#pragma once\n")
        self.write(".clang-tidy", "Checks: '*'\n")
        for name, text in (("clang++", COMPILER), ("clang-tidy", TIDY)):
            self.write(f"tools/{name}", text)
            (self.root / "tools" / name).chmod(0o755)
        self.write_command("clang++ -c ../host/one.cpp -o one.o")

    def write_command(self, command):
        self.write("made/compile_commands.json", json.dumps([
            {"directory": str(self.root / "made"), "file": "../host/one.cpp", "command": command}]))

    def judge(self):
        environment = {**os.environ, "TREE": str(self.root), "PATH": f"{self.root / 'tools'}:{os.environ['PATH']}"}
        return subprocess.run([sys.executable, "-B", "scripts/check_tidy.py", "made"], cwd=self.root, env=environment,
                              capture_output=True, text=True)

    def times_asked(self):
        return len((self.root / "asked").read_text().splitlines())

    def test_AGoodFileIsJudgedOnceAndItsWordsAreSaidAgain(self):
        for _ in range(2):
            result = self.judge()
            self.assertEqual(result.returncode, 0, result.stdout + result.stderr)
            self.assertEqual(result.stdout, "said of it\nclang-tidy: 1 files, 0 with errors\n")
        self.assertEqual(self.times_asked(), 1)

    def test_AFileWithAFaultIsJudgedEachTime(self):
        self.write("host/one.h", "#pragma once\n// fault\n")
        self.assertEqual([self.judge().returncode, self.judge().returncode], [1, 1])
        self.assertEqual(self.times_asked(), 2)

    def test_AFaultInAHeaderOfAGoodFileIsFound(self):
        self.assertEqual(self.judge().returncode, 0)
        self.write("host/one.h", "#pragma once\n// fault\n")
        self.assertEqual(self.judge().returncode, 1)

    def test_OtherRulesAndAnotherCommandJudgeAnew(self):
        self.judge()
        self.write(".clang-tidy", "Checks: 'bugprone-*'\n")
        self.judge()
        self.write_command("clang++ -DOTHER -c ../host/one.cpp -o one.o")
        self.judge()
        self.assertEqual(self.times_asked(), 3)

    def test_TheRulesOfItsOwnFolderCountToo(self):
        self.judge()
        self.write("host/.clang-tidy", "Checks: '-performance-*'\n")
        self.judge()
        self.write("app/.clang-tidy", "Checks: '-performance-*'\n")
        self.judge()
        self.assertEqual(self.times_asked(), 2)

    def test_WhereTheCompilerCannotTellWhatItReadsEachRunJudges(self):
        self.write("tools/clang++", "#!/bin/sh\nexit 1\n")
        self.judge()
        self.judge()
        self.assertEqual(self.times_asked(), 2)


if __name__ == "__main__":
    run_tests()
