"""The check's own way of failing: on a small project in the place of this one."""

import os
import shutil
import subprocess

from made_up_tree import ROOT, MadeUpTree, run_tests

PROJECT = """
cmake_minimum_required(VERSION 3.25)
project(MadeUp LANGUAGES CXX)
include(cmake/Targets.cmake)
enable_testing()
add_executable(program main.cpp)
target_link_libraries(program tavo_options)
add_test(NAME Program.Ends COMMAND program)
"""


class CheckScript(MadeUpTree):
    def setUp(self):
        super().setUp()
        for name in ("check", "CMakePresets.json"):
            shutil.copy(ROOT / name, self.root)
        for name in (".ci", "cmake", "scripts"):
            shutil.copytree(ROOT / name, self.root / name)
        for file in (self.root / "scripts" / "packages").iterdir():
            file.write_text("cmake\n")
        self.write("CMakeLists.txt", PROJECT)

    def run_ci(self):
        # Not this build's own settings: the inner build stands by itself.
        environment = {name: value for name, value in os.environ.items() if not name.startswith(("CTEST", "CMAKE"))}
        result = subprocess.run([str(self.root / ".ci" / "run")], cwd="/", env={**environment, "CI": "true"},
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        return result.returncode, result.stdout

    def test_AGoodTreeEndsWithTheSummary(self):
        self.write("main.cpp", "int main() {}\n")
        status, output = self.run_ci()
        self.assertEqual(status, 0, output)
        self.assertEqual(output.splitlines()[-1], "100% tests passed, 0 tests failed out of 1")

    def test_AFailingTestFailsTheCheck(self):
        self.write("main.cpp", "int main() { return 1; }\n")
        status, output = self.run_ci()
        self.assertNotEqual(status, 0)
        self.assertEqual(output.splitlines()[-1], "0% tests passed, 1 tests failed out of 1")

    def test_AWarningFailsTheCheck(self):
        self.write("main.cpp", "int main() { int unused = 1; }\n")
        status, output = self.run_ci()
        self.assertNotEqual(status, 0)
        self.assertIn("unused", output)

    def test_ATreeWithoutTestsFailsTheCheck(self):
        self.write("CMakeLists.txt", PROJECT.replace("add_test", "# add_test"))
        self.write("main.cpp", "int main() {}\n")
        self.assertNotEqual(self.run_ci()[0], 0)


if __name__ == "__main__":
    run_tests()
