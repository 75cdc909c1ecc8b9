// The programs find each other in a build folder and where they are installed.
#include "host/posix/installed_parts.h"
#include "tests/files/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace tavo::posix {
namespace {

namespace fs = std::filesystem;

class InstalledParts : public testing::Test {
  protected:
    void Make(const std::string& path) {
        const fs::path file = fs::path(Folder.Path()) / path;
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "#!/bin/sh\n";
        fs::permissions(file, fs::perms::owner_all);
    }

    void ExpectFound(const std::string& folder, const std::string& name, const std::string& path) {
        const std::string from = (fs::path(Folder.Path()) / folder).string();
        EXPECT_EQ(fs::path(FindProgram(from, name)).lexically_normal(), fs::path(Folder.Path()) / path) << name;
    }

    files::TemporaryFolder Folder;
};

TEST_F(InstalledParts, LieBesideEachOtherInABuild) {
    for (const char* path : {"bin/tavo", "bin/RSound", "bin/tavocalendar", "lib/tavocalendar/tavo_reminder_window"}) {
        Make(path);
    }
    ExpectFound("bin", "RSound", "bin/RSound");
    ExpectFound("bin", "tavocalendar", "bin/tavocalendar");
    ExpectFound("bin", "tavo_reminder_window", "lib/tavocalendar/tavo_reminder_window");
}

TEST_F(InstalledParts, LieInTheFoldersOfAPrefix) {
    for (const char* path : {"usr/bin/tavo", "usr/bin/tavocalendar", "usr/libexec/tavocalendar/RSound",
                             "usr/libexec/tavocalendar/tavo_reminder_window"}) {
        Make(path);
    }
    fs::create_directories(fs::path(Folder.Path()) / "usr/share/tavocalendar/sounds");
    ExpectFound("usr/bin", "RSound", "usr/libexec/tavocalendar/RSound");
    ExpectFound("usr/libexec/tavocalendar", "tavocalendar", "usr/bin/tavocalendar");
    ExpectFound("usr/libexec/tavocalendar", "RSound", "usr/libexec/tavocalendar/RSound");
    ExpectFound("usr/libexec/tavocalendar", "tavo_reminder_window", "usr/libexec/tavocalendar/tavo_reminder_window");
    for (const char* folder : {"usr/bin", "usr/libexec/tavocalendar"}) {
        EXPECT_EQ(fs::path(FindShared((fs::path(Folder.Path()) / folder).string(), "sounds")).lexically_normal(),
                  fs::path(Folder.Path()) / "usr/share/tavocalendar/sounds");
    }
}

TEST_F(InstalledParts, WhatIsNowhereWouldBeBesideTheProgram) {
    ExpectFound("bin", "RSound", "bin/RSound");
}

TEST(RunningProgramFolder, IsWhereThisTestLies) {
    EXPECT_TRUE(fs::exists(RunningProgramFolder() + "/posix_test"));
}

} // namespace
} // namespace tavo::posix
