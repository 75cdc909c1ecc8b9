// Choosing a pen on the bar.
#include "host/ink/recorder_bar.h"

#include "tests/ink/control_desk.h"

namespace tavo::ink {
namespace {

class RecorderBarTest : public ControlDesk {
  protected:
    void TapCell(int cell) {
        const Rect place = PenCell(*Control.RecorderBar(), cell);
        const Point middle{(place.Left + place.Right) / 2, (place.Top + place.Bottom) / 2};
        Tap(middle.X, middle.Y);
    }
};

TEST_F(RecorderBarTest, IsShownAndHidden) {
    EXPECT_FALSE(Control.RecorderBar().has_value());
    Send(kInkShowRecorderBar, 1);
    EXPECT_EQ(Control.RecorderBar(), (Rect{0, 220, 240, 244}));
    EXPECT_EQ(Control.View().Area(), (Rect{0, 0, 227, 220}));
    Send(kInkShowRecorderBar, 0);
    EXPECT_FALSE(Control.RecorderBar().has_value());
    EXPECT_EQ(Control.View().Area(), (Rect{0, 0, 227, 244}));
}

TEST_F(RecorderBarTest, HasFourColoursAndThreeWidthsInItsRow) {
    const Rect row{0, 244, 240, 268};
    ASSERT_EQ(kPenCells, 7);
    for (int cell = 0; cell < kPenCells; ++cell) {
        const Rect place = PenCell(row, cell);
        EXPECT_EQ(place.Top, 244);
        EXPECT_EQ(place.Bottom, 268);
        EXPECT_LE(place.Right, 240);
        EXPECT_EQ(PenCellAt(row, {place.Left, 250}), cell);
        EXPECT_EQ(PenCellAt(row, {place.Right - 1, 267}), cell);
    }
    EXPECT_EQ(PenCellAt(row, {239, 250}), std::nullopt);
}

TEST_F(RecorderBarTest, ThePenChosenDrawsFromThenOn) {
    Write();
    Send(kInkShowRecorderBar, 1);
    Drag(10, 10, 50, 10);
    TapCell(2); // red
    TapCell(6); // the broadest
    Drag(10, 30, 50, 30);
    ASSERT_EQ(Count(), 2U);
    EXPECT_EQ(Control.Ink().Strokes()[0].Body->Tool, (Pen{PenColor::Black, PenWidth::Medium, false}));
    EXPECT_EQ(Control.Ink().Strokes()[1].Body->Tool, (Pen{PenColor::Red, PenWidth::Broad, false}));
}

TEST_F(RecorderBarTest, TheNextMemoBeginsWithTheSamePen) {
    Send(kInkShowRecorderBar, 1);
    TapCell(1);
    InkControl next(Shared);
    EXPECT_EQ(next.ChosenPen().Color, PenColor::Blue);
}

TEST_F(RecorderBarTest, TakesNoInk) {
    Write();
    Send(kInkShowRecorderBar, 1);
    Drag(10, 230, 200, 230);
    EXPECT_EQ(Count(), 0U);
}

} // namespace
} // namespace tavo::ink
