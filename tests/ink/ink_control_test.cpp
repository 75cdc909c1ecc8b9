// What the pen leaves, and what the control tells the program.
#include "tests/ink/control_desk.h"

#include <limits>
#include <string_view>

namespace tavo::ink {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InkControlTest : public ControlDesk {};

std::vector<std::uint8_t> BytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

TEST_F(InkControlTest, FreshPaperIsEmptyAndReads) {
    EXPECT_EQ(Send(kInkGetDataLength), 0);
    EXPECT_THAT(Control.GetData(), IsEmpty());
    EXPECT_EQ(Send(kInkGetPageStyle), 16);
    EXPECT_EQ(Send(kInkGetView), 0);
    EXPECT_EQ(Control.View().Zoom(), 100);
    EXPECT_EQ(Send(EM_CANUNDO), 0);
    EXPECT_EQ(Send(kInkCanRedo), 0);
    EXPECT_EQ(Send(kInkCanPaste), 0);
    EXPECT_EQ(Send(EM_GETSEL), 0);
    EXPECT_EQ(Send(WM_USER + 999), 0);
}

TEST_F(InkControlTest, StyleAndViewAreKept) {
    Send(WM_USER + 287, 2);
    Send(WM_USER + 284, 2);
    EXPECT_EQ(Send(WM_USER + 323), 2);
    EXPECT_EQ(Send(WM_USER + 254), 2);
}

TEST_F(InkControlTest, AStrokeIsWhereThePenWent) {
    Write();
    Control.PenDown(PenEnd::Tip, {{10, 20}, kNoPressure, 500});
    Control.PenMove({{12.5, 20}, kNoPressure, 505});
    Control.PenUp({{12.5, 22}, kNoPressure, 512});
    ASSERT_EQ(Count(), 1U);
    const Stroke& stroke = *Control.Ink().Strokes()[0].Body;
    EXPECT_EQ(stroke.Tool, (Pen{PenColor::Black, PenWidth::Medium, false}));
    EXPECT_EQ(stroke.Started, 1'099'501'800'000);
    EXPECT_THAT(stroke.Points, ElementsAre(InkPoint{320, 640, 0, kMaxPressure}, InkPoint{400, 640, 5, kMaxPressure},
                                           InkPoint{400, 704, 12, kMaxPressure}));
    EXPECT_EQ(Send(kInkGetDataLength), static_cast<int>(Control.GetData().size()));
    EXPECT_GT(Send(kInkGetDataLength), 0);
}

TEST_F(InkControlTest, InkCountsBeforeThePenLeavesThePaper) {
    Write();
    Drag(10, 20, 60, 20);
    Control.PenDown(PenEnd::Tip, {{10, 60}, kNoPressure, 500});
    Control.PenMove({{90, 60}, kNoPressure, 505});
    const std::vector<std::uint8_t> data = Control.GetData();
    EXPECT_EQ(Send(kInkGetDataLength), static_cast<int>(data.size()));
    std::vector<PlacedStroke> strokes;
    ASSERT_EQ(Decode(data, strokes), Reading::Whole);
    ASSERT_EQ(strokes.size(), 2U);
    EXPECT_EQ(strokes[1].Body->Points.size(), 2U);
    Control.PenMove({{90, 90}, kNoPressure, 510}); // and the stroke goes on
    Control.PenUp({{90, 90}, kNoPressure, 515});
    EXPECT_EQ(Control.Ink().Strokes()[1].Body->Points.size(), 3U);
}

TEST_F(InkControlTest, AtAnotherZoomTheStrokeLiesUnderThePen) {
    Write(150);
    Drag(30, 60, 60, 60);
    EXPECT_EQ(Control.Ink().Strokes()[0].Body->Points.front(), (InkPoint{640, 1280, 0, kMaxPressure}));
}

TEST_F(InkControlTest, PressureIsKept) {
    Write();
    Control.PenDown(PenEnd::Tip, {{10, 20}, 100, 0});
    Control.PenMove({{14, 20}, 5000, 5});
    Control.PenUp({{18, 20}, 0, 10});
    const Stroke& stroke = *Control.Ink().Strokes()[0].Body;
    EXPECT_TRUE(stroke.Tool.HasPressure);
    EXPECT_EQ(stroke.Points[0].Pressure, 100);
    EXPECT_EQ(stroke.Points[1].Pressure, kMaxPressure);
    EXPECT_EQ(stroke.Points[2].Pressure, 0);
}

TEST_F(InkControlTest, ATapLeavesADot) {
    Write();
    Tap(50, 50);
    ASSERT_EQ(Count(), 1U);
    EXPECT_EQ(Control.Ink().Strokes()[0].Body->Points.size(), 1U);
}

TEST_F(InkControlTest, PlacesThatAreNoneAreIgnored) {
    Write();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double far = std::numeric_limits<double>::infinity();
    Control.PenDown(PenEnd::Tip, {{nan, 5}, kNoPressure, 0});
    EXPECT_FALSE(Control.IsPenDown());
    Control.PenDown(PenEnd::Tip, {{5, 5}, kNoPressure, 0});
    Control.PenMove({{nan, nan}, kNoPressure, 5});
    Control.PenMove({{far, 7}, kNoPressure, 5});
    Control.PenMove({{-1e300, 1e300}, kNoPressure, 10}); // a place, though not on the paper
    Control.PenUp({{-1e300, 1e300}, kNoPressure, 10});
    ASSERT_EQ(Count(), 1U);
    EXPECT_THAT(Control.Ink().Strokes()[0].Body->Points,
                ElementsAre(InkPoint{160, 160, 0, kMaxPressure}, InkPoint{0, kMaxY, 10, kMaxPressure}));
}

TEST_F(InkControlTest, AGestureTakenBackLeavesNothing) {
    Write();
    Control.PenDown(PenEnd::Tip, {{5, 5}, kNoPressure, 0});
    Control.PenMove({{50, 5}, kNoPressure, 5});
    Control.PenCancel();
    Control.PenMove({{60, 5}, kNoPressure, 10});
    EXPECT_EQ(Count(), 0U);
    EXPECT_EQ(Send(EM_CANUNDO), 0);
}

TEST_F(InkControlTest, TheEraserTakesWholeStrokes) {
    Write();
    Drag(10, 20, 100, 20);
    Drag(10, 60, 100, 60);
    Drag(10, 100, 100, 100);
    Drag(50, 10, 50, 65, PenEnd::Eraser);
    ASSERT_EQ(Count(), 1U);
    EXPECT_EQ(Control.Ink().Strokes()[0].Body->Points[0].Y, 3200);
    Send(kInkUndo); // one way of the eraser is one step
    EXPECT_EQ(Count(), 3U);
}

TEST_F(InkControlTest, TheEraserMeetsWhatItPassesBetweenTwoSamples) {
    Write();
    Drag(10, 50, 100, 50);
    Control.PenDown(PenEnd::Eraser, {{50, 10}, kNoPressure, 0});
    Control.PenMove({{50, 90}, kNoPressure, 5});
    EXPECT_EQ(Count(), 0U);
}

TEST_F(InkControlTest, ThePaperGrowsDownward) {
    Write();
    const int before = Control.View().PaperSize().Height;
    Drag(20, 20, 100, 230);
    const int after = Control.View().PaperSize().Height;
    EXPECT_GT(after, before + 100 * kTicksPerPixel);
    Control.ScrollTo({0, after});
    EXPECT_EQ(Control.View().Offset().Y, after - Control.View().Extent().Height);
    Drag(20, 20, 100, 230);
    EXPECT_GT(Control.View().PaperSize().Height, after);
}

TEST_F(InkControlTest, TheWheelAndKeysScroll) {
    Write();
    Drag(20, 20, 100, 230);
    Control.Wheel(-2);
    EXPECT_EQ(Control.View().Offset().Y, 96 * kTicksPerPixel);
    EXPECT_TRUE(Control.Key(VK_UP, 0));
    EXPECT_EQ(Control.View().Offset().Y, 80 * kTicksPerPixel);
    Control.Wheel(5);
    EXPECT_EQ(Control.View().Offset().Y, 0);
    EXPECT_FALSE(Control.Key(VK_F1, 0));
}

TEST_F(InkControlTest, ForeignBytesComeBackUnlessSomebodyDraws) {
    const std::vector<std::uint8_t> foreign = BytesOf("{\\rtf1 a note}");
    EXPECT_FALSE(Control.SetData(foreign));
    Write();
    EXPECT_EQ(Control.GetData(), foreign);
    EXPECT_EQ(Send(kInkGetDataLength), static_cast<int>(foreign.size()));
    EXPECT_EQ(Control.Notice(), u"This memo was written by another program.");
    Drag(10, 20, 100, 20);
    EXPECT_EQ(Control.Notice(), u"");
    EXPECT_EQ(Control.GetData(), Encode(Control.Ink().Strokes()));
    Send(kInkUndo);
    EXPECT_EQ(Control.GetData(), foreign);
}

TEST_F(InkControlTest, DamagedInkComesBackToo) {
    std::vector<std::uint8_t> damaged = Encode(WriteByHand(3, 20));
    damaged.pop_back();
    EXPECT_FALSE(Control.SetData(damaged));
    EXPECT_EQ(Control.GetData(), damaged);
    EXPECT_EQ(Control.Notice(), u"This memo is damaged and cannot be shown.");
}

TEST_F(InkControlTest, LoadedInkComesBackByteForByte) {
    const std::vector<std::uint8_t> bytes = Encode(WriteByHand(30, 60));
    EXPECT_TRUE(Control.SetData(bytes));
    EXPECT_EQ(Control.GetData(), bytes);
    EXPECT_EQ(Send(EM_CANUNDO), 0);
    EXPECT_EQ(Control.Revision(), 0U);
}

} // namespace
} // namespace tavo::ink
