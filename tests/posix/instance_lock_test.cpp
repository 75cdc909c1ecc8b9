// Tests of the lock that keeps to one program, and of asking it to come forward.
#include "host/posix/instance_lock.h"

#include "tests/files/temporary_folder.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace tavo::posix {

using files::RunApart;
using files::RunUnprivileged;
using files::TemporaryFolder;

namespace {

using std::chrono::milliseconds;
using namespace std::chrono_literals;

constexpr milliseconds kNoPatience{0};
constexpr milliseconds kPatience{5000};

// A process that holds the lock until it is told to end.
class Holder {
  public:
    Holder(const std::string& runFolder, InstanceRole role) {
        int ready[2];
        if (pipe(ready) != 0) {
            std::abort();
        }
        Child = fork();
        if (Child == 0) {
            InstanceLock lock(runFolder);
            const char held = lock.Acquire(role, kPatience) == LockOutcome::Held ? 'y' : 'n';
            static_cast<void>(!write(ready[1], &held, 1));
            pause();
            _exit(0);
        }
        char held = 0;
        IsHeld = read(ready[0], &held, 1) == 1 && held == 'y';
        close(ready[0]);
        close(ready[1]);
    }

    ~Holder() { Kill(); }

    void Kill() {
        if (Child <= 0) {
            return;
        }
        kill(Child, SIGKILL);
        waitpid(Child, nullptr, 0);
        Child = 0;
    }

    bool IsHeld = false;

  private:
    pid_t Child = 0;
};

std::filesystem::path ItemFile(const TemporaryFolder& folder) {
    return std::filesystem::path(folder.Path()) / "OpenItem";
}

void ExpectTaken(InstanceLock& lock, std::string_view token, std::int32_t item) {
    const std::optional<ActivationRequest> request = lock.TakeActivation();
    ASSERT_TRUE(request.has_value());
    EXPECT_EQ(request->Token, token);
    EXPECT_EQ(request->Item, item);
}

bool IsReadable(int descriptor, int timeout) {
    pollfd watched{descriptor, POLLIN, 0};
    return poll(&watched, 1, timeout) == 1;
}

} // namespace

TEST(InstanceLock, ASecondProgramIsToldThatOneRuns) {
    const TemporaryFolder folder;
    Holder first(folder / "Run", InstanceRole::Program);
    ASSERT_TRUE(first.IsHeld);
    InstanceLock second(folder / "Run");
    EXPECT_EQ(second.Acquire(InstanceRole::Program, kPatience), LockOutcome::ProgramRuns); // at once
    EXPECT_EQ(second.Acquire(InstanceRole::Tool, kPatience), LockOutcome::ProgramRuns);
    EXPECT_TRUE(InstanceLock::ProgramRuns(folder / "Run"));
}

TEST(InstanceLock, TwoLocksOfOneProcessExcludeEachOther) {
    const TemporaryFolder folder;
    InstanceLock first(folder / "Run");
    InstanceLock second(folder / "Run");
    ASSERT_EQ(first.Acquire(InstanceRole::Program, kNoPatience), LockOutcome::Held);
    EXPECT_EQ(second.Acquire(InstanceRole::Program, kNoPatience), LockOutcome::ProgramRuns);
    first.Release();
    EXPECT_EQ(second.Acquire(InstanceRole::Program, kNoPatience), LockOutcome::Held);
}

TEST(InstanceLock, AKilledProgramLeavesNoLock) {
    const TemporaryFolder folder;
    Holder first(folder / "Run", InstanceRole::Program);
    ASSERT_TRUE(first.IsHeld);
    first.Kill();
    EXPECT_FALSE(InstanceLock::ProgramRuns(folder / "Run"));
    InstanceLock second(folder / "Run");
    EXPECT_EQ(second.Acquire(InstanceRole::Program, kNoPatience), LockOutcome::Held);
}

TEST(InstanceLock, AProgramWaitsForAToolAndIsNotTakenForASecondOne) {
    const TemporaryFolder folder;
    Holder tool(folder / "Run", InstanceRole::Tool);
    ASSERT_TRUE(tool.IsHeld);
    EXPECT_FALSE(InstanceLock::ProgramRuns(folder / "Run"));
    InstanceLock program(folder / "Run");
    EXPECT_EQ(program.Acquire(InstanceRole::Program, milliseconds(60)), LockOutcome::Busy);
    EXPECT_FALSE(InstanceLock::ProgramRuns(folder / "Run")); // giving up leaves nothing taken
    tool.Kill();
    EXPECT_EQ(program.Acquire(InstanceRole::Program, kPatience), LockOutcome::Held);
}

