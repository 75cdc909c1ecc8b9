// Pen, finger and mouse on paper.
#include "host/qt/ink_paper.h"
#include "tests/qt/desktop_test.h"
#include "tests/qt/hands.h"

#include <QApplication>
#include <QClipboard>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QTabletEvent>
#include <QTest>

#include <algorithm>
#include <memory>

namespace tavo::qt {
namespace {

class InkTest : public DesktopTest {
  protected:
    InkTest() {
        ControlDescription description;
        description.Kind = ControlKind::Ink;
        description.Bounds = {0, 0, 240, 244};
        Paper = Host.Controls().CreateControl(Page, description);
        Send(kInkSetPageStyle, kInkStyleNone);
        Send(kInkSetPenMode, kInkPenDraws);
        Run();
    }

    int Send(MessageNumber number, int first = 0, int second = 0) {
        return Host.Ink().SendMessageW(Paper, number, first, second);
    }

    ink::InkControl& Ink() { return Host.Parts().Ink.Find(Paper); }

    std::size_t Count() { return Ink().Ink().Strokes().size(); }

    QWidget& Widget() { return Host.Views().FindControl(Paper)->Widget(); }

    // In pixels of the paper.
    QPointF InWidget(double x, double y) {
        const ScreenGeometry& geometry = Host.Parts().Geometry;
        const QPointF real = QPointF(x, y + kClientArea.Top) * geometry.Scale.Factor + QPointF(geometry.Origin);
        return real / geometry.Ratio - QPointF(Widget().mapTo(Widget().window(), QPoint()));
    }

    void SendMouse(QEvent::Type type, double x, double y, Qt::MouseButton button) {
        const QPointF place = InWidget(x, y);
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, place, Widget().mapToGlobal(place), isMove ? Qt::NoButton : button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button), Qt::NoModifier);
        QCoreApplication::sendEvent(&Widget(), &event);
    }

    void DragMouse(double fromX, double fromY, double toX, double toY, Qt::MouseButton button = Qt::LeftButton) {
        SendMouse(QEvent::MouseButtonPress, fromX, fromY, button);
        SendMouse(QEvent::MouseMove, (fromX + toX) / 2, (fromY + toY) / 2, button);
        SendMouse(QEvent::MouseMove, toX, toY, button);
        SendMouse(QEvent::MouseButtonRelease, toX, toY, button);
        Run();
    }

    void SendPen(const QPointingDevice& pen, QEvent::Type type, double x, double y, double pressure) {
        const QPointF place = InWidget(x, y);
        const bool isMove = type == QEvent::TabletMove;
        QTabletEvent event(type, &pen, place, Widget().mapToGlobal(place), pressure, 0, 0, 0, 0, 0, Qt::NoModifier,
                           isMove ? Qt::NoButton : Qt::LeftButton,
                           type == QEvent::TabletRelease ? Qt::NoButton : Qt::LeftButton);
        QCoreApplication::sendEvent(&Widget(), &event);
        EXPECT_TRUE(event.isAccepted()); // else the toolkit would send a mouse event as well
    }

    void DragPen(const QPointingDevice& pen, double fromX, double fromY, double toX, double toY) {
        SendPen(pen, QEvent::TabletPress, fromX, fromY, 0.25);
        SendPen(pen, QEvent::TabletMove, (fromX + toX) / 2, (fromY + toY) / 2, 1);
        SendPen(pen, QEvent::TabletMove, toX, toY, 0.5);
        SendPen(pen, QEvent::TabletRelease, toX, toY, 0);
        Run();
    }

    void SendProximity(const QPointingDevice& pen, QEvent::Type type) {
        QTabletEvent event(type, &pen, {}, {}, 0, 0, 0, 0, 0, 0, Qt::NoModifier, Qt::NoButton, Qt::NoButton);
        QCoreApplication::sendEvent(qApp, &event); // as the toolkit tells it
    }

    void DragFinger(double fromX, double fromY, double toX, double toY) {
        QTest::touchEvent(&Widget(), Touch).press(0, InWidget(fromX, fromY).toPoint(), &Widget());
        QTest::touchEvent(&Widget(), Touch).move(0, InWidget(toX, toY).toPoint(), &Widget());
        QTest::touchEvent(&Widget(), Touch).release(0, InWidget(toX, toY).toPoint(), &Widget());
        Run();
    }

    bool IsDark(int x, int y) {
        Run();
        const Color seen = ReadPixel(Host, {x, y + kClientArea.Top});
        return seen.Red() + seen.Green() + seen.Blue() < 300;
    }

