"""The mutation pass changes what it says, and names what no test notices."""

import shutil
import subprocess
import sys

from made_up_tree import ROOT, MadeUpTree, run_tests

sys.path.insert(0, str(ROOT / "scripts"))
import mutate

# A test program is a program that ends well or not; nothing more of the real tree is needed.
LISTING = """cmake_minimum_required(VERSION 3.20)
project(tiny CXX)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
function(tavo_test name)
  add_executable(${name} ${ARGN})
endfunction()
include_directories(${CMAKE_SOURCE_DIR})
add_library(edit STATIC edit/rule.cpp)
link_libraries(edit)
add_subdirectory(tests/edit)
"""


class Mutation(MadeUpTree):
    def changes_of(self, text):
        return [(mutant.line, mutant.apply(text)) for mutant in mutate.mutants_of("edit/a.cpp", text)]

    def test_ComparisonsAreFlipped(self):
        for old, new in [("==", "!="), ("!=", "=="), ("<", "<="), (">", ">="), ("<=", "<"), (">=", ">"), ("&&", "||"),
                         ("||", "&&")]:
            self.assertEqual(self.changes_of(f"bool b = a {old} c;"), [(1, f"bool b = a {new} c;")])

    def test_ConstantsAreChanged(self):
        self.assertEqual(self.changes_of("int a = 7;"), [(1, "int a = 8;")])
        self.assertEqual(self.changes_of("int a = 0x0F;"), [(1, "int a = 16;")])
        self.assertEqual(self.changes_of("bool a = true;\nbool c = false;"),
                         [(1, "bool a = false;\nbool c = false;"), (2, "bool a = true;\nbool c = true;")])
        self.assertEqual(self.changes_of("double a = 1.5;"), [])

    def test_CallsAreDropped(self):
        for call in ["Invalidate();", "Host().Windows().SetFocus(a);", "page->Fill(b, c());", "std::sort(a, b);"]:
            self.assertEqual(self.changes_of("{\n    " + call + "\n}"), [(2, "{\n    ;\n}")], call)

    def test_WhatIsNoCallByItselfStays(self):
        for code in ["    return Fill();", "    int a = Fill();", "    Rect place(a);", "    Fill(a,", "    a(b) + c(d);"]:
            self.assertEqual(self.changes_of(code), [], code)

    def test_CommentsTextsAndTemplatesStay(self):
        for code in ["// a == 7", 'Text = u"a < 7";', "std::vector<int> a;", "template <class T> void Take();",
                     "#include <vector>", "bool operator==(const A& a) const;"]:
            self.assertEqual(self.changes_of(code), [], code)

    def test_OnlyTheProgramAndItsFrameworkAreChanged(self):
        for path in ["edit/a.cpp", "framework/a.cpp", "host/shell/a.cpp", "tests/edit/a.cpp", "edit/a.h"]:
            self.write(path, "int a = 7;\n")
        self.assertEqual([mutant.path for mutant in mutate.all_mutants(self.root)], ["edit/a.cpp", "framework/a.cpp"])
        self.assertEqual([mutant.path for mutant in mutate.all_mutants(self.root, ["framework/"])], ["framework/a.cpp"])

    def test_ASeedGivesTheSameListAgain(self):
        self.write("edit/a.cpp", "".join(f"int a{i} = {i};\n" for i in range(50)))

        def listed(seed):
            return [str(mutant) for mutant in mutate.shuffled(mutate.all_mutants(self.root), seed)]

        self.assertEqual(listed(3), listed(3))
        self.assertNotEqual(listed(3), listed(4))
        self.assertEqual(sorted(listed(3)), sorted(listed(4)))

    def write_tiny_project(self, source, test):
        if shutil.which("cmake") is None or shutil.which("ninja") is None:
            self.skipTest("no cmake or ninja here")
        self.write("CMakeLists.txt", LISTING)
        self.write("edit/rule.cpp", source)
        self.write("tests/edit/CMakeLists.txt", "tavo_test(edit_test rule_test.cpp)\n")
        self.write("tests/edit/rule_test.cpp", "int Rule(int a);\nint main() { return " + test + " ? 0 : 1; }\n")

    def mutate(self):
        return subprocess.run([sys.executable, "-B", str(ROOT / "scripts" / "mutate.py"), str(self.root / "build-it"),
                               "--root", str(self.root)], capture_output=True, text=True)

    def test_SurvivorsAreNamedAndTheTreeStays(self):
        source = ("namespace {\nint calls = 0;\nvoid Note() {\n    ++calls;\n}\n}\nint Rule(int a) {\n    Note();\n"
                  "    return a < 7 ? 1 : 2;\n}\n")
        self.write_tiny_project(source, "Rule(6) == 1 && Rule(7) == 2")
        result = self.mutate()
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        self.assertIn("survivors: 2\n", result.stdout)
        self.assertIn("  edit/rule.cpp:2:13: 0 -> 1\n", result.stdout)
        self.assertIn("  edit/rule.cpp:8:5: Note(); dropped\n", result.stdout)
        self.assertIn("4 of 6 killed: 66.7 % (0 did not compile)", result.stdout)
        self.assertEqual((self.root / "edit/rule.cpp").read_text(), source)

    def test_TestsThatFailAnywayTeachNothing(self):
        self.write_tiny_project("int Rule(int a) {\n    return a < 7 ? 1 : 2;\n}\n", "Rule(6) == 3")
        result = self.mutate()
        self.assertEqual(result.returncode, 2, result.stdout + result.stderr)
        self.assertEqual(result.stderr, "edit_test does not pass although nothing was changed\n")

    def test_TheCopyFollowsTheTree(self):
        self.write("edit/a.cpp", "int a = 7;\n")
        self.write("edit/b.cpp", "int b = 7;\n")
        copy = self.root / "build-copy"
        mutate.copy_tree(self.root, copy)
        untouched = (copy / "edit/b.cpp").stat().st_mtime_ns
        self.write("edit/a.cpp", "int a = 8;\n")
        self.write("edit/c.cpp", "int c = 7;\n")
        mutate.copy_tree(self.root, copy)
        self.assertEqual((copy / "edit/a.cpp").read_text(), "int a = 8;\n")
        self.assertEqual((copy / "edit/b.cpp").stat().st_mtime_ns, untouched)
        (self.root / "edit/c.cpp").unlink()
        mutate.copy_tree(self.root, copy)
        self.assertFalse((copy / "edit/c.cpp").exists())


if __name__ == "__main__":
    run_tests()
