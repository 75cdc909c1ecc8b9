"""The format check finds what is not formatted, and says so where it cannot judge."""

import os
import shutil

from made_up_tree import ROOT, MadeUpTree, run_tests


class FormatCheck(MadeUpTree):
    def setUp(self):
        super().setUp()
        shutil.copy(ROOT / ".clang-format", self.root)

    def pretend_formatter(self, text):
        """An environment whose only clang-format is this shell script."""
        tools = self.root / "bin"
        tools.mkdir()
        for name in ("clang-format", "clang-format-14"):
            (tools / name).write_text("#!/bin/sh\n" + text)
            (tools / name).chmod(0o755)
        return {**os.environ, "PATH": str(tools)}

    def real_formatter_is_here(self):
        self.write("store/probe.h", "#pragma once\n")
        return self.run_script("check_format.py").returncode != 77

    def test_AFormattedTreePasses(self):
        if not self.real_formatter_is_here():
            self.skipTest("no clang-format 14 here")
        self.write("store/a.cpp", "int Add(int a, int b) {\n    return a + b;\n}\n")
        self.assertEqual(self.run_script("check_format.py").returncode, 0)

    def test_AnUnformattedFileIsNamed(self):
        if not self.real_formatter_is_here():
            self.skipTest("no clang-format 14 here")
        self.write("store/a.cpp", "int Add(int a,int b){return a+b;}\n")
        self.write("store/b.cpp", "int Add(int a, int b) {\n    return a + b;\n}\n")
        result = self.run_script("check_format.py")
        self.assertEqual(result.returncode, 1)
        self.assertIn("store/a.cpp\n", result.stdout)
        self.assertNotIn("store/b.cpp", result.stdout)

    def test_AFormatterOfAnotherVersionDoesNotJudge(self):
        self.write("store/a.cpp", "int Add(int a,int b){return a+b;}\n")
        environment = self.pretend_formatter('echo "Debian clang-format version 19.1.7 (3)"\n')
        result = self.run_script("check_format.py", environment)
        self.assertEqual(result.returncode, 77)
        self.assertIn("installed here: 19", result.stdout)

    def test_AFormatterThatBreaksIsAFailure(self):
        self.write("store/a.cpp", "int a;\n")
        environment = self.pretend_formatter('[ "$1" = --version ] && echo "clang-format version 14.0.6" && exit 0\n'
                                             'echo broken >&2\nexit 3\n')
        result = self.run_script("check_format.py", environment)
        self.assertEqual(result.returncode, 1)
        self.assertIn("broken", result.stdout)

    def test_AnEmptyTreeIsNoSuccess(self):
        environment = self.pretend_formatter('echo "clang-format version 14.0.6"\n')
        self.assertEqual(self.run_script("check_format.py", environment).returncode, 2)


if __name__ == "__main__":
    run_tests()
