"""The layers check bites on every kind of breach, and on nothing else."""

from made_up_tree import MadeUpTree, run_tests


class LayersCheck(MadeUpTree):
    def write(self, path, text):
        """Every source is listed where it should be, so that a test sees only the breach it is about."""
        super().write(path, text)
        if path.endswith(".cpp"):
            folder, name = path.rsplit("/", 1)
            with open(self.root / folder / "CMakeLists.txt", "a", encoding="ascii") as listing:
                listing.write(f"add_library(one {name})\n")

    def accept(self):
        result = self.run_script("check_layers.py")
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)

    def refuse(self, *expected):
        """The check fails with exactly these beginnings of lines, in this order."""
        result = self.run_script("check_layers.py")
        self.assertEqual(result.returncode, 1, result.stdout + result.stderr)
        found = result.stdout.splitlines()[:-1]
        self.assertEqual(len(found), len(expected), result.stdout)
        for line, beginning in zip(found, expected):
            self.assertTrue(line.startswith(beginning), f"{line!r} does not begin with {beginning!r}")

    def test_AnEmptyTreeIsNoSuccess(self):
        self.assertEqual(self.run_script("check_layers.py").returncode, 2)

    def test_TheProgramMayUseFrameworkPlatformAndTheStandardLibrary(self):
        self.write("platform/clock.h", "#pragma once\n#include <cstdint>\n")
        self.write("framework/page.h", '#pragma once\n#include <vector>\n#include "platform/clock.h"\n')
        self.write("calendar/page.h", '#pragma once\n#include <string>\n')
        self.write("calendar/page.cpp", '#include "calendar/page.h"\n#include "framework/page.h"\n#include "platform/clock.h"\n')
        self.accept()

    def test_EveryProgramFolderMayIncludeTheFoldersBeforeIt(self):
        order = ["res", "store", "memo", "alarm", "edit", "page", "schedule", "calendar", "settings", "app"]
        for folder in order:
            self.write(f"{folder}/a.h", "#pragma once\n")
        for position, folder in enumerate(order):
            self.write(f"{folder}/b.cpp", "".join(f'#include "{lower}/a.h"\n' for lower in order[:position + 1]))
        self.accept()

    def test_NoProgramFolderMayIncludeOneAfterIt(self):
        order = ["res", "store", "memo", "alarm", "edit", "page", "schedule", "calendar", "settings", "app"]
        for lower, upper in zip(order, order[1:]):
            self.write(f"{upper}/upper.h", "#pragma once\n")
            self.write(f"{lower}/lower.cpp", f'#include "{upper}/upper.h"\n')
        self.refuse(*(f'{lower}/lower.cpp:1: "{upper}/upper.h": {upper}/ stands above {lower}/'
                      for lower, upper in sorted(zip(order, order[1:]))))

    def test_TheProgramMayNotIncludeAHost(self):
        self.write("host/files/path.h", "#pragma once\n")
        self.write("store/a.cpp", '#include "host/files/path.h"\n')
        self.refuse('store/a.cpp:1: "host/files/path.h": the program may not include host/')

    def test_TheFrameworkMayNotIncludeTheProgram(self):
        self.write("res/ids.h", "#pragma once\n")
        self.write("framework/a.cpp", '#include "res/ids.h"\n')
        self.refuse('framework/a.cpp:1: "res/ids.h": the framework may not include program/')

    def test_ThePlatformIncludesNothingButItself(self):
        self.write("framework/a.h", "#pragma once\n")
        self.write("platform/a.h", '#pragma once\n#include "framework/a.h"\n')
        self.refuse('platform/a.h:2: "framework/a.h": the platform may not include framework/')

    def test_ThePlatformHasNoSources(self):
        self.write("platform/a.cpp", "int A();\n")
        self.refuse("platform/a.cpp:1: the platform declares and does nothing")

    def test_AHeaderSaysPragmaOnce(self):
        self.write("store/a.h", "// #pragma once\nint a();\n")
        self.refuse("store/a.h:1: a header says #pragma once")

    def test_ASourceThatNothingCompilesIsFound(self):
        self.write("host/files/a.cpp", "int A();\n")
        self.write("host/files/inner/b.cpp", "int B();\n")
        self.write("store/c.cpp", "int C();\n")
        (self.root / "host/files/inner/CMakeLists.txt").unlink()
        (self.root / "store/CMakeLists.txt").write_text("add_library(one ${CMAKE_CURRENT_SOURCE_DIR}/c.cpp)\n")
        (self.root / "host/files/CMakeLists.txt").write_text("add_library(one aa.cpp xinner/b.cpp a.cpp.in)\n")
        self.refuse("host/files/a.cpp:1: host/files/CMakeLists.txt does not list it",
                    "host/files/inner/b.cpp:1: host/files/CMakeLists.txt does not list it")

    def test_AForeignLibraryIsForbiddenInAllPureLayers(self):
        self.write("framework/a.h", "#pragma once\n#include <QWidget>\n")
        self.write("platform/a.h", "#pragma once\n#include <unistd.h>\n")
        self.write("store/a.h", "#pragma once\n#include <sqlite3.h>\n")
        self.refuse("framework/a.h:2: <QWidget>", "platform/a.h:2: <unistd.h>", "store/a.h:2: <sqlite3.h>")

    def test_TimeRandomnessLocaleFilesAndThreadsComeFromTheHost(self):
        for name in ("ctime", "random", "locale", "filesystem", "fstream", "thread", "stdexcept"):
            self.write(f"store/{name}.h", f"#pragma once\n#include <{name}>\n")
        self.refuse(*(f"store/{name}.h:2: <{name}>: " for name in
                      ("ctime", "filesystem", "fstream", "locale", "random", "stdexcept", "thread")))

    def test_AHostKnowsOnlyTheStartOfTheProgram(self):
        self.write("app/start.h", "#pragma once\n")
        self.write("app/view.h", "#pragma once\n")
        self.write("host/qt/main.cpp", '#include "app/start.h"\n#include "app/view.h"\n#include <QWidget>\n')
        self.refuse('host/qt/main.cpp:2: "app/view.h": of the program a host knows only app/start.h')

    def test_TestsMayLookAnywhere(self):
        self.write("app/view.h", "#pragma once\n")
        self.write("host/headless/device.h", "#pragma once\n")
        self.write("tests/app/view_test.cpp", '#include "app/view.h"\n#include "host/headless/device.h"\n')
        self.accept()

    def test_HostNeutralPartsAndToolsAreFreeOfQt(self):
        self.write("host/qt/window.h", "#pragma once\n#include <QWidget>\n")
        self.write("host/outlook/a.cpp", "#include <QString>\n")
        self.write("host/headless/a.cpp", "#include <QtCore/QString>\n")
        self.write("tools/a.cpp", '#include "host/qt/window.h"\n')
        self.refuse("host/headless/a.cpp:1: <QtCore/QString>", "host/outlook/a.cpp:1: <QString>",
                    'tools/a.cpp:1: "host/qt/window.h"')

    def test_OnlyTheStoreSpeaksSql(self):
        self.write("host/outlook/database.h", "#pragma once\n#include <sqlite3.h>\n")
        self.write("host/outlook/store_core.h", '#pragma once\n#include "host/outlook/database.h"\n')
        self.write("tests/outlook/a.cpp", '#include "host/outlook/store_core.h"\n#include <sqlite3.h>\n')
        self.write("companion/a.cpp", '#include "host/outlook/store_core.h"\n')
        self.write("host/files/a.cpp", '#include "host/outlook/database.h"\n')
        self.write("tools/a.cpp", "#include <sqlite3.h>\n")
        self.refuse('companion/a.cpp:1: "host/outlook/store_core.h": what lies within host/outlook/',
                    'host/files/a.cpp:1: "host/outlook/database.h": what lies within host/outlook/',
                    "tools/a.cpp:1: <sqlite3.h>: only host/outlook/ speaks SQL")

    def test_SomeFoldersAskTheOperatingSystemNothing(self):
        self.write("host/posix/a.cpp", "#include <fcntl.h>\n#include <sys/stat.h>\n")
        folders = ("disk", "exchange", "files", "ink", "locale", "outlook", "reminders", "rules", "shell")
        for folder in folders:
            self.write(f"host/{folder}/a.cpp", "#include <cstdio>\n#include <unistd.h>\n")
        self.write("host/shell/b.cpp", "#include <sys/stat.h>\n")
        self.refuse(*(f"host/{folder}/a.cpp:2: <unistd.h>" for folder in folders), "host/shell/b.cpp:1: <sys/stat.h>")

    def test_WhatTheyNeedOfTheOperatingSystemIsHandedToThem(self):
        self.write("host/posix/files.h", "#pragma once\n#include <fcntl.h>\n")
        self.write("host/qt/a.cpp", '#include "host/posix/files.h"\n')
        for folder in ("files", "ink", "shell"):
            self.write(f"host/{folder}/a.cpp", '#include "host/posix/files.h"\n')
        self.refuse(*(f'host/{folder}/a.cpp:1: "host/posix/files.h": what this folder needs of the operating system'
                      for folder in ("files", "ink", "shell")))

    def test_RulesAndTheScheduleOfRemindersNeedNothingElse(self):
        self.write("platform/status.h", "#pragma once\n")
        self.write("host/locale/clock.h", "#pragma once\n")
        self.write("host/rules/rule.h", '#pragma once\n#include "host/locale/clock.h"\n#include "platform/status.h"\n'
                                        '#include <vector>\n')
        self.write("host/rules/bad.cpp", '#include "host/rules/rule.h"\n#include "host/files/a.h"\n#include <zlib.h>\n')
        self.write("host/files/a.h", "#pragma once\n#include <zlib.h>\n")
        self.write("host/reminders/bad.cpp", '#include "host/rules/rule.h"\n#include <zlib.h>\n')
        self.refuse("host/reminders/bad.cpp:1: host/rules: host/reminders/ needs less than that",
                    "host/reminders/bad.cpp:2: <zlib.h>: host/reminders/ needs less than that",
                    "host/rules/bad.cpp:2: host/files: host/rules/ needs less than that",
                    "host/rules/bad.cpp:3: <zlib.h>: host/rules/ needs less than that")

    def test_WindowingHostsStandAlone(self):
        self.write("host/headless/device.h", "#pragma once\n")
        self.write("host/qt/a.cpp", '#include "host/headless/device.h"\n')
        self.refuse('host/qt/a.cpp:1: "host/headless/device.h": host/headless/ stands alone')

    def test_TheHostInMemoryStandsAloneToo(self):
        self.write("host/headless/device.h", "#pragma once\n")
        self.write("host/qt/window.h", "#pragma once\n")
        self.write("tests/memory_host/a.h", '#pragma once\n#include "host/headless/device.h"\n')
        self.write("tests/memory_host/b.cpp", '#include "tests/memory_host/a.h"\n#include "host/qt/window.h"\n'
                                              "#include <QWidget>\n#include <poll.h>\n")
        self.write("tests/screens/c.cpp", '#include "tests/memory_host/a.h"\n#include "host/headless/device.h"\n')
        self.refuse('tests/memory_host/a.h:2: "host/headless/device.h": host/headless/ stands alone',
                    'tests/memory_host/b.cpp:2: "host/qt/window.h": host/qt/ stands alone',
                    'tests/memory_host/b.cpp:2: "host/qt/window.h": this folder builds without Qt',
                    "tests/memory_host/b.cpp:3: <QWidget>", "tests/memory_host/b.cpp:4: <poll.h>")

    def test_TheHostInMemoryStaysSmall(self):
        self.write("tests/memory_host/a.h", "#pragma once\n" + "\n" * 199)
        self.write("tests/memory_host/a.cpp", '#include "tests/memory_host/a.h"\n' + "\n" * 199)
        self.write("tests/screens/b.cpp", "\n" * 500)
        self.accept()
        self.write("tests/memory_host/c.h", "#pragma once\n")
        self.refuse("tests/memory_host:401: 401 lines: this folder has at most 400")

    def test_IncludesAreWrittenFromTheRoot(self):
        self.write("store/a.h", "#pragma once\n")
        self.write("store/b.cpp", '#include "a.h"\n#include "../store/a.h"\n')
        self.refuse('store/b.cpp:1: "a.h" is no file', 'store/b.cpp:2: "../store/a.h" is no file')

    def test_TheOwnHeaderComesFirst(self):
        self.write("store/a.h", "#pragma once\n")
        self.write("store/a.cpp", '#include <vector>\n#include "store/a.h"\n')
        self.refuse('store/a.cpp:1: the own header comes first: "store/a.h"')

    def test_AnIncludeByMacroIsRefused(self):
        self.write("store/a.cpp", "#include HEADER\n")
        self.refuse("store/a.cpp:1: an include that cannot be checked: HEADER")

    def test_ExceptionWordsAreForbiddenInThePureLayersOnly(self):
        self.write("store/a.cpp", "void A() {\n    throw 1;\n}\n")
        self.write("framework/a.cpp", "void A() {\n    try {\n    } catch (...) {\n    }\n}\n")
        self.write("tests/files/a.cpp", "void A() {\n    throw 1;\n}\n")
        self.refuse("framework/a.cpp:2: 'try'", "framework/a.cpp:3: 'catch'", "store/a.cpp:2: 'throw'")

    def test_WhatLiesBehindTheSeamThrowsNothing(self):
        self.write("host/files/a.cpp", "void Fail() {\n    throw 1;\n}\n")
        self.write("host/outlook/b.cpp", "auto a = std::filesystem::absolute(path);\n"
                                         "auto b = std::filesystem::absolute(Name(path, Of(it)), error);\n"
                                         "std::filesystem::path c(text);\nauto d = std::filesystem::path(text);\n")
        self.write("tools/c.cpp", "for (fs::directory_iterator entry(folder), end; entry != end; ++entry) {\n}\n"
                                  "fs::directory_iterator other(folder, error), end;\nauto e = fs::directory_iterator();\n")
        self.write("host/headless/d.cpp", "auto a = std::filesystem::absolute(path);\n")
        self.refuse("host/files/a.cpp:2: 'throw'", "host/outlook/b.cpp:1: 'std::filesystem::absolute'",
                    "tools/c.cpp:1: 'fs::directory_iterator entry'")

    def test_WordsInCommentsAndTextsDoNotCount(self):
        self.write("store/a.cpp", '// We never throw.\n/* nor\n catch */\nconst char* kText = "try // again";\n'
                                  'const char* kRaw = R"x(throw ")" #include <thread>)x";\nint a = 1\'000;\nchar b = \'"\';\n'
                                  "int tryAgain = 0;\n")
        self.accept()

    def test_AWordAfterACommentLookAlikeInATextStillCounts(self):
        self.write("store/a.cpp", 'const char* kText = "/*";\nvoid A() { throw 1; }\nconst char* kEnd = "*/";\n')
        self.refuse("store/a.cpp:2: 'throw'")

    def test_AnIncludeThatIsCommentedOutDoesNotCount(self):
        self.write("store/a.cpp", "// #include <thread>\n/*\n#include <sqlite3.h>\n*/\n")
        self.accept()

    def test_SpacesDoNotHideAnInclude(self):
        self.write("store/a.cpp", "  #  include/**/<thread>\n")
        self.refuse("store/a.cpp:1: <thread>")

    def test_ConditionsBelongToTheHosts(self):
        self.write("store/a.cpp", "#ifdef __linux__\n#endif\n")
        self.write("host/files/a.cpp", "#ifdef __linux__\n#endif\n")
        self.refuse("store/a.cpp:1: no #if outside host/")

    def test_TheProgramAsksOnlyTheHostForTheTime(self):
        self.write("store/a.cpp", "#include <chrono>\nauto now = std::chrono::system_clock::now();\n")
        self.refuse("store/a.cpp:2: 'system_clock'")


if __name__ == "__main__":
    run_tests()
