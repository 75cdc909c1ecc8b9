"""The check for callers bites on what only tests name, and on nothing else."""

from made_up_tree import MadeUpTree, run_tests


class CallersCheck(MadeUpTree):
    def accept(self):
        result = self.run_script("check_callers.py")
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def refuse(self, *expected):
        result = self.run_script("check_callers.py")
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        self.assertEqual(result.stdout.splitlines()[:-1], list(expected))

    def test_AnEmptyTreeIsNoSuccess(self):
        self.assertEqual(self.run_script("check_callers.py").returncode, 2)

    def test_AFunctionThatOnlyTestsNameIsFound(self):
        self.write("host/files/a.h", "class Files {\n  public:\n    void Purge();\n    bool Open(int flags);\n};\n")
        self.write("host/files/a.cpp", '#include "host/files/a.h"\nvoid Files::Purge() {\n    if (Open(1)) {\n    }\n}\n'
                                       "bool Files::Open(int flags) {\n    return flags != 0;\n}\n")
        self.write("tests/files/a_test.cpp", '#include "host/files/a.h"\nvoid Try(Files& files) {\n    files.Purge();\n}\n')
        self.refuse("host/files/a.h:3: nothing but tests names Purge")

    def test_ACallerThatIncludesTheHeaderThroughAnotherCounts(self):
        self.write("host/files/a.h", "#pragma once\nvoid Purge();\n")
        self.write("host/files/b.h", '#pragma once\n#include "host/files/a.h"\n')
        self.write("companion/main.cpp", '#include "host/files/b.h"\nint main() {\n    Purge();\n}\n')
        self.accept()

    def test_AnothersFunctionOfTheSameNameIsNoCaller(self):
        self.write("host/files/a.h", "class Files {\n    void Purge();\n};\n")
        self.write("host/reminders/b.h", "class Ledger {\n    bool Purge(long now);\n};\n")
        self.write("host/reminders/c.cpp", '#include "host/reminders/b.h"\nbool Tidy(Ledger& ledger) {\n'
                                           "    return ledger.Purge(1);\n}\n")
        self.refuse("host/files/a.h:2: nothing but tests names Purge")

    def test_WhatOverridesIsCalledByItsInterface(self):
        self.write("host/files/a.h", "class Files : public IFiles {\n    void DeleteFileW(int path) override;\n"
                                     "    void Delete(int path);\n};\n")
        self.refuse("host/files/a.h:3: nothing but tests names Delete")

    def test_CommentsTextsAndTheScriptedDeviceAreNoCallers(self):
        self.write("store/a.h", "void Undo();\n")
        self.write("store/b.cpp", '#include "store/a.h"\n// Undo();\nconst char* kText = "Undo()";\n')
        self.write("host/headless/c.cpp", '#include "store/a.h"\nvoid Try() {\n    Undo();\n}\n')
        self.refuse("store/a.h:1: nothing but tests names Undo")

    def test_ItsAddressIsACaller(self):
        self.write("store/a.h", "void Undo();\n")
        self.write("store/b.cpp", '#include "store/a.h"\nauto kWay = &Undo;\n')
        self.accept()

    def test_TheDevicesOwnCallsStayWhole(self):
        self.write("platform/a.h", "class IMenus {\n    virtual void EndMenu() = 0;\n};\n")
        self.accept()

    def test_AnExcuseThatIsNotNeededAnyMoreIsFound(self):
        self.write("app/tavo_app.h", "class App {\n    int MessagePump(int depth);\n};\n")
        self.accept()
        self.write("tools/a.cpp", '#include "app/tavo_app.h"\nint Show(App& app) {\n    return app.MessagePump(1);\n}\n')
        self.refuse("app/tavo_app.h: MessagePump is excused and has a caller")


if __name__ == "__main__":
    run_tests()
