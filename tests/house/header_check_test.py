"""A header that does not compile alone, or not twice, breaks the build."""

import shutil
import subprocess

from made_up_tree import ROOT, MadeUpTree, run_tests

PROJECT = """
cmake_minimum_required(VERSION 3.25)
project(MadeUp LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 20)
include(cmake/Targets.cmake)
include(cmake/HeaderCheck.cmake)
foreach(folder store host/files)
  if(EXISTS ${CMAKE_SOURCE_DIR}/${folder}/CMakeLists.txt)
    add_subdirectory(${folder})
  endif()
  tavo_check_headers(${folder})
endforeach()
"""


class HeaderCheck(MadeUpTree):
    def setUp(self):
        super().setUp()
        shutil.copytree(ROOT / "cmake", self.root / "cmake")
        self.write("CMakeLists.txt", PROJECT)

    def build(self):
        """The build's status and everything it said."""
        build = str(self.root / "build")
        configured = subprocess.run(["cmake", "-S", str(self.root), "-B", build, "-G", "Ninja"], capture_output=True, text=True)
        self.assertEqual(configured.returncode, 0, configured.stdout + configured.stderr)
        built = subprocess.run(["cmake", "--build", build], capture_output=True, text=True)
        return built.returncode, built.stdout + built.stderr

    def test_AHeaderThatBringsWhatItNeedsPasses(self):
        self.write("store/a.h", "#pragma once\n#include <string>\ninline std::string Name() { return {}; }\n")
        self.assertEqual(self.build()[0], 0)

    def test_AHeaderThatLeansOnItsIncluderBreaksTheBuild(self):
        self.write("store/a.h", "#pragma once\ninline std::string Name() { return {}; }\n")
        status, output = self.build()
        self.assertNotEqual(status, 0)
        self.assertIn("store/a.h", output)

    def test_AHeaderWithItsOwnSourceIsProvenByThatSource(self):
        self.write("store/a.h", "#pragma once\ninline std::string Name() { return {}; }\n")
        self.write("store/a.cpp", '#include "store/a.h"\n')
        self.write("store/CMakeLists.txt", "tavo_library(ours SOURCES a.cpp)\n")
        status, output = self.build()
        self.assertNotEqual(status, 0)
        self.assertIn("a.cpp", output)

    def test_AHeaderWithoutAGuardBreaksTheBuild(self):
        self.write("store/a.h", "inline int Name() { return 0; }\n")
        self.assertNotEqual(self.build()[0], 0)

    def test_AProgramHeaderThatThrowsBreaksTheBuild(self):
        self.write("store/a.h", "#pragma once\ninline int Name() { throw 1; }\n")
        self.assertNotEqual(self.build()[0], 0)

    def test_AHeaderSeesWhatItsFolderLinks(self):
        self.write("host/files/library/their_header.h", "#pragma once\n")
        self.write("host/files/a.h", "#pragma once\n#include <their_header.h>\n")
        self.write("host/files/b.cpp", '#include "host/files/a.h"\n')
        self.write("host/files/CMakeLists.txt",
                   "add_library(theirs INTERFACE)\ntarget_include_directories(theirs INTERFACE library)\n"
                   "tavo_library(ours SOURCES b.cpp LINKS theirs)\n")
        status, output = self.build()
        self.assertEqual(status, 0, output)


if __name__ == "__main__":
    run_tests()
