// The picture of the paper: smooth lines, and never other than if it were painted anew.
#include "host/ink/ink_canvas.h"
#include "tests/ink/control_desk.h"

#include <random>

namespace tavo::ink {
namespace {

class InkCanvasTest : public ControlDesk {
  protected:
    static constexpr double kScale = 2;

    InkCanvasTest() { Write(); }

    void Fit(InkCanvas& canvas) const {
        const Rect area = Control.View().Area();
        canvas.Resize(static_cast<int>(area.Width() * kScale), static_cast<int>(area.Height() * kScale), kScale);
    }

    PixelBox Update() {
        Fit(Canvas);
        return Canvas.Update(Control);
    }

    // Of the picture painted whole now.
    std::vector<Pixel> PaintAnew() const {
        InkCanvas fresh;
        Fit(fresh);
        InkControl& control = const_cast<InkControl&>(Control);
        fresh.Update(control);
        return PixelsOf(fresh.Shown());
    }

    static std::vector<Pixel> PixelsOf(const Picture& picture) {
        return {picture.Row(0), picture.Row(0) + static_cast<std::ptrdiff_t>(picture.Width()) * picture.Height()};
    }

    int Darkness(int x, int y) const { return 255 - static_cast<int>(Canvas.Shown().Row(y)[x] & 0xFF); }

