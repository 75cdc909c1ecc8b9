// The desktop window: sizes, scales, closing, minimising.
#include "host/qt/chrome_widget.h"
#include "tests/qt/desktop_test.h"
#include "tests/qt/hands.h"

#include <QElapsedTimer>

#include <algorithm>
#include <csignal>

namespace tavo::qt {
namespace {

using std::chrono::milliseconds;

int CountColor(const QImage& image, QRgb color) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixel(x, y) == color ? 1 : 0;
        }
    }
    return count;
}

} // namespace

TEST(DesktopSizeChoice, TakesTheLargestHalfStepThatFitsComfortably) {
    EXPECT_EQ(ChooseDesktopSize("", {}, {1920, 1040}).Size, QSize(480, 640));
    EXPECT_EQ(ChooseDesktopSize("", {}, {1366, 728}).Size, QSize(360, 480));
    EXPECT_EQ(ChooseDesktopSize("", {}, {2560, 1400}).Size, QSize(720, 960));
    EXPECT_EQ(ChooseDesktopSize("", {}, {320, 240}).Size, QSize(240, 320));
    EXPECT_FALSE(ChooseDesktopSize("", {}, {1920, 1040}).IsFixed);
}

TEST(DesktopSizeChoice, AWishedScaleIsFixedAndNonsenseIsNot) {
    EXPECT_EQ(ChooseDesktopSize("1.5", {}, {1920, 1040}).Size, QSize(360, 480));
    EXPECT_TRUE(ChooseDesktopSize("3", {400, 600}, {1920, 1040}).IsFixed);
    EXPECT_FALSE(ChooseDesktopSize("huge", {}, {1920, 1040}).IsFixed);
    EXPECT_FALSE(ChooseDesktopSize("0.2", {}, {1920, 1040}).IsFixed);
}

TEST(DesktopSizeChoice, TheRememberedSizeIsCutToTheScreen) {
    EXPECT_EQ(ChooseDesktopSize("", {500, 700}, {1920, 1040}).Size, QSize(500, 700));
    EXPECT_EQ(ChooseDesktopSize("", {2000, 2000}, {1280, 800}).Size, QSize(1280, 800));
    EXPECT_EQ(ChooseDesktopSize("", {100, 100}, {1920, 1040}).Size, QSize(480, 640));
}

TEST(ScreenFit, KeepsTheAspectAndCentresTheScreen) {
    const ScreenGeometry wide = ScreenGeometry::Fit({1000, 640}, 1.0);
    EXPECT_DOUBLE_EQ(wide.Scale.Factor, 2.0);
    EXPECT_EQ(wide.Origin, QPoint(260, 0));
    const ScreenGeometry fractional = ScreenGeometry::Fit({480, 640}, 1.25);
    EXPECT_DOUBLE_EQ(fractional.Scale.Factor, 2.5);
    EXPECT_EQ(fractional.ToolkitPixels(kNavigationBar), QRect(0, 0, 480, 52));
}

TEST(ScreenFit, EveryRealPixelBelongsToTheLogicalPixelThatIsDrawnThere) {
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        const ScreenGeometry geometry = ScreenGeometry::Fit({410, 560}, ratio);
        for (int x = 0; x < kScreenSize.Width; ++x) {
            const int first = geometry.Scale.Edge(x);
            const int last = geometry.Scale.Edge(x + 1) - 1;
            for (const int real : {first, last}) {
                const double toolkit = (real + geometry.Origin.x() + 0.5) / ratio;
                ASSERT_EQ(geometry.ToLogical({toolkit, 0}).X, x) << ratio;
            }
        }
    }
}