    WindowHandle Paper;
    const std::unique_ptr<QPointingDevice> Screen{QTest::createTouchDevice()};
    QPointingDevice* const Touch = Screen.get();
    QPointingDevice Pen{QStringLiteral("pen"),
                        101,
                        QInputDevice::DeviceType::Stylus,
                        QPointingDevice::PointerType::Pen,
                        QInputDevice::Capability::Position | QInputDevice::Capability::Pressure,
                        1,
                        2};
    QPointingDevice Eraser{QStringLiteral("eraser"),
                           102,
                           QInputDevice::DeviceType::Stylus,
                           QPointingDevice::PointerType::Eraser,
                           QInputDevice::Capability::Position | QInputDevice::Capability::Pressure,
                           1,
                           2};
};

TEST_F(InkTest, TheMouseDrawsWhereItGoes) {
    EXPECT_FALSE(IsDark(60, 40));
    DragMouse(20, 40.5, 100, 40.5);
    ASSERT_EQ(Count(), 1U);
    EXPECT_FALSE(Ink().Ink().Strokes()[0].Body->Tool.HasPressure);
    EXPECT_TRUE(IsDark(60, 40));
    EXPECT_FALSE(IsDark(60, 50));
    EXPECT_FALSE(IsDark(120, 40));
}

TEST_F(InkTest, TheRightButtonErases) {
    DragMouse(20, 40.5, 100, 40.5);
    DragMouse(60, 20, 60, 60, Qt::RightButton);
    EXPECT_EQ(Count(), 0U);
    EXPECT_FALSE(IsDark(60, 40));
}

TEST_F(InkTest, ThePenTellsItsPressure) {
    DragPen(Pen, 20, 40.5, 100, 40.5);
    ASSERT_EQ(Count(), 1U);
    const ink::Stroke& stroke = *Ink().Ink().Strokes()[0].Body;
    EXPECT_TRUE(stroke.Tool.HasPressure);
    ASSERT_EQ(stroke.Points.size(), 3U);
    EXPECT_EQ(stroke.Points[0].Pressure, 256);
    EXPECT_EQ(stroke.Points[1].Pressure, 1023);
    EXPECT_EQ(stroke.Points[2].Pressure, 512); // leaving it presses no less
    EXPECT_EQ(stroke.Points[0].X, 20 * ink::kTicksPerPixel);
}

TEST_F(InkTest, TheOtherEndOfThePenErases) {
    DragPen(Pen, 20, 40, 100, 40);
    DragPen(Pen, 20, 80, 100, 80);
    DragPen(Eraser, 60, 30, 60, 50);
    ASSERT_EQ(Count(), 1U);
    EXPECT_EQ(Ink().Ink().Strokes()[0].Body->Points[0].Y, 80 * ink::kTicksPerPixel);
}

TEST_F(InkTest, AFingerDraws) {
    DragFinger(20, 40, 100, 40);
    EXPECT_EQ(Count(), 1U);
}

TEST_F(InkTest, WhileThePenIsNearAHandDrawsNothing) {
    SendProximity(Pen, QEvent::TabletEnterProximity);
    DragFinger(20, 40, 100, 40);
    EXPECT_EQ(Count(), 0U);
    DragPen(Pen, 20, 80, 100, 80);
    EXPECT_EQ(Count(), 1U);
    SendProximity(Pen, QEvent::TabletLeaveProximity);
    DragFinger(20, 40, 100, 40); // at once: the palm is still there
    EXPECT_EQ(Count(), 1U);
}

TEST_F(InkTest, ThePenTakesBackWhatThePalmBegan) {
    QTest::touchEvent(&Widget(), Touch).press(0, InWidget(20, 40).toPoint(), &Widget());
    QTest::touchEvent(&Widget(), Touch).move(0, InWidget(40, 40).toPoint(), &Widget());
    SendProximity(Pen, QEvent::TabletEnterProximity);
    QTest::touchEvent(&Widget(), Touch).release(0, InWidget(40, 40).toPoint(), &Widget());
    EXPECT_EQ(Count(), 0U);
}

TEST_F(InkTest, TwoFingersPushThePaper) {
    DragMouse(20, 20, 100, 240);
    QTest::touchEvent(&Widget(), Touch).press(0, InWidget(50, 150).toPoint(), &Widget());
    QTest::touchEvent(&Widget(), Touch)
        .move(0, InWidget(50, 150).toPoint(), &Widget())
        .press(1, InWidget(90, 150).toPoint(), &Widget());
    QTest::touchEvent(&Widget(), Touch)
        .move(0, InWidget(50, 110).toPoint(), &Widget())
        .move(1, InWidget(90, 110).toPoint(), &Widget());
    QTest::touchEvent(&Widget(), Touch)
        .release(0, InWidget(50, 110).toPoint(), &Widget())
        .release(1, InWidget(90, 110).toPoint(), &Widget());
    Run();
    EXPECT_EQ(Count(), 1U); // the first finger's beginning was no stroke
    EXPECT_NEAR(Ink().View().Offset().Y, 40 * ink::kTicksPerPixel, 2 * ink::kTicksPerPixel);
}

