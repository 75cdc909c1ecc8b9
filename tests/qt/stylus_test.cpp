// Pen, finger, mouse and wheel as the stylus.
#include "tests/qt/desktop_test.h"
#include "tests/qt/hands.h"

#include <QPointingDevice>
#include <QTabletEvent>
#include <QTest>
#include <QWheelEvent>

#include <memory>

namespace tavo::qt {
namespace {

// The middle of a logical pixel of the page, in the page widget's own coordinates.
QPointF MiddleInPage(QtHost& host, const PaintedWidget& page, int x, int y) {
    const ScreenGeometry& geometry = host.Parts().Geometry;
    const QRectF real(geometry.RealPixels(Rect::FromSize(x, y + kClientArea.Top, 1, 1)));
    return real.center() / geometry.Ratio - QPointF(page.mapTo(page.window(), QPoint()));
}

QPoint InPage(QtHost& host, const PaintedWidget& page, int x, int y) {
    return MiddleInPage(host, page, x, y).toPoint();
}

void SendPen(QtHost& host, PaintedWidget& page, QEvent::Type type, int x, int y) {
    const QPointF place = MiddleInPage(host, page, x, y);
    const QPointF global = page.mapToGlobal(place);
    const bool isMove = type == QEvent::TabletMove;
    QTabletEvent event(type, QPointingDevice::primaryPointingDevice(), place, global, 0.5, 0, 0, 0, 0, 0,
                       Qt::NoModifier, isMove ? Qt::NoButton : Qt::LeftButton,
                       type == QEvent::TabletRelease ? Qt::NoButton : Qt::LeftButton);
    QCoreApplication::sendEvent(&page, &event);
    EXPECT_TRUE(event.isAccepted()); // else the toolkit would send a mouse event as well
}

} // namespace

TEST_F(DesktopTest, ThePenIsTheStylus) {
    SendPen(Host, PageWidget(), QEvent::TabletPress, 100, 120);
    Run();
    SendPen(Host, PageWidget(), QEvent::TabletMove, 103, 121);
    Run();
    SendPen(Host, PageWidget(), QEvent::TabletRelease, 103, 121);
    Run();
    const std::vector<Message> messages = StylusMessages();
    ASSERT_EQ(messages.size(), 3u);
    EXPECT_EQ(messages[0], (Message{Page, WM_LBUTTONDOWN, 0, 0, 0, {100, 120}}));
    EXPECT_EQ(messages[1], (Message{Page, WM_MOUSEMOVE, 0, 0, 0, {103, 121}}));
    EXPECT_EQ(messages[2], (Message{Page, WM_LBUTTONUP, 0, 0, 0, {103, 121}}));
}

TEST_F(DesktopTest, AFingerIsTheStylusOnce) {
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    PaintedWidget& page = PageWidget();
    QTest::touchEvent(&page, screen.get()).press(0, InPage(Host, page, 50, 60), &page);
    Run();
    QTest::touchEvent(&page, screen.get()).release(0, InPage(Host, page, 50, 60), &page);
    Run();
    const std::vector<Message> messages = StylusMessages();
    ASSERT_EQ(messages.size(), 2u); // and no mouse made of it
    EXPECT_EQ(messages[0], (Message{Page, WM_LBUTTONDOWN, 0, 0, 0, {50, 60}}));
    EXPECT_EQ(messages[1], (Message{Page, WM_LBUTTONUP, 0, 0, 0, {50, 60}}));
}

TEST_F(DesktopTest, ASecondFingerTakesTheGestureBack) {
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    PaintedWidget& page = PageWidget();
    QTest::touchEvent(&page, screen.get()).press(0, InPage(Host, page, 50, 60), &page);
    Run();
    QTest::touchEvent(&page, screen.get()).stationary(0).press(1, InPage(Host, page, 90, 60), &page);
    Run();
    QTest::touchEvent(&page, screen.get())
        .release(0, InPage(Host, page, 50, 60), &page)
        .release(1, InPage(Host, page, 90, 60), &page);
    Run();
    const std::vector<Message> messages = StylusMessages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].Number, WM_LBUTTONDOWN);
}

TEST_F(DesktopTest, TheMouseIsTheStylusWithItsLeftButtonOnly) {
    PressMouse(Host, {120, 150});
    ReleaseMouse(Host, {120, 150});
    QTest::mouseClick(Desktop().windowHandle(), Qt::RightButton, {},
                      Host.Parts().Geometry.ToolkitPixels(Rect::FromSize(120, 150, 1, 1)).center());
    MoveMouse(Host, {10, 200}); // hovering
    Run();
    const std::vector<Message> messages = StylusMessages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].Position, (Point{120, 124}));
}

TEST_F(DesktopTest, TheWheelCountsWholeSteps) {
    PaintedWidget& page = PageWidget();
    for (const int eighths : {120, 60, 60, -240}) {
        const QPointF place = InPage(Host, page, 30, 40);
        QWheelEvent event(place, page.mapToGlobal(place), {}, {0, eighths}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&page, &event);
    }
    Run();
    std::vector<int> steps;
    for (const Message& message : Log) {
        if (message.Number == WM_MOUSEWHEEL) {
            steps.push_back(message.Code);
        }
    }
    EXPECT_EQ(steps, (std::vector<int>{1, 1, -2}));
}

} // namespace tavo::qt
