// A program killed in the middle of a stroke.
#include "host/ink/codec.h"
#include "host/ink/recovery_folder.h"
#include "host/posix/posix_disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavo::ink {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

struct Sent {
    int Number = 0;
    Clock::time_point At;
};

// The program, and what it told.
class Writer {
  public:
    explicit Writer(const std::string& root) {
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe(ends.data()), 0);
        Child = fork();
        if (Child == 0) {
            dup2(ends[1], STDOUT_FILENO);
            close(ends[0]);
            close(ends[1]);
            setenv("TAVO_HOME", root.c_str(), 1);
            setenv("QT_QPA_PLATFORM", "offscreen", 1);
            execl(TAVO_CRASH_WRITER, TAVO_CRASH_WRITER, nullptr);
            _exit(127);
        }
        close(ends[1]);
        Told = ends[0];
    }

    ~Writer() {
        Kill();
        close(Told);
    }

    // Takes what it tells until the moment has come.
    void ListenUntil(Clock::time_point moment) {
        for (auto now = Clock::now(); now < moment; now = Clock::now()) {
            pollfd ready{Told, POLLIN, 0};
            const auto rest = std::chrono::duration_cast<milliseconds>(moment - now);
            if (poll(&ready, 1, static_cast<int>(rest.count()) + 1) > 0 && !Listen()) {
                return;
            }
        }
    }

    void Kill() {
        if (Child > 0) {
            kill(Child, SIGKILL);
            waitpid(Child, nullptr, 0);
            Child = 0;
        }
    }

    std::vector<Sent> All;

  private:
    bool Listen() {
        int number = 0;
        if (read(Told, &number, sizeof number) != sizeof number) {
            return false;
        }
        All.push_back({number, Clock::now()});
        return true;
    }

    pid_t Child = 0;
    int Told = -1;
};

int Kills() {
    const char* wanted = std::getenv("TAVO_INK_KILLS");
    return wanted == nullptr ? 3 : static_cast<int>(std::strtol(wanted, nullptr, 10));
}

TEST(InkCrash, AtMostASecondOfTheStrokeIsGone) {
    std::mt19937 random(std::random_device{}());
    for (int i = 0; i < Kills(); ++i) {
        std::string root = (std::filesystem::temp_directory_path() / "ink-crash-XXXXXX").string();
        ASSERT_NE(mkdtemp(root.data()), nullptr);
        Writer writer(root);
        const auto patience = Clock::now() + std::chrono::seconds(30);
        while (writer.All.empty() && Clock::now() < patience) {
            writer.ListenUntil(Clock::now() + milliseconds(20));
        }
        ASSERT_FALSE(writer.All.empty());
        const int time = std::uniform_int_distribution<int>(1050, 2300)(random);
        writer.ListenUntil(writer.All.front().At + milliseconds(time));
        const auto killed = Clock::now();
        writer.Kill();
        posix::PosixDisk disk;
        const std::vector<RecoveredInk> found = RecoveryFolder(disk, root + "/Recovery").Find();
        ASSERT_EQ(found.size(), 1U) << "killed after " << time << " ms";
        std::vector<PlacedStroke> strokes;
        ASSERT_EQ(Decode(found[0].Data, strokes), Reading::Whole);
        ASSERT_EQ(strokes.size(), 1U);
        // Every sample is a point.
        const auto old = std::count_if(writer.All.begin(), writer.All.end(),
                                       [&](const Sent& sent) { return sent.At <= killed - std::chrono::seconds(1); });
        EXPECT_GE(static_cast<long>(strokes[0].Body->Points.size()), old) << "killed after " << time << " ms";
        EXPECT_GT(old, 0);
        std::filesystem::remove_all(root);
    }
}

} // namespace
} // namespace tavo::ink
