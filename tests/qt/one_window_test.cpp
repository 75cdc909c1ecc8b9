// Starts of the built program beside one that runs, one that ends, and a tool that writes.
#include "host/posix/instance_lock.h"
#include "tests/files/temporary_folder.h"

#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <sched.h>
#include <sys/inotify.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tavo::qt {
namespace {

using namespace std::chrono_literals;
using posix::InstanceLock;
using posix::InstanceRole;
using posix::LockOutcome;

using Span = std::chrono::milliseconds;

bool WaitUntil(Span patience, const std::function<bool()>& isSo) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!isSo()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(10ms);
    }
    return true;
}

// What a start finds.
struct Surroundings {
    std::string File = {};  // that it is to import; empty for nothing
    bool HasWatches = true; // the system tells of changes in folders; else all it has are taken
};

constexpr int kCannotArrange = 126; // exit status

// For this process and its children the system has no watch left. False where it does not let us arrange that.
bool TakeAllWatches() {
    if (unshare(CLONE_NEWUSER) != 0) {
        return false;
    }
    std::ofstream limit("/proc/sys/user/max_inotify_instances");
    limit << 0 << std::flush;
    return limit.good() && inotify_init1(IN_CLOEXEC) < 0;
}

// The program on a device of its own; what it shows and says goes to files of its own.
class StartedProgram {
  public:
    StartedProgram(const files::TemporaryFolder& folder, const std::string& name, const Surroundings& around)
        : Frames(folder / (name + ".frames")), Words(folder / (name + ".words")) {
        Process = fork();
        if (Process == 0) {
            setenv("TAVO_HOME", (folder / "home").c_str(), 1);
            setenv("TAVO_TRACE_FRAMES", Frames.c_str(), 1);
            setenv("QT_QPA_PLATFORM", "offscreen", 1);
            setenv("TAVO_SCALE", "1", 1);
            static_cast<void>(!freopen(Words.c_str(), "w", stderr));
            const std::string program = folder / "tavocalendar";
            if (!around.HasWatches && !TakeAllWatches()) {
                _exit(kCannotArrange);
            }
            static_cast<void>(!chdir(std::string(folder / "").c_str()));
            execl(program.c_str(), program.c_str(), around.File.empty() ? nullptr : around.File.c_str(), nullptr);
            _exit(127);
        }
    }

    ~StartedProgram() {
        if (Process > 0) {
            kill(Process, SIGKILL);
            waitpid(Process, nullptr, 0);
        }
    }

    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;

    void Signal(int number) const { kill(Process, number); }

    // To its first thread, so that no other one takes the signal, and that thread has it before whatever comes later.
    void SignalFirstThread(int number) const { syscall(SYS_tgkill, Process, Process, number); }

    bool HasShown() const {
        std::ifstream frames(Frames);
        return frames.peek() != std::ifstream::traits_type::eof();
    }

    // Its exit status, or -1 while it runs on.
    int WaitForEnd(Span patience) {
        WaitUntil(patience, [this] { return HasEnded(); });
        return Status;
    }

    bool HasEnded() {
        int status = 0;
        if (Process > 0 && waitpid(Process, &status, WNOHANG) == Process) {
            Process = 0;
            Status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        }
        return Process == 0;
    }

    std::string Said() const {
        std::ifstream words(Words);
        return {std::istreambuf_iterator<char>(words), {}};
    }

  private:
    std::string Frames;
    std::string Words;
    pid_t Process = 0;
    int Status = -1;
};

class OneWindow : public testing::Test {
  protected:
    // A copy, so that no companion lies beside it.
    OneWindow() {
        std::filesystem::copy_file(TAVO_PROGRAM, Folder / "tavocalendar");
        std::filesystem::create_directories(Run());
    }

    std::string Run() const { return Folder / "home/Run"; }

    bool HasRequest() const { return InstanceLock::HasActivationRequest(Run()); }

    void ExpectShown(const StartedProgram& program) const {
        EXPECT_TRUE(WaitUntil(30s, [&] { return program.HasShown(); })) << program.Said();
    }

    std::unique_ptr<StartedProgram> Start(const std::string& name, const Surroundings& around = {}) const {
        return std::make_unique<StartedProgram>(Folder, name, around);
    }

    // Requests for an import that nobody has taken.
    int CountImports() const {
        int count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(Run())) {
            count += entry.path().filename().string().starts_with("Import.") ? 1 : 0;
        }
        return count;
    }

    files::TemporaryFolder Folder;
};