TEST(InstanceLock, AToolWaitsForAnotherTool) {
    const TemporaryFolder folder;
    Holder first(folder / "Run", InstanceRole::Tool);
    ASSERT_TRUE(first.IsHeld);
    InstanceLock second(folder / "Run");
    EXPECT_EQ(second.Acquire(InstanceRole::Tool, milliseconds(60)), LockOutcome::Busy);
    first.Kill();
    EXPECT_EQ(second.Acquire(InstanceRole::Tool, kPatience), LockOutcome::Held);
}

TEST(InstanceLock, AskingTakesNothingAway) {
    const TemporaryFolder folder;
    InstanceLock lock(folder / "Run");
    ASSERT_EQ(lock.Acquire(InstanceRole::Program, kNoPatience), LockOutcome::Held);
    EXPECT_EQ(RunApart([&] { return InstanceLock::ProgramRuns(folder / "Run") ? 0 : 1; }), 0);
    InstanceLock second(folder / "Run");
    EXPECT_EQ(second.Acquire(InstanceRole::Program, kNoPatience), LockOutcome::ProgramRuns);
    EXPECT_FALSE(InstanceLock::ProgramRuns(folder / "elsewhere"));
    EXPECT_FALSE(folder.Has("elsewhere"));
}

TEST(InstanceLock, OtherRootsAreOtherDevices) {
    const TemporaryFolder folder;
    Holder first(folder / "Run1", InstanceRole::Program);
    InstanceLock second(folder / "Run2");
    EXPECT_EQ(second.Acquire(InstanceRole::Program, kNoPatience), LockOutcome::Held);
}

TEST(InstanceLock, TheLockFileIsForTheUserAlone) {
    const TemporaryFolder folder;
    InstanceLock lock(folder / "Run");
    ASSERT_EQ(lock.Acquire(InstanceRole::Program, kNoPatience), LockOutcome::Held);

    struct stat state {};

    ASSERT_EQ(stat((folder / "Run/Instance.lock").c_str(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0600U);
}

TEST(InstanceLock, WithoutPermissionTheCauseIsTold) {
    const TemporaryFolder folder;
    EXPECT_EQ(RunUnprivileged(folder.Path(),
                              [&] {
                                  chmod(folder.Path().c_str(), 0500);
                                  InstanceLock lock(folder.Path());
                                  return lock.Acquire(InstanceRole::Program, kNoPatience) == LockOutcome::Failed &&
                                                 lock.Problem() == ErrorCode::AccessDenied
                                             ? 0
                                             : 1;
                              }),
              0);
}

TEST(InstanceLock, ALinkUnderItsNameIsNotFollowed) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "Run");
    std::filesystem::create_symlink(folder / "elsewhere", folder / "Run/Instance.lock");
    InstanceLock lock(folder / "Run");
    EXPECT_EQ(lock.Acquire(InstanceRole::Program, kNoPatience), LockOutcome::Failed);
    EXPECT_EQ(lock.Problem(), ErrorCode::AccessDenied);
    EXPECT_FALSE(folder.Has("elsewhere"));
}

TEST(InstanceLock, ARequestWakesTheFirstAndBringsItsToken) {
    const TemporaryFolder folder;
    InstanceLock lock(folder.Path());
    ASSERT_EQ(lock.Acquire(InstanceRole::Program, kNoPatience), LockOutcome::Held);
    ASSERT_EQ(lock.WatchActivation(), ErrorCode::Success);
    EXPECT_FALSE(lock.TakeActivation().has_value());
    EXPECT_FALSE(IsReadable(lock.ActivationFd(), 0));
    ASSERT_EQ(RunApart([&] {
                  return InstanceLock::RequestActivation(folder.Path(), "token-1") == ErrorCode::Success ? 0 : 1;
              }),
              0);
    EXPECT_TRUE(IsReadable(lock.ActivationFd(), 5000));
    ExpectTaken(lock, "token-1", 0);
    EXPECT_FALSE(IsReadable(lock.ActivationFd(), 0));
    EXPECT_FALSE(lock.TakeActivation().has_value());
}

TEST(InstanceLock, ARequestWithoutRoomForItsTokenGoesWithoutIt) {
    const TemporaryFolder folder;
    InstanceLock lock(folder.Path());
    const auto ask = [&] {
        const rlimit none{0, 0};
        static_cast<void>(signal(SIGXFSZ, SIG_IGN)); // writing fails like on a full disk
        return setrlimit(RLIMIT_FSIZE, &none) == 0 &&
                       InstanceLock::RequestActivation(folder.Path(), "token-1") == ErrorCode::Success
                   ? 0
                   : 1;
    };
    ASSERT_EQ(RunApart(ask), 0);
    ExpectTaken(lock, "", 0);
}

