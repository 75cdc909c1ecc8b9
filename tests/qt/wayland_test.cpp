// The program on a Wayland desktop. Where none is installed these tests are skipped.
#include "host/posix/instance_lock.h"
#include "host/qt/font_preparation.h"
#include "tests/qt/compositor.h"
#include "tests/qt/desktop_test.h"
#include "tests/qt/hands.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <memory>
#include <sys/wait.h>
#include <thread>

namespace tavo::qt {
namespace {

using namespace std::chrono_literals;

Compositor* desk = nullptr; // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): main's own

class WaylandTest : public DesktopTest {
  protected:
    void SetUp() override {
        if (desk == nullptr) {
            GTEST_SKIP() << "no Wayland desktop is installed";
        }
        ASSERT_TRUE(desk->IsRunning());
        ASSERT_EQ(QGuiApplication::platformName(), "wayland");
        Run(300ms);
    }

    void TearDown() override {
        if (desk != nullptr) {
            desk->Tell("output HEADLESS-1 scale 1");
        }
    }

    static bool IsInFront() {
        const auto window = desk->FindWindow(getpid());
        return window && window->value(QLatin1String("focused")).toBool();
    }
};

TEST_F(WaylandTest, AChangeOfScaleOnTheSameScreenLaysOutAnew) {
    ASSERT_EQ(Host.Parts().Geometry.Ratio, 1.0);
    const QSize before = Desktop().size();
    desk->Tell("output HEADLESS-1 scale 2");
    Run(800ms);
    EXPECT_EQ(Desktop().devicePixelRatio(), 2.0);
    EXPECT_EQ(Host.Parts().Geometry.Ratio, 2.0);
    EXPECT_EQ(Desktop().size(), before); // as large as it was, of more pixels
    EXPECT_GT(Count(WM_DISPLAYCHANGE), 0);
    // Every painted part fills its place and no more.
    const QRect place = Host.Parts().Geometry.ToolkitPixels(kClientArea);
    EXPECT_EQ(QRect(PageWidget().mapTo(&Desktop(), QPoint()), PageWidget().size()), place);
    EXPECT_EQ(ReadPixel(Host, {kSquare.Left, kClientArea.Top + kSquare.Top}), kRed);
    EXPECT_EQ(ReadPixel(Host, {kSquare.Right - 1, kClientArea.Top + kSquare.Bottom - 1}), kRed);
    EXPECT_EQ(ReadPixel(Host, {kSquare.Right, kClientArea.Top + kSquare.Bottom}), kWhite);
    desk->Tell("output HEADLESS-1 scale 1");
    Run(800ms);
    EXPECT_EQ(Host.Parts().Geometry.Ratio, 1.0);
    EXPECT_EQ(ReadPixel(Host, {kSquare.Right - 1, kClientArea.Top + kSquare.Bottom - 1}), kRed);
}

TEST_F(WaylandTest, InTheBackgroundItIsGoneAndARequestBringsItBackInFront) {
    EXPECT_TRUE(IsInFront());
    Host.Windows().ShowWindow(Frame, ShowCommand::Minimize);
    Run(500ms);
    EXPECT_FALSE(desk->FindWindow(getpid()).has_value());
    ASSERT_EQ(posix::InstanceLock::RequestActivation(Root.Open().RunFolder(), ""), ErrorCode::Success);
    Run(800ms);
    EXPECT_TRUE(IsInFront());
    EXPECT_FALSE(Desktop().isMinimized());
    EXPECT_EQ(ReadPixel(Host, {kSquare.Left, kClientArea.Top + kSquare.Top}), kRed);
}

bool WaitUntil(std::chrono::milliseconds patience, const std::function<bool()>& isSo) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!isSo()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(50ms);
    }
    return true;
}

pid_t StartProgram(const std::string& program, const std::string& home) {
    const pid_t process = fork();
    if (process == 0) {
        setenv("TAVO_HOME", home.c_str(), 1);
        execl(program.c_str(), program.c_str(), nullptr);
        _exit(127);
    }
    return process;
}

// What the desktop's close button does, and what the desktop's entry for the program does afterwards.
TEST(WaylandProgram, ClosedAndStartedAgainItIsInFrontOfTheOthers) {
    if (desk == nullptr) {
        GTEST_SKIP() << "no Wayland desktop is installed";
    }
    const files::TemporaryFolder folder;
    const std::string program = folder / "tavocalendar"; // a copy, so that no companion lies beside it
    std::filesystem::copy_file(TAVO_PROGRAM, program);
    const pid_t first = StartProgram(program, folder / "home");
    const auto isInFront = [](pid_t process) {
        const auto window = desk->FindWindow(process);
        return window && window->value(QLatin1String("focused")).toBool();
    };
    EXPECT_TRUE(WaitUntil(30s, [&] { return isInFront(first); }));
    desk->Tell("'[pid=" + std::to_string(first) + "] kill'");
    EXPECT_TRUE(WaitUntil(10s, [&] { return !desk->FindWindow(first).has_value(); }));
    EXPECT_EQ(waitpid(first, nullptr, WNOHANG), 0);              // it runs on
    const pid_t other = StartProgram(program, folder / "other"); // somebody else's window
    EXPECT_TRUE(WaitUntil(30s, [&] { return isInFront(other); }));
    const pid_t second = StartProgram(program, folder / "home");
    int status = -1;
    EXPECT_EQ(waitpid(second, &status, 0), second);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(WaitUntil(10s, [&] { return isInFront(first); }));
    for (const pid_t process : {first, other}) {
        kill(process, SIGTERM);
        EXPECT_EQ(waitpid(process, &status, 0), process);
        EXPECT_EQ(status, 0);
    }
}

} // namespace
} // namespace tavo::qt

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    std::unique_ptr<tavo::qt::Compositor> compositor;
    if (!GTEST_FLAG_GET(list_tests) && tavo::qt::Compositor::IsInstalled()) {
        compositor = std::make_unique<tavo::qt::Compositor>();
        tavo::qt::desk = compositor.get();
    } else {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    Q_INIT_RESOURCE(tavo_pictures);
    const QApplication application(argc, argv);
    if (!tavo::qt::PrepareFonts()) {
        return 1;
    }
    return RUN_ALL_TESTS();
}