TEST_F(OneWindow, AStartBesideOneThatRunsBringsItForwardAndEnds) {
    const auto first = Start("first");
    ExpectShown(*first);
    const auto second = Start("second");
    EXPECT_EQ(second->WaitForEnd(30s), 0) << second->Said();
    EXPECT_FALSE(second->HasShown());
    EXPECT_FALSE(HasRequest()); // taken
    EXPECT_FALSE(first->HasEnded());
}

TEST_F(OneWindow, WhereNothingCanBeWatchedAStartIsNoticedAllTheSame) {
    ASSERT_EQ(InstanceLock::RequestActivation(Run(), ""), ErrorCode::Success); // before it runs
    const auto first = Start("first", {.HasWatches = false});
    if (WaitUntil(1s, [&] { return first->HasEnded(); }) && first->WaitForEnd(0s) == kCannotArrange) {
        GTEST_SKIP() << "the system lets nobody arrange that";
    }
    ExpectShown(*first);
    EXPECT_TRUE(WaitUntil(5s, [&] { return !HasRequest(); }));
    const auto second = Start("second");
    EXPECT_EQ(second->WaitForEnd(30s), 0) << second->Said();
    EXPECT_FALSE(second->HasShown());
    EXPECT_FALSE(HasRequest());
    EXPECT_FALSE(first->HasEnded());
    first->Signal(SIGTERM);
    EXPECT_EQ(first->WaitForEnd(10s), 0) << first->Said();
}

TEST_F(OneWindow, AStartWithAFileHandsItToTheOneThatRuns) {
    const auto first = Start("first");
    ExpectShown(*first);
    const auto second = Start("second", {"a.ics"});
    EXPECT_EQ(second->WaitForEnd(30s), 0) << second->Said();
    EXPECT_FALSE(second->HasShown());
    EXPECT_TRUE(WaitUntil(5s, [&] { return CountImports() == 0; }));
    EXPECT_FALSE(first->HasEnded());
}

// The path is that of the folder where the second one was started.
TEST_F(OneWindow, WhatIsHandedOverIsTheWholePath) {
    InstanceLock running(Run());
    ASSERT_EQ(running.Acquire(InstanceRole::Program, {}), LockOutcome::Held);
    ASSERT_EQ(running.WatchActivation(), ErrorCode::Success);
    const auto second = Start("second", {"a.ics"});
    std::vector<std::string> files;
    EXPECT_TRUE(WaitUntil(30s, [&] {
        const auto request = running.TakeActivation();
        files = request && !request->Files.empty() ? request->Files : files;
        return second->HasEnded();
    }));
    EXPECT_THAT(files, testing::ElementsAre((Folder / "a.ics")));
}

TEST_F(OneWindow, AStartWithAFileTakesItItself) {
    const auto program = Start("program", {"a.ics"});
    ExpectShown(*program);
    EXPECT_TRUE(WaitUntil(10s, [&] { return CountImports() == 0; }));
    EXPECT_FALSE(program->HasEnded());
}

TEST_F(OneWindow, AStartThatFailsTakesItsFileBack) {
    InstanceLock tool(Run());
    ASSERT_EQ(tool.Acquire(InstanceRole::Tool, {}), LockOutcome::Held);
    const auto program = Start("program", {"a.ics"});
    EXPECT_TRUE(WaitUntil(30s, [&] { return program->Said().find("Another process") != std::string::npos; }));
    EXPECT_TRUE(WaitUntil(5s, [&] { return CountImports() == 0; }));
}

TEST_F(OneWindow, AStartThatCannotHaveTheDataFileInTimeSaysSoAndNeverRuns) {
    InstanceLock tool(Run());
    ASSERT_EQ(tool.Acquire(InstanceRole::Tool, {}), LockOutcome::Held);
    const auto program = Start("program");
    EXPECT_TRUE(WaitUntil(30s, [&] { return program->Said().find("Another process") != std::string::npos; }))
        << program->Said();
    EXPECT_FALSE(program->HasShown());
    EXPECT_FALSE(InstanceLock::ProgramRuns(Run()));
    program->Signal(SIGTERM);
    program->WaitForEnd(10s);
    EXPECT_TRUE(program->HasEnded()); // what it tells on the screen holds nobody up
}

TEST_F(OneWindow, AStartWaitsForAToolThatWrites) {
    auto tool = std::make_unique<InstanceLock>(Run());
    ASSERT_EQ(tool->Acquire(InstanceRole::Tool, {}), LockOutcome::Held);
    const auto program = Start("program");
    std::this_thread::sleep_for(1500ms);
    EXPECT_FALSE(program->HasShown());
    tool.reset();
    ExpectShown(*program);
    EXPECT_TRUE(InstanceLock::ProgramRuns(Run()));
}

