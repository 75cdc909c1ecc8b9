// The program on another Wayland desktop, whose screen has two pixels for each of the toolkit's. Where it is not
// installed these tests are skipped.
#include "host/posix/instance_lock.h"
#include "host/qt/font_preparation.h"
#include "tests/files/temporary_folder.h"
#include "tests/qt/desktop_test.h"
#include "tests/qt/hands.h"

#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QWindow>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>

namespace tavo::qt {
namespace {

using namespace std::chrono_literals;

constexpr int kTries = 200; // of 50 ms
bool isThere = false;       // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): main's own

bool IsInstalled() {
    const QString plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath) + QLatin1String("/platforms");
    const bool canShow = !QDir(plugins).entryList({QStringLiteral("libqwayland*.so")}).isEmpty();
    return canShow && std::system("command -v weston >/dev/null") == 0;
}

// A desktop of the tests' own, without a screen.
class Weston {
  public:
    Weston() {
        std::filesystem::permissions(Folder.Path(), std::filesystem::perms::owner_all);
        setenv("XDG_RUNTIME_DIR", Folder.Path().c_str(), 1);
        Process = fork();
        if (Process == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            static_cast<void>(!freopen((Folder / "log").c_str(), "w", stderr));
            static_cast<void>(!freopen((Folder / "log").c_str(), "a", stdout));
            execlp("weston", "weston", "--backend=headless-backend.so", "--socket=wayland-1", "--width=2560",
                   "--height=2048", "--scale=2", "--no-config", "--idle-time=0", nullptr);
            _exit(127);
        }
        for (int i = 0; i < kTries && !Folder.Has("wayland-1"); ++i) {
            std::this_thread::sleep_for(50ms);
        }
        setenv("WAYLAND_DISPLAY", "wayland-1", 1);
        setenv("QT_QPA_PLATFORM", "wayland", 1);
    }

    ~Weston() {
        kill(Process, SIGTERM);
        waitpid(Process, nullptr, 0);
    }

    Weston(const Weston&) = delete;
    Weston& operator=(const Weston&) = delete;

  private:
    files::TemporaryFolder Folder;
    pid_t Process = 0;
};

class WestonTest : public DesktopTest {
  protected:
    void SetUp() override {
        if (!isThere) {
            GTEST_SKIP() << "no such desktop is installed";
        }
        ASSERT_EQ(QGuiApplication::platformName(), "wayland");
        Run(500ms);
    }

    bool IsSeen() { return Desktop().isVisible() && Desktop().windowHandle()->isExposed(); }

    void ExpectPainted() {
        EXPECT_EQ(ReadPixel(Host, {kSquare.Left, kClientArea.Top + kSquare.Top}), kRed);
        EXPECT_EQ(ReadPixel(Host, {kSquare.Right - 1, kClientArea.Top + kSquare.Bottom - 1}), kRed);
        EXPECT_EQ(ReadPixel(Host, {kSquare.Right, kClientArea.Top + kSquare.Bottom}), kWhite);
    }
};

TEST_F(WestonTest, OnAScreenOfSmallPixelsEveryPartFillsItsPlace) {
    EXPECT_TRUE(IsSeen());
    EXPECT_EQ(Desktop().devicePixelRatio(), 2.0);
    EXPECT_EQ(Host.Parts().Geometry.Ratio, 2.0);
    const QRect place = Host.Parts().Geometry.ToolkitPixels(kClientArea);
    EXPECT_EQ(QRect(PageWidget().mapTo(&Desktop(), QPoint()), PageWidget().size()), place);
    ExpectPainted();
}

TEST_F(WestonTest, InTheBackgroundItIsGoneAndARequestBringsItBack) {
    ASSERT_TRUE(IsSeen());
    Host.Windows().ShowWindow(Frame, ShowCommand::Minimize);
    Run(500ms);
    EXPECT_FALSE(Desktop().isVisible());
    ASSERT_EQ(posix::InstanceLock::RequestActivation(Root.Open().RunFolder(), ""), ErrorCode::Success);
    Run(1000ms);
    EXPECT_TRUE(IsSeen());
    EXPECT_FALSE(Desktop().isMinimized());
    ExpectPainted();
}

} // namespace
} // namespace tavo::qt

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    std::unique_ptr<tavo::qt::Weston> weston;
    if (!GTEST_FLAG_GET(list_tests) && tavo::qt::IsInstalled()) {
        weston = std::make_unique<tavo::qt::Weston>();
        tavo::qt::isThere = true;
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
