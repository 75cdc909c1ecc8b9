// Our own window as the program that the companion starts and talks to.
#include "companion/child.h"
#include "tests/companion/patience.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>

namespace tavo::companion {
namespace {

constexpr int kPatience = 10;           // seconds that a busy machine may take
constexpr int kSoon = 1000 * kPatience; // the same in milliseconds

class WindowProcess : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(Window.Start({TAVO_REMINDER_WINDOW})); }

    // Its exit status; -1 when it goes on.
    int WaitForEnd() {
        int status = -1;
        if (test::WaitUntil([&] { return waitpid(Window.Id(), &status, WNOHANG) == Window.Id(); }, kPatience)) {
            Window.NoteEnd();
        }
        return status;
    }

    Child Window;
};

TEST_F(WindowProcess, TellsWhatItHasShownAndEndsWithTheLastCard) {
    ASSERT_TRUE(Window.Write("show\t7\tTrain\tToday, 2:30 PM\x1fPlatform 4\n"));
    EXPECT_EQ(Window.ReadLine(kSoon), "shown\t7");
    ASSERT_TRUE(Window.Write("show\t8\tTea\t\nclose\t7\n"));
    EXPECT_EQ(Window.ReadLine(kSoon), "shown\t8");
    ASSERT_TRUE(Window.Write("close\t8\n"));
    EXPECT_EQ(WaitForEnd(), 0);
}

TEST_F(WindowProcess, LinesThatItDoesNotKnowChangeNothing) {
    ASSERT_TRUE(Window.Write("\nshow\nshow\t7\nclose\nclose\t99\nhide\t1\nshow\t8\tTea\t\n"));
    EXPECT_EQ(Window.ReadLine(kSoon), "shown\t8");
}

TEST_F(WindowProcess, IsReadInPiecesToo) {
    ASSERT_TRUE(Window.Write("show\t7\tTr"));
    EXPECT_EQ(Window.ReadLine(100), "");
    ASSERT_TRUE(Window.Write("ain\tToday\n"));
    EXPECT_EQ(Window.ReadLine(kSoon), "shown\t7");
}

TEST(ChildProcess, OneThatHasEndedKeepsNothingWaiting) {
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    Child child;
    ASSERT_TRUE(child.Start({"/bin/true"}));
    const pid_t process = child.Id();
    ASSERT_TRUE(test::WaitUntil([&] { return waitpid(process, nullptr, WNOHANG) == process; }, kPatience));
    EXPECT_FALSE(child.Write("show\t7\tTrain\t\n"));
    EXPECT_EQ(child.Input(), -1); // else whoever waits for room in its pipe is woken at once, for ever
    EXPECT_FALSE(child.Flush());
    child.NoteEnd();
}

TEST(ChildProcess, IsEndedByABrokenPipeLikeAnyOther) {
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    Child child;
    ASSERT_TRUE(child.Start({"/bin/sh", "-c", "kill -PIPE $$; echo alive"}));
    EXPECT_EQ(child.ReadLine(kSoon), "");
    int status = 0;
    ASSERT_EQ(waitpid(child.Id(), &status, 0), child.Id());
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGPIPE);
    child.NoteEnd();
}

} // namespace
} // namespace tavo::companion