TEST_F(DesktopTest, ASquareIsSharpAtEveryScale) {
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        Desktop().resize(static_cast<int>(240 * scale), static_cast<int>(320 * scale));
        Run(milliseconds(130));
        // The page begins on a whole pixel, and all edges in it are rounded from there.
        const ScreenGeometry& geometry = Host.Parts().Geometry;
        const QPoint corner = geometry.RealPixels(kClientArea).topLeft();
        const QRect expected = geometry.Scale.Edges(kSquare).translated(corner);
        const QImage shown = Desktop().grab().toImage();
        EXPECT_EQ(shown.pixel(expected.topLeft()), 0xFFFF0000) << scale;
        EXPECT_EQ(shown.pixel(expected.bottomRight()), 0xFFFF0000) << scale;
        EXPECT_EQ(CountColor(shown, 0xFFFF0000), expected.width() * expected.height()) << scale;
    }
}

TEST_F(DesktopTest, AResizeIsStretchedAtOnceAndCrispSoonAfter) {
    Desktop().resize(480, 640);
    Run(milliseconds(150));
    Log.clear();
    Desktop().resize(600, 800);
    const QRgb stretched = Desktop().grab().toImage().pixel(QPoint(15 * 5 / 2, (15 + 26) * 5 / 2));
    EXPECT_EQ(stretched, 0xFFFF0000);
    EXPECT_EQ(Count(WM_DISPLAYCHANGE), 0);
    QElapsedTimer clock;
    clock.start();
    while (Count(WM_DISPLAYCHANGE) == 0 && clock.elapsed() < 1000) {
        Run();
    }
    Run();
    EXPECT_LE(clock.elapsed(), 150);
    EXPECT_EQ(Count(WM_DISPLAYCHANGE), 3); // frame, view and page
    const QImage crisp = Desktop().grab().toImage();
    EXPECT_EQ(CountColor(crisp, 0xFFFF0000), 25 * 28); // 10 x 11 logical at 2.5, edges rounded
}

TEST_F(DesktopTest, ManySizesInARowAnnounceOneChange) {
    Run(milliseconds(150));
    Log.clear();
    for (int width = 300; width <= 480; width += 20) {
        Desktop().resize(width, width * 4 / 3);
        Run(milliseconds(10));
    }
    Run(milliseconds(150));
    EXPECT_EQ(Count(WM_DISPLAYCHANGE), 3);
}

TEST_F(DesktopTest, BesideTheScreenTheWindowIsDark) {
    Desktop().resize(800, 640);
    Run(milliseconds(130));
    const QImage shown = Desktop().grab().toImage();
    EXPECT_LT(qGray(shown.pixel(20, 300)), 80);
    EXPECT_LT(qGray(shown.pixel(780, 300)), 80);
    EXPECT_EQ(shown.pixel(400, 600 - 60), 0xFFFFFFFF);
}

TEST_F(DesktopTest, NeverSmallerThanTheDevicesScreen) {
    EXPECT_EQ(Desktop().minimumSize(), QSize(240, 320));
}

TEST_F(DesktopTest, CloseIsRefusedAndAsksThePage) {
    EXPECT_FALSE(Desktop().close());
    EXPECT_TRUE(Desktop().isVisible());
    Run();
    EXPECT_EQ(Count(WM_CLOSE), 1);
}

TEST_F(DesktopTest, ATerminationSignalAsksTheFrameToQuit) {
    std::raise(SIGTERM);
    Run(milliseconds(20));
    ASSERT_EQ(Count(WM_QUERYENDSESSION), 1);
    const auto asked = std::find_if(Log.begin(), Log.end(),
                                    [](const Message& message) { return message.Number == WM_QUERYENDSESSION; });
    EXPECT_EQ(asked->Id, kSessionEnds); // nobody is there to answer
}

TEST_F(DesktopTest, MinimisedNothingIsPaintedAndTheProgramIsLeftAsleep) {
    Desktop().showMinimized();
    Host.Windows().SetTimer(Page, 1003, 50);
    Run();
    Log.clear();
    Host.Windows().InvalidateRect(Page, {0, 0, 240, 267});
    Run(milliseconds(300));
    EXPECT_TRUE(Log.empty());
    Desktop().showNormal();
    Run(milliseconds(20));
    EXPECT_EQ(Count(WM_PAINT), 1);
}

