// Tests of starting other programs.
#include "host/posix/device_processes.h"

#include "tests/files/temporary_folder.h"

#include <chrono>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/stat.h>
#include <thread>

namespace tavo::posix {

namespace {

using files::TemporaryFolder;

constexpr std::u16string_view kCompanion = u"\\Program Files\\Zorbex\\TavoCalendar\\RSound.exe";
constexpr std::u16string_view kClock = u"\\Windows\\Clock.exe";

using Command = std::vector<std::string>;

struct DeviceProcessesTest : testing::Test {
    TemporaryFolder Folder;
    DeviceProcesses Processes{Folder.Path()};

    void SetUp() override {
        unsetenv("TAVO_CLOCK");
        Path = getenv("PATH") == nullptr ? "" : getenv("PATH");
    }

    void TearDown() override {
        unsetenv("TAVO_CLOCK");
        setenv("PATH", Path.c_str(), 1);
    }

    void PutProgram(const std::string& name, const std::string& script) const {
        Folder.Put(name, "#!/bin/sh\n" + script);
        chmod((Folder / name).c_str(), 0700);
    }

    std::string WaitFor(const std::string& name) const {
        for (int i = 0; i < 500 && !Folder.Has(name); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return Folder.Get(name);
    }

    std::string Path;
};

} // namespace

TEST_F(DeviceProcessesTest, TheCompanionLiesBesideTheProgram) {
    EXPECT_FALSE(Processes.CreateProcessW(kCompanion, u"")); // not installed: silently nothing
    PutProgram("RSound", "");
    EXPECT_EQ(Processes.Resolve(kCompanion, u""), Command{Folder / "RSound"});
    EXPECT_EQ(Processes.Resolve(u"\\PROGRAM FILES\\zorbex\\\\TavoCalendar\\rsound.EXE", u"a \"b c\" \"\""),
              (Command{Folder / "RSound", "a", "b c", ""}));
}

TEST_F(DeviceProcessesTest, OnlyTheTwoProgramsOfTheDeviceExist) {
    PutProgram("RSound", "");
    for (const std::u16string_view path :
         {u"\\bin\\sh", u"/bin/sh", u"RSound.exe", u"\\RSound.exe", u"", u"\\Program Files\\..\\RSound.exe"}) {
        EXPECT_EQ(Processes.Resolve(path, u""), std::nullopt);
    }
}

TEST_F(DeviceProcessesTest, TheClockIsTheFirstThatThePathHas) {
    setenv("PATH", Folder.Path().c_str(), 1);
    EXPECT_FALSE(Processes.CreateProcessW(kClock, u""));
    PutProgram("xclock", "");
    EXPECT_EQ(Processes.Resolve(kClock, u""), Command{Folder / "xclock"});
    PutProgram("kclock", "");
    EXPECT_EQ(Processes.Resolve(kClock, u""), Command{Folder / "kclock"});
    setenv("PATH", ("/none::" + Folder.Path()).c_str(), 1);
    EXPECT_EQ(Processes.Resolve(kClock, u""), Command{Folder / "kclock"});
}

TEST_F(DeviceProcessesTest, TheEnvironmentNamesAnotherClock) {
    PutProgram("kclock", "");
    PutProgram("my clock", "");
    setenv("PATH", Folder.Path().c_str(), 1);
    setenv("TAVO_CLOCK", (Folder / "my clock").c_str(), 1);
    EXPECT_EQ(Processes.Resolve(kClock, u""), Command{Folder / "my clock"});
    setenv("TAVO_CLOCK", "kclock -digital", 1);
    EXPECT_EQ(Processes.Resolve(kClock, u""), (Command{Folder / "kclock", "-digital"}));
    setenv("TAVO_CLOCK", "none", 1);
    EXPECT_EQ(Processes.Resolve(kClock, u""), std::nullopt); // what was asked for, or nothing
    setenv("TAVO_CLOCK", "", 1);
    EXPECT_EQ(Processes.Resolve(kClock, u""), Command{Folder / "kclock"});
}

TEST_F(DeviceProcessesTest, AStartedProgramIsApartFromUs) {
    PutProgram("RSound", "cd " + Folder.Path() +
                             "\ncut -d ' ' -f 1,4,6 /proc/$$/stat >out.part\n"
                             "echo \"$1\" >>out.part\nmv out.part out\n");
    ASSERT_TRUE(Processes.CreateProcessW(kCompanion, u"hello"));
    Processes.StartWaiting();
    std::istringstream out(WaitFor("out"));
    int process = 0;
    int parent = 0;
    int session = 0;
    std::string argument;
    ASSERT_TRUE(out >> process >> parent >> session >> argument);
    EXPECT_EQ(argument, "hello");
    EXPECT_NE(session, 0);
    EXPECT_NE(session, getsid(0));                // a session of its own
    EXPECT_NE(parent, getpid());                  // not our child
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1); // no zombie either
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(DeviceProcessesTest, NoDescriptorOfOursIsHandedOn) {
    PutProgram("RSound", "cd " + Folder.Path() +
                             "\n[ -e /proc/$$/fd/77 ] && echo open >out.part || echo closed >out.part\n"
                             "readlink /proc/$$/fd/1 >>out.part\nmv out.part out\n");
    const int ours = open("/dev/null", O_RDONLY);
    ASSERT_EQ(dup2(ours, 77), 77);
    ASSERT_TRUE(Processes.CreateProcessW(kCompanion, u""));
    Processes.StartWaiting();
    close(77);
    close(ours);
    EXPECT_EQ(WaitFor("out").substr(0, 7), "closed\n");
}

TEST_F(DeviceProcessesTest, WhatCannotRunIsTold) {
    Folder.Put("RSound", "no program");
    EXPECT_FALSE(Processes.CreateProcessW(kCompanion, u"")); // not executable
    chmod((Folder / "RSound").c_str(), 0700);
    EXPECT_FALSE(StartDetached({Folder / "RSound"})); // of no form that the machine knows
    PutProgram("RSound", "");
    Folder.Put("RSound", "#!/none/sh\n");
    EXPECT_FALSE(StartDetached({Folder / "RSound"})); // its interpreter is missing
}

TEST_F(DeviceProcessesTest, AProgramStartsWhenThereIsTimeForItAndOnce) {
    PutProgram("RSound", "echo \"$1\" >>" + Folder / "out" + "\n");
    const auto waitForLines = [&](const std::string& lines) {
        for (int i = 0; i < 500 && Folder.Get("out") != lines; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return Folder.Get("out") == lines;
    };
    {
        DeviceProcesses processes{Folder.Path()};
        ASSERT_TRUE(processes.CreateProcessW(kCompanion, u"first"));
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        EXPECT_FALSE(Folder.Has("out"));
        processes.StartWaiting();
        EXPECT_TRUE(waitForLines("first\n"));
        processes.StartWaiting();
        ASSERT_TRUE(processes.CreateProcessW(kCompanion, u"last"));
    } // also when the program ends at once
    EXPECT_TRUE(waitForLines("first\nlast\n"));
}

} // namespace tavo::posix