    InkCanvas Canvas;
};

TEST_F(InkCanvasTest, ALineIsAsWideAsItsPen) {
    Send(kInkSetPageStyle, kInkStyleNone);
    Drag(20, 40, 100, 40);
    Update();
    int inked = 0;
    for (int y = 60; y < 100; ++y) {
        inked += Darkness(120, y);
    }
    EXPECT_NEAR(inked / 255.0, 1.8 * kScale, 0.1); // in the middle of the line
    EXPECT_EQ(Darkness(120, 80), 255);
    EXPECT_EQ(Darkness(230, 80), 0);
}

TEST_F(InkCanvasTest, PressureMakesTheLineWide) {
    Send(kInkSetPageStyle, kInkStyleNone);
    const auto draw = [&](double y, int pressure) {
        Control.PenDown(PenEnd::Tip, {{20, y}, pressure, 0});
        Control.PenMove({{60, y}, pressure, 5});
        Control.PenUp({{100, y}, pressure, 10});
    };
    draw(40, 50);
    draw(80, 1000);
    Update();
    int light = 0;
    int heavy = 0;
    for (int y = 0; y < 40; ++y) {
        light += Darkness(120, 60 + y);
        heavy += Darkness(120, 140 + y);
    }
    EXPECT_GT(heavy, 3 * light);
    EXPECT_GT(light, 255);
}

TEST_F(InkCanvasTest, AcuteCornersAreRounded) {
    Send(kInkSetPageStyle, kInkStyleNone);
    Control.PenDown(PenEnd::Tip, {{20, 40}, kNoPressure, 0});
    Control.PenMove({{100, 40}, kNoPressure, 5});
    Control.PenUp({{100, 120}, kNoPressure, 10});
    Update();
    EXPECT_EQ(Darkness(199, 81), 0);  // the corner itself is cut
    EXPECT_GT(Darkness(180, 100), 0); // by a curve from middle to middle
}

TEST_F(InkCanvasTest, ANewSampleChangesOnlyTheEndOfTheLine) {
    Update();
    Control.PenDown(PenEnd::Tip, {{20, 40}, kNoPressure, 0});
    for (int i = 1; i < 40; ++i) {
        Control.PenMove({{20.0 + i * 2, 40}, kNoPressure, static_cast<std::uint32_t>(5 * i)});
        const PixelBox changed = Update();
        EXPECT_LT(changed.Right - changed.Left, 40) << i;
        EXPECT_LT(changed.Bottom - changed.Top, 16) << i;
        EXPECT_FALSE(changed.IsEmpty()) << i;
    }
    Control.PenUp({{100, 40}, kNoPressure, 300});
    const PixelBox changed = Update();
    EXPECT_LT(changed.Right - changed.Left, 40);
}

TEST_F(InkCanvasTest, NothingChangedPaintsNothing) {
    Drag(20, 20, 100, 100);
    EXPECT_FALSE(Update().IsEmpty());
    EXPECT_TRUE(Update().IsEmpty());
}

TEST_F(InkCanvasTest, TheStrokeBeingDrawnLooksAsItWillWhenItIsFinished) {
    Update();
    Control.PenDown(PenEnd::Tip, {{20, 20}, 300, 0});
    for (int i = 1; i < 60; ++i) {
        Control.PenMove({{20.0 + 3 * i, 60 + 30 * std::sin(i / 4.0)}, 300 + 8 * i, static_cast<std::uint32_t>(i)});
        Update();
    }
    const std::vector<Pixel> live = PixelsOf(Canvas.Shown());
    Control.PenUp({{197, 60 + 30 * std::sin(59 / 4.0)}, kNoPressure, 300});
    Update();
    EXPECT_EQ(PixelsOf(Canvas.Shown()), live);
    EXPECT_EQ(live, PaintAnew());
}

// Whatever is done, in whatever order, painting the changes alone gives the picture that painting all of it gives.
TEST_F(InkCanvasTest, PaintingChangesGivesWhatPaintingAllGives) {
    std::mt19937 random(3);
    const auto number = [&](int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); };
    const auto any = [&] { return ViewPoint{static_cast<double>(number(225)), static_cast<double>(number(215))}; };
    std::size_t most = 0;
    for (int i = 0; i < 250; ++i) {
        most = std::max(most, Count());
        switch (number(10)) {
        case 0:
            Drag(any().X, any().Y, any().X, any().Y, PenEnd::Eraser);
            break;
        case 1:
            Send(number(2) == 0 ? kInkUndo : kInkRedo);
            break;
        case 2:
            Control.ScrollTo({number(8000), number(12000)});
            break;
        case 3:
            Send(kInkSetZoom, 0, kZooms[static_cast<std::size_t>(number(5))]);
            break;
        case 4:
            Choose();
            Drag(any().X, any().Y, any().X, any().Y);
            Drag(any().X, any().Y, any().X, any().Y);
            break;
        case 5:
            Choose();
            Send(EM_SETSEL, 0, number(2) == 0 ? -1 : 0);
            break;
        case 6:
            Send(kInkSetPageStyle, 1 << (1 + number(6)));
            break;
        default:
            Send(kInkSetPenMode, kInkPenDraws);
            Control.PenDown(PenEnd::Tip, {any(), number(1024), 0});
            for (int sample = 1; sample < 20; ++sample) {
                Control.PenMove({any(), number(1024), static_cast<std::uint32_t>(sample)});
                if (number(3) == 0) {
                    Update();
                }
            }
            number(5) == 0 ? Control.PenCancel() : Control.PenUp({any(), kNoPressure, 30});
            break;
        }
        if (number(3) != 0) {
            Update();
            ASSERT_EQ(PixelsOf(Canvas.Shown()), PaintAnew()) << i;
        }
    }
    EXPECT_GT(most, 5U);
}

TEST_F(InkCanvasTest, AStrokeOfAMillionPointsIsPainted) {
    Stroke stroke = DrawLine(10, 10, 200, 200, 1'000'000);
    EXPECT_TRUE(Control.SetData(Encode(std::vector{Place(std::move(stroke))})));
    Send(kInkSetPageStyle, kInkStyleNone);
    Update();
    EXPECT_EQ(Darkness(200, 200), 255);
}

TEST_F(InkCanvasTest, RuledPaperHasALineEverySixteenPixels) {
    Update();
    EXPECT_GT(Darkness(50, 32), 0);
    EXPECT_EQ(Darkness(50, 40), 0);
    EXPECT_GT(Darkness(50, 64), 0);
    EXPECT_EQ(Darkness(50, 2), 0);
}

} // namespace
} // namespace tavo::ink