TEST_F(InkTest, TheWheelAndTheBarScrollAndTheInkGoesAlong) {
    DragMouse(20, 100.5, 100, 100.5);
    DragMouse(20, 200, 100, 230);
    const QPointF place = InWidget(60, 60);
    QWheelEvent event(place, Widget().mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Widget(), &event);
    Run();
    EXPECT_TRUE(IsDark(60, 52)); // a step is 48
    EXPECT_FALSE(IsDark(60, 100));
    auto* bar = Widget().findChild<QScrollBar*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->value(), 48 * ink::kTicksPerPixel);
    bar->setValue(0);
    EXPECT_TRUE(IsDark(60, 100));
}

TEST_F(InkTest, EnlargedPaperHasABarBelowItThatBeginsAtTheLeft) {
    const auto barAt = [this](int x) {
        const Color seen = ReadPixel(Host, {x, 244 - ink::kScrollBarWidth / 2 + kClientArea.Top});
        return seen.Red();
    };
    Host.Ink().SetData(Paper, {}); // a memo is opened
    Send(kInkSetZoom, 0, 150);
    Run();
    const int trough = barAt(200);
    EXPECT_GT(trough, 220);
    EXPECT_LT(barAt(40), 180); // the thumb
    EXPECT_LT(barAt(130), 180);
    const auto bars = Widget().findChildren<QScrollBar*>();
    const auto* sideways = *std::find_if(bars.begin(), bars.end(),
                                         [](const QScrollBar* bar) { return bar->orientation() == Qt::Horizontal; });
    EXPECT_TRUE(sideways->isVisible());
    EXPECT_EQ(sideways->value(), 0);
    Ink().ScrollTo({ink::kPaperWidth, 0});
    Run();
    EXPECT_EQ(barAt(40), trough);
    EXPECT_LT(barAt(190), 180);
    Send(kInkSetZoom, 0, 100);
    Run();
    EXPECT_FALSE(sideways->isVisible());
}

TEST_F(InkTest, ANoticeStandsOnForeignPaperUntilSomebodyDraws) {
    const auto darkPixels = [this] {
        Run();
        const QImage image = Widget().grab().toImage().convertToFormat(QImage::Format_Grayscale8);
        int dark = 0;
        for (int y = 0; y < image.height() / 2; ++y) {
            for (int x = 0; x < image.width() * 9 / 10; ++x) {
                dark += qGray(image.pixel(x, y)) < 150 ? 1 : 0;
            }
        }
        return dark;
    };
    const int blank = darkPixels();
    const std::vector<std::uint8_t> foreign{1, 2, 3};
    Host.Ink().SetData(Paper, foreign);
    EXPECT_GT(darkPixels(), blank + 100);
    DragMouse(200, 230, 210, 230);
    EXPECT_EQ(darkPixels(), blank);
}

TEST_F(InkTest, CopiedInkIsAPictureForOtherPrograms) {
    QGuiApplication::clipboard()->clear();
    DragMouse(20, 40, 100, 40);
    Send(EM_SETSEL, 0, -1);
    Send(WM_COPY);
    const QImage picture = QGuiApplication::clipboard()->image();
    ASSERT_FALSE(picture.isNull());
    EXPECT_NEAR(picture.width(), 2 * (80 + 8), 12);
    EXPECT_LT(qGray(picture.pixel(picture.width() / 2, picture.height() / 2)), 60);
    EXPECT_EQ(qGray(picture.pixel(1, 1)), 255);
}

TEST_F(InkTest, APenOfTheRowIsChosenByATap) {
    Send(kInkShowRecorderBar, 1);
    Run();
    DragMouse(8 + 28 * 2 + 14, 256, 8 + 28 * 2 + 14, 256); // the third colour, in the row under the paper
    DragMouse(20, 40.5, 100, 40.5);
    ASSERT_EQ(Count(), 1U);
    EXPECT_EQ(Ink().Ink().Strokes()[0].Body->Tool.Color, ink::PenColor::Red);
    const Color seen = ReadPixel(Host, {60, 40 + kClientArea.Top});
    EXPECT_GT(seen.Red(), 150);
    EXPECT_LT(seen.Green(), 90);
}

TEST_F(InkTest, InkIsSharpAtEveryScale) {
    DragMouse(20, 40.5, 100, 40.5);
    for (const int scale : {1, 2, 3}) {
        Desktop().resize(kScreenSize.Width * scale, kScreenSize.Height * scale);
        Run(std::chrono::milliseconds(150));
        EXPECT_TRUE(IsDark(60, 40)) << scale;
        EXPECT_FALSE(IsDark(60, 44)) << scale;
    }
}

} // namespace
} // namespace tavo::qt