TEST(InstanceLock, OfSeveralRequestsTheNewestCounts) {
    const TemporaryFolder folder;
    InstanceLock lock(folder.Path());
    ASSERT_EQ(InstanceLock::RequestActivation(folder.Path(), "before"), ErrorCode::Success);
    ASSERT_EQ(lock.WatchActivation(), ErrorCode::Success);
    ExpectTaken(lock, "before", 0); // it came before the watch
    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(InstanceLock::RequestActivation(folder.Path(), ""), ErrorCode::Success);
    }
    ExpectTaken(lock, "", 0);
    EXPECT_FALSE(IsReadable(lock.ActivationFd(), 0));
}

TEST(InstanceLock, ARequestForAnItemWakesTheFirstAndIsTakenOnce) {
    const TemporaryFolder folder;
    InstanceLock lock(folder.Path());
    ASSERT_EQ(lock.WatchActivation(), ErrorCode::Success);
    ASSERT_EQ(RunApart([&] { return InstanceLock::RequestItem(folder.Path(), 42, "") == ErrorCode::Success ? 0 : 1; }),
              0);
    EXPECT_TRUE(IsReadable(lock.ActivationFd(), 5000));
    ExpectTaken(lock, "", 42);
    EXPECT_FALSE(IsReadable(lock.ActivationFd(), 0));
    EXPECT_FALSE(lock.TakeActivation().has_value());
    EXPECT_FALSE(std::filesystem::exists(ItemFile(folder)));
}

TEST(InstanceLock, AStartThatIsHandedOverTakesNoItemAway) {
    const TemporaryFolder folder;
    InstanceLock lock(folder.Path());
    ASSERT_EQ(InstanceLock::RequestItem(folder.Path(), 42, ""), ErrorCode::Success);
    ASSERT_EQ(InstanceLock::RequestActivation(folder.Path(), "token-1"), ErrorCode::Success);
    ExpectTaken(lock, "token-1", 42);
}

TEST(InstanceLock, ARequestForAnItemBringsTheTokenOfItsNotification) {
    const TemporaryFolder folder;
    InstanceLock lock(folder.Path());
    ASSERT_EQ(InstanceLock::RequestItem(folder.Path(), 42, "token-2"), ErrorCode::Success);
    ExpectTaken(lock, "token-2", 42);
    ASSERT_EQ(InstanceLock::RequestActivation(folder.Path(), "token-1"), ErrorCode::Success);
    ASSERT_EQ(InstanceLock::RequestItem(folder.Path(), 0, "token-3"), ErrorCode::Success);
    ExpectTaken(lock, "token-3", 0);
    ASSERT_EQ(InstanceLock::RequestItem(folder.Path(), 42, std::string(5000, 'x')), ErrorCode::Success);
    ExpectTaken(lock, "", 42);
}

TEST(InstanceLock, ARequestForAnItemIsForgottenAfterAMinute) {
    for (const std::chrono::seconds age : {-70s, 70s}) {
        const TemporaryFolder folder;
        InstanceLock lock(folder.Path());
        ASSERT_EQ(InstanceLock::RequestItem(folder.Path(), 42, ""), ErrorCode::Success);
        std::filesystem::last_write_time(ItemFile(folder), std::filesystem::file_time_type::clock::now() - age);
        EXPECT_FALSE(lock.TakeActivation().has_value()) << age.count();
        EXPECT_FALSE(std::filesystem::exists(ItemFile(folder))) << age.count();
    }
    const TemporaryFolder folder;
    InstanceLock lock(folder.Path());
    ASSERT_EQ(InstanceLock::RequestItem(folder.Path(), 42, ""), ErrorCode::Success);
    std::filesystem::last_write_time(ItemFile(folder), std::filesystem::file_time_type::clock::now() - 30s);
    ExpectTaken(lock, "", 42);
}

TEST(InstanceLock, ARequestThatNamesNoItemOnlyBringsForward) {
    for (const std::string_view text : {"", "seven", "12 or 13", "99999999999"}) {
        const TemporaryFolder folder;
        InstanceLock lock(folder.Path());
        std::ofstream(ItemFile(folder)) << text;
        ExpectTaken(lock, "", 0);
    }
}

} // namespace tavo::posix