TEST_F(OneWindow, WhereTheLockCannotBeMadeItSaysSoAndNeverRuns) {
    std::filesystem::create_directories(Run() + "/Instance.lock"); // a folder is no file
    const auto program = Start("program");
    EXPECT_TRUE(WaitUntil(30s, [&] { return program->Said().find("Run/Instance.lock") != std::string::npos; }))
        << program->Said();
    EXPECT_FALSE(program->HasShown());
}

TEST_F(OneWindow, AStartWhileAnotherEndsTakesItsPlace) {
    auto ending = std::make_unique<InstanceLock>(Run()); // it holds the root still, and takes no request any more
    ASSERT_EQ(ending->Acquire(InstanceRole::Program, {}), LockOutcome::Held);
    const auto program = Start("program");
    ASSERT_TRUE(WaitUntil(30s, [&] { return HasRequest(); }));
    std::this_thread::sleep_for(500ms);
    EXPECT_FALSE(program->HasEnded());
    EXPECT_FALSE(program->HasShown());
    ending.reset();
    ExpectShown(*program);
    EXPECT_TRUE(WaitUntil(5s, [&] { return !HasRequest(); }));
}

// The end is asked for and the next start comes at the same moment, earlier or later: one window is there in the end.
TEST_F(OneWindow, NoStartIsLostThatComesWhileTheProgramEnds) {
    for (int round = 0; round < 6; ++round) {
        const auto first = Start("first" + std::to_string(round));
        ExpectShown(*first);
        first->Signal(SIGTERM);
        std::this_thread::sleep_for(Span(round * 20));
        const auto second = Start("second" + std::to_string(round));
        EXPECT_EQ(first->WaitForEnd(30s), 0) << round;
        ExpectShown(*second);
        EXPECT_FALSE(second->HasEnded()) << round;
        second->Signal(SIGTERM);
        EXPECT_EQ(second->WaitForEnd(30s), 0) << round;
        EXPECT_FALSE(InstanceLock::ProgramRuns(Run())) << round;
    }
}

// A program that stands still gets the request, a quit before it; awake again it must leave the request to the start.
TEST_F(OneWindow, ARequestThatComesWithTheEndIsLeftToTheNextStart) {
    const auto first = Start("first");
    ExpectShown(*first);
    first->Signal(SIGSTOP);
    first->SignalFirstThread(SIGTERM);
    ASSERT_EQ(InstanceLock::RequestItem(Run(), 77, ""), ErrorCode::Success);
    const auto second = Start("second");
    ASSERT_TRUE(WaitUntil(30s, [&] { return HasRequest(); }));
    first->Signal(SIGCONT);
    EXPECT_EQ(first->WaitForEnd(30s), 0);
    ExpectShown(*second);
    EXPECT_TRUE(WaitUntil(5s, [&] { return !Folder.Has("home/Run/OpenItem"); })); // the second took it
}

TEST_F(OneWindow, OneThatDoesNotAnswerIsTold) {
    const auto first = Start("first");
    ExpectShown(*first);
    first->Signal(SIGSTOP);
    const auto second = Start("second");
    EXPECT_TRUE(WaitUntil(60s, [&] { return second->Said().find("does not answer") != std::string::npos; }));
    EXPECT_FALSE(second->HasShown());
    first->Signal(SIGCONT);
    EXPECT_TRUE(WaitUntil(10s, [&] { return !HasRequest(); })); // it comes forward all the same
}

TEST_F(OneWindow, OfTwoStartsAtOnceOneRuns) {
    for (int round = 0; round < 4; ++round) {
        const auto one = Start("one" + std::to_string(round));
        const auto other = Start("other" + std::to_string(round));
        EXPECT_TRUE(WaitUntil(30s, [&] { return one->HasEnded() || other->HasEnded(); })) << round;
        EXPECT_NE(one->HasEnded(), other->HasEnded()) << round;
        const auto& running = one->HasEnded() ? other : one;
        const auto& ended = one->HasEnded() ? one : other;
        EXPECT_EQ(ended->WaitForEnd(0s), 0) << ended->Said();
        EXPECT_FALSE(ended->HasShown()) << round;
        ExpectShown(*running);
        running->Signal(SIGTERM);
        EXPECT_EQ(running->WaitForEnd(30s), 0) << round;
    }
}

} // namespace
} // namespace tavo::qt
