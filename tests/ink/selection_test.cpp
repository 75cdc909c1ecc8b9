// Choosing strokes, and what can be done to them.
#include "tests/ink/control_desk.h"

namespace tavo::ink {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InkSelection : public ControlDesk {
  protected:
    InkSelection() {
        Write();
        Drag(20, 20, 60, 20);  // 0
        Drag(20, 60, 120, 60); // 1
        Choose();
    }

    InkPoint FirstPoint(std::size_t stroke) const {
        const PlacedStroke& placed = Control.Ink().Strokes()[stroke];
        InkPoint point = placed.Body->Points.front();
        point.X += placed.Right;
        point.Y += placed.Down;
        return point;
    }
};

TEST_F(InkSelection, ADragTakesWhatLiesInsideByMoreThanHalf) {
    Drag(10, 10, 65, 70); // all of the first, 45 of 100 of the second
    EXPECT_THAT(Selected(), ElementsAre(0));
    EXPECT_NE(Send(EM_GETSEL), 0);
    Drag(10, 10, 76, 70); // 56 of 100
    EXPECT_THAT(Selected(), ElementsAre(0, 1));
}

TEST_F(InkSelection, ADragMayGoAnyWay) {
    Drag(130, 70, 10, 50);
    EXPECT_THAT(Selected(), ElementsAre(1));
}

TEST_F(InkSelection, ADragOverNothingLetsGo) {
    Send(EM_SETSEL, 0, -1);
    Drag(150, 100, 200, 150);
    EXPECT_THAT(Selected(), IsEmpty());
    EXPECT_EQ(Send(EM_GETSEL), 0);
}

TEST_F(InkSelection, EndsWithTheStrokesThatWereSelected) {
    Send(EM_SETSEL, 0, -1);
    Send(WM_CUT);
    EXPECT_EQ(Send(EM_GETSEL), 0);
    Send(WM_PASTE);
    EXPECT_NE(Send(EM_GETSEL), 0);
    Send(kInkUndo); // takes the pasted ones off
    EXPECT_EQ(Send(EM_GETSEL), 0);
    Send(kInkUndo);
    EXPECT_EQ(Send(EM_GETSEL), 0);
    EXPECT_EQ(Count(), 2U);
}

TEST_F(InkSelection, ATapTakesTheStrokeItMeets) {
    Tap(100, 61);
    EXPECT_THAT(Selected(), ElementsAre(1));
    Tap(150, 150);
    EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(InkSelection, NothingIsDrawnInReading) {
    Drag(10, 100, 60, 140);
    EXPECT_EQ(Count(), 2U);
}

TEST_F(InkSelection, ADragFromWithinMovesIt) {
    Tap(40, 20);
    Drag(40, 20, 50, 45);
    EXPECT_EQ(FirstPoint(0), (InkPoint{30 * 32, 45 * 32, 0, kMaxPressure}));
    EXPECT_THAT(Selected(), ElementsAre(0));
    Send(kInkUndo);
    EXPECT_EQ(FirstPoint(0), (InkPoint{20 * 32, 20 * 32, 0, kMaxPressure}));
    Send(kInkRedo);
    EXPECT_EQ(FirstPoint(0), (InkPoint{30 * 32, 45 * 32, 0, kMaxPressure}));
}

TEST_F(InkSelection, WhatIsMovedStaysOnThePaper) {
    Tap(40, 20);
    Drag(40, 20, -300, -300);
    const InkPoint first = FirstPoint(0);
    EXPECT_GE(first.X, 0);
    EXPECT_LT(first.X, 2 * kTicksPerPixel);
    EXPECT_GE(first.Y, 0);
    EXPECT_LT(first.Y, 2 * kTicksPerPixel);
}

TEST_F(InkSelection, ClearTakesTheSelectionOff) {
    Tap(40, 20);
    Send(WM_CLEAR);
    ASSERT_EQ(Count(), 1U);
    EXPECT_EQ(FirstPoint(0).Y, 60 * 32);
    Send(WM_CLEAR); // nothing is selected
    EXPECT_EQ(Count(), 1U);
    Send(kInkUndo);
    ASSERT_EQ(Count(), 2U);
    EXPECT_EQ(FirstPoint(0).Y, 20 * 32);
}

TEST_F(InkSelection, CutAndPasteBringItBackBesideItsPlace) {
    Tap(40, 20);
    Send(WM_CUT);
    EXPECT_EQ(Count(), 1U);
    EXPECT_EQ(Send(kInkCanPaste), 1);
    Send(WM_PASTE);
    ASSERT_EQ(Count(), 2U);
    EXPECT_EQ(FirstPoint(1), (InkPoint{28 * 32, 28 * 32, 0, kMaxPressure}));
    EXPECT_THAT(Selected(), ElementsAre(1));
    Send(WM_PASTE);
    EXPECT_EQ(FirstPoint(2), (InkPoint{36 * 32, 36 * 32, 0, kMaxPressure}));
    EXPECT_THAT(Selected(), ElementsAre(2));
}

TEST_F(InkSelection, CopyLeavesThePaperAsItIs) {
    std::size_t told = 0;
    const std::uint64_t before = Control.Revision();
    Shared.Copied = [&](const std::vector<PlacedStroke>& strokes) { told = strokes.size(); };
    Send(WM_COPY); // nothing is selected
    EXPECT_EQ(Send(kInkCanPaste), 0);
    Send(EM_SETSEL, 0, -1);
    Send(WM_COPY);
    EXPECT_EQ(told, 2U);
    EXPECT_EQ(Count(), 2U);
    EXPECT_EQ(Control.Revision(), before);
}

TEST_F(InkSelection, PasteComesIntoSight) {
    Send(EM_SETSEL, 0, -1);
    Send(WM_CUT);
    Write();
    for (int i = 0; i < 4; ++i) {
        Drag(20, 20, 30, 230);
        Control.ScrollTo({0, Control.View().PaperSize().Height});
    }
    Send(WM_PASTE);
    EXPECT_TRUE(Control.View().VisibleBox().Meets(Control.Ink().Strokes().back().Bounds));
}

TEST_F(InkSelection, AnotherControlPastesIt) {
    Send(EM_SETSEL, 0, -1);
    Send(WM_COPY);
    InkControl other(Shared);
    other.Resize({240, 244});
    EXPECT_EQ(other.SendMessageW(kInkCanPaste, 0, 0), 1);
    other.SendMessageW(WM_PASTE, 0, 0);
    EXPECT_EQ(other.Ink().Strokes().size(), 2U);
}

TEST_F(InkSelection, WritingLetsGo) {
    Send(EM_SETSEL, 0, -1);
    EXPECT_THAT(Selected(), ElementsAre(0, 1));
    Write();
    EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(InkSelection, TheFrameGoesWithThePen) {
    Tap(40, 20);
    const Box before = Control.SelectionFrame();
    Control.PenDown(PenEnd::Tip, {{40, 20}, kNoPressure, 0});
    Control.PenMove({{45, 30}, kNoPressure, 5});
    EXPECT_EQ(Control.SelectionFrame(), before.Shifted(160, 320));
    Control.PenCancel();
    EXPECT_EQ(Control.SelectionFrame(), before);
}

// Ink that is only looked at.
class InkForReading : public InkSelection {
  protected:
    InkForReading() {
        Send(EM_SETREADONLY, 1);
        Before = Control.GetData();
    }

    ~InkForReading() override {
        EXPECT_EQ(Control.GetData(), Before);
        EXPECT_EQ(Send(EM_CANUNDO) + Send(kInkCanPaste) + Send(kInkCanRedo), 0);
    }

    std::vector<std::uint8_t> Before;
};

TEST_F(InkForReading, APenSelectsAndMovesNothing) {
    Drag(10, 10, 65, 30);
    EXPECT_THAT(Selected(), ElementsAre(0));
    Drag(40, 20, 40, 120); // from within the frame
    EXPECT_EQ(FirstPoint(0).Y, 20 * kTicksPerPixel);
    Tap(60, 60);
    EXPECT_THAT(Selected(), ElementsAre(1));
}

TEST_F(InkForReading, APenThatDrawsElsewhereSelects) {
    Send(kInkSetPenMode, kInkPenDraws);
    Drag(10, 10, 130, 70);
    EXPECT_THAT(Selected(), ElementsAre(0, 1));
}

TEST_F(InkForReading, TheEraserSelects) {
    Drag(10, 20, 65, 20, PenEnd::Eraser);
    EXPECT_EQ(Count(), 2U);
}

TEST_F(InkForReading, NoCommandAndNoKeyChangesIt) {
    Send(EM_SETSEL, 0, -1);
    Send(WM_COPY);
    EXPECT_EQ(Shared.Clipboard.size(), 2U);
    for (const MessageNumber edit : {WM_CUT, WM_PASTE, WM_CLEAR, kInkUndo, kInkRedo}) {
        Send(edit);
    }
    for (const int key : {int{'Z'}, int{'Y'}, int{'X'}, int{'V'}}) {
        EXPECT_TRUE(Control.Key(key, kModifierControl));
    }
    EXPECT_TRUE(Control.Key(VK_DELETE, 0));
    EXPECT_THAT(Selected(), ElementsAre(0, 1));
    Send(EM_SETSEL, -1, 0);
    EXPECT_FALSE(Control.Key(VK_DELETE, 0)); // with nothing selected the key is not the ink's
    EXPECT_TRUE(Control.Key('A', kModifierControl));
    EXPECT_THAT(Selected(), ElementsAre(0, 1));
    Shared.Clipboard.clear();
    EXPECT_TRUE(Control.Key('C', kModifierControl));
    EXPECT_EQ(Shared.Clipboard.size(), 2U);
}

TEST_F(InkForReading, TheProgramCanStillChangeWhatIsShown) {
    Send(EM_SETREADONLY, 0);
    Send(EM_SETSEL, 0, -1);
    Send(WM_CUT);
    EXPECT_EQ(Count(), 0U);
    Send(kInkUndo);
    Send(EM_SETREADONLY, 1);
    EXPECT_EQ(Count(), 2U);
}

} // namespace
} // namespace tavo::ink
