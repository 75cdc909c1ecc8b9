// The off-screen surface of a painted window.
#include "framework/painted_window.h"

#include "framework/message_pump.h"
#include "host/headless/device.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

constexpr Color kRed = Color::FromRgb(255, 0, 0);

class RedWindow : public CPaintedWindow {
  public:
    explicit RedWindow(CMessagePump& pump) : CPaintedWindow(pump, {240, 267}) {
        WindowDescription description;
        description.Kind = WindowKind::Dialog;
        description.Visible = true;
        Create(description);
    }

    int Repaints = 0;
    int Paints = 0;
    std::vector<bool> WereFirst; // of the paints: whether nothing was on the surface

  protected:
    void RepaintAll() override { ++Repaints; }

    void Paint() override {
        ++Paints;
        WereFirst.push_back(FirstPaint);
        Surface().FillRect({10, 10, 20, 20}, kRed);
        DropPainted();
        PaintedItem item;
        item.Bounds = {10, 10, 20, 20};
        item.Role = PaintedRole::Button;
        item.Name = u"Today";
        Declare(item);
        PresentSurface();
    }
};

TEST(PaintedWindow, ShowsItsSurfaceAndWhatItDeclared) {
    headless::Device device;
    CMessagePump pump(device.Host());
    RedWindow window(pump);
    ASSERT_TRUE(device.Finish(pump));
    EXPECT_EQ(device.See.PixelAt(15, 15), kRed);
    EXPECT_TRUE(device.See.FindItem(PaintedRole::Button, u"Today").has_value());
    window.Invalidate();
    ASSERT_TRUE(device.Finish(pump));
    EXPECT_EQ(window.Paints, 2);
    EXPECT_EQ(device.See.Items().size(), 1u); // dropped before it was declared again
    EXPECT_EQ(device.Host().Drawn.SurfacesMade(), 1);
}

TEST(PaintedWindow, MakesItsSurfaceAnewWhenTheScaleChanges) {
    headless::Device device;
    CMessagePump pump(device.Host());
    RedWindow window(pump);
    device.Do([&] { window.Invalidate(); });
    device.ChangeScale();
    ASSERT_TRUE(device.Finish(pump));
    EXPECT_EQ(window.WereFirst, (std::vector<bool>{true, false, true}));
    EXPECT_EQ(window.Repaints, 1);
    EXPECT_EQ(window.Paints, 3);
    EXPECT_EQ(device.Host().Drawn.SurfacesMade(), 2);
}

} // namespace

} // namespace tavo