TEST_F(DesktopTest, TheProgramMinimisesTheWindowAndBringsItBack) {
    Host.Windows().ShowWindow(Frame, ShowCommand::Minimize);
    Run();
    EXPECT_TRUE(Desktop().isMinimized());
    Host.Windows().ShowWindow(Frame, ShowCommand::Maximize);
    Run();
    EXPECT_FALSE(Desktop().isMinimized());
}

TEST(DesktopSizeMemory, TheNextStartHasTheSizeOfTheLast) {
    const TemporaryRoot root;
    {
        QtHost first({root.Open(), ""});
        first.Desktop().resize(500, 700);
    }
    QtHost next({root.Open(), ""});
    EXPECT_EQ(next.Desktop().size(), QSize(500, 700));
}

TEST_F(DesktopTest, TheNavigationBarFollowsTheWindowOnTop) {
    EXPECT_EQ(Desktop().Navigation().Title(), "Test page");
    WindowDescription dialog;
    dialog.Kind = WindowKind::Dialog;
    dialog.Parent = Frame;
    dialog.Title = u"About";
    dialog.Buttons = NavigationButtons::OkAndClose;
    dialog.Visible = true;
    const WindowHandle handle = Host.Windows().CreateWindowExW(dialog);
    Run();
    EXPECT_EQ(Desktop().Navigation().Title(), "About");
    TapMiddle(Host, shell::kOkButton);
    Run();
    ASSERT_EQ(Count(WM_COMMAND), 1);
    EXPECT_EQ(Log.back().Window, handle);
    EXPECT_EQ(Log.back().Id, IDOK);
    TapMiddle(Host, shell::kCloseButton);
    Run();
    EXPECT_EQ(Log.back().Id, IDCANCEL);
}

TEST_F(DesktopTest, ASecondStartBringsTheFirstForward) {
    ASSERT_EQ(Host.RootWindows().Claim(), posix::LockOutcome::Held); // by its main window
    Host.Windows().ShowWindow(View, ShowCommand::Minimize);
    Host.Windows().SetTimer(Page, 1003, 30);
    Run(milliseconds(100));
    ASSERT_TRUE(Desktop().isMinimized());
    EXPECT_EQ(Count(WM_TIMER), 0);
    ASSERT_EQ(posix::InstanceLock::RequestActivation(Root.Open().RunFolder(), ""), ErrorCode::Success);
    Run(milliseconds(200));
    EXPECT_FALSE(Desktop().isMinimized());
    EXPECT_GE(Count(WM_TIMER), 2);
}

TEST(RootClaim, LookingForAnotherProgramTakesNothing) {
    const TemporaryRoot root;
    QtHost looking({root.Open(), ""});
    EXPECT_EQ(looking.Windows().FindWindowW(u"Class", u"Title"), WindowHandle::None);
    EXPECT_FALSE(posix::InstanceLock::ProgramRuns(root.Open().RunFolder()));
    EXPECT_FALSE(looking.RootWindows().Claim().has_value());
}

TEST(RootClaim, BesideAnotherProgramThereIsNoMainWindow) {
    const TemporaryRoot root;
    posix::InstanceLock other(root.Open().RunFolder());
    ASSERT_EQ(other.Acquire(posix::InstanceRole::Program, {}), posix::LockOutcome::Held);
    QtHost host({root.Open(), ""});
    EXPECT_EQ(host.Windows().FindWindowW(u"Class", u"Title"), kOtherProgram);
    WindowDescription frame;
    frame.Kind = WindowKind::Frame;
    EXPECT_EQ(host.Windows().CreateWindowExW(frame), WindowHandle::None);
    EXPECT_EQ(host.RootWindows().Claim(), posix::LockOutcome::ProgramRuns);
    other.Release();
    EXPECT_NE(host.Windows().CreateWindowExW(frame), WindowHandle::None);
    EXPECT_EQ(host.RootWindows().Claim(), posix::LockOutcome::Held);
}

} // namespace tavo::qt
