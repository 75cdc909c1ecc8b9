// What the month page draws: its strips, its header, and one cell step by step.
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using headless::DrawCall;
using headless::DrawKind;
using headless::Transcript;

constexpr Color kWhite = Color::FromRgb(255, 255, 255);

class CalendarPageLook : public testing::Test {
  protected:
    // November 2004 begins on a Monday, so row 1 begins with the 7th.
    void Open(const SYSTEMTIME& now = At(2004, 11, 3)) {
        Program.emplace(now);
        Program->GivenAppointment(u"Long ago", At(1990, 1, 1), At(1990, 1, 1)); // an empty calendar says what to do
        ASSERT_TRUE(Program->Start());
    }

    // A tap repaints everything in one go, so the frame's calls are those of the whole page.
    void Tap(int row, int column) {
        Program->TapAside(10 + 33 * column, 70 + 26 * row);
        ASSERT_TRUE(Program->Settle());
    }

    const Transcript& Calls() const { return Program->Device.See.LastFrame()->Calls; }

    // The fills, texts and pictures that begin within a cell.
    std::string DrawnIn(int row, int column) const {
        const Rect cell = Rect::FromSize(4 + 33 * column, 58 + 26 * row, 33, 26);
        Transcript within;
        for (const DrawCall& call : Calls()) {
            if (call.Kind != DrawKind::Line && cell.Contains({call.Area.Left, call.Area.Top})) {
                within.push_back(call);
            }
        }
        return ToText(within);
    }

    std::string FontOf(int row, int column) const {
        const Rect cell = Rect::FromSize(4 + 33 * column, 58 + 26 * row, 33, 26);
        std::string font;
        for (const DrawCall& call : Calls()) {
            if (call.Kind == DrawKind::Text && cell.Contains({call.Area.Left, call.Area.Top})) {
                font = call.Font;
            }
        }
        return font;
    }

    std::optional<RunningProgram> Program;
};

TEST_F(CalendarPageLook, StripsAndHeaderAreDrawnBeforeTheGrid) {
    Open();
    Program->ShowPage(PageNumber::Calendar);
    Tap(1, 1);
    ASSERT_GE(Calls().size(), 7U);
    const Transcript chrome(Calls().begin(), Calls().begin() + 7);
    EXPECT_EQ(ToText(chrome), "bitmap 139 0,241,240,267 from 0,0,240,26\n"
                              "bitmap 141 120,241,180,267 from 0,0,60,26\n"
                              "bitmap 147 0,42,240,58 from 0,0,240,16\n"
                              "bitmap 148 0,215,240,241 from 0,0,240,26\n"
                              "fill 0,0,205,42 #FFFFFF\n"
                              "text 20,5,220,30 #000000 format 37 [Comic Sans MS -17 700] \"Mon, Nov, 08, 2004\"\n"
                              "bitmap 156 205,5,231,31 from 0,0,26,26\n");
}

TEST_F(CalendarPageLook, ThePressedTodayButtonIsTheSecondImage) {
    Open();
    Program->ShowPage(PageNumber::Calendar);
    Program->Device.Press(210, 10);
    ASSERT_TRUE(Program->Settle());
    EXPECT_EQ(ToText(Calls().back()), "bitmap 156 205,5,231,31 from 26,0,52,26");
    Program->Device.MoveTo(150, 230);
    ASSERT_TRUE(Program->Settle());
    EXPECT_EQ(ToText(Calls().back()), "bitmap 156 205,5,231,31 from 0,0,26,26");
}

TEST_F(CalendarPageLook, WithoutAFullPaintOnlyTheHeaderIsDrawn) {
    Open();
    Program->ShowPage(PageNumber::Calendar);
    Program->Device.Press(210, 10);
    ASSERT_TRUE(Program->Settle());
    EXPECT_EQ(ToText(Calls()), "fill 0,0,205,42 #FFFFFF\n"
                               "text 20,5,220,30 #000000 format 37 [Comic Sans MS -17 700] \"Wed, Nov, 03, 2004\"\n"
                               "bitmap 156 205,5,231,31 from 26,0,52,26\n");
}

TEST_F(CalendarPageLook, WhenThePageComesBackItsGridIsNotDrawnAgain) {
    Open();
    Program->ShowPage(PageNumber::Calendar);
    Program->ShowPage(PageNumber::Clock);
    Program->ShowPage(PageNumber::Calendar);
    EXPECT_EQ(ToText(Calls()), "bitmap 139 0,241,240,267 from 0,0,240,26\n"
                               "bitmap 141 120,241,180,267 from 0,0,60,26\n"
                               "bitmap 147 0,42,240,58 from 0,0,240,16\n"
                               "bitmap 148 0,215,240,241 from 0,0,240,26\n"
                               "fill 0,0,205,42 #FFFFFF\n"
                               "text 20,5,220,30 #000000 format 37 [Comic Sans MS -17 700] \"Wed, Nov, 03, 2004\"\n"
                               "bitmap 156 205,5,231,31 from 0,0,26,26\n");
}

TEST_F(CalendarPageLook, WhatNoStripCoversIsWhiteFromTheFirstPaint) {
    Open();
    Program->ShowPage(PageNumber::Calendar);
    for (const Point point : {Point{0, 0}, Point{239, 20}, Point{210, 40}, Point{1, 100}, Point{238, 100}}) {
        EXPECT_EQ(Program->Device.See.PixelAt(point.X, point.Y), kWhite) << point.X << ", " << point.Y;
    }
}

TEST_F(CalendarPageLook, ACellIsFilledThenErasedThenMarkedThenNumbered) {
    Open();
    Program->WriteFile("20041108_101010.pwi", "ink");
    Program->ShowPage(PageNumber::Calendar);
    Tap(2, 2);
    EXPECT_EQ(DrawnIn(1, 1), "fill 37,84,70,110 #FFFFFF\n"
                             "bitmap 150 38,105,70,110 from 0,0,32,5\n"
                             "fill 63,106,68,110 #00FF00\n"
                             "text 39,84,70,110 #000000 format 32 [Arial -13 700] \"8\"\n");
    EXPECT_EQ(DrawnIn(2, 2), "fill 70,110,103,136 #46A3FA\n"
                             "bitmap 150 71,131,103,136 from 0,0,32,5\n"
                             "text 72,110,103,136 #FFFFFF format 32 [Arial -13 700] \"16\"\n");
}

TEST_F(CalendarPageLook, AHolidaysNumberIsDrawnOnceMoreBeforeItsMark) {
    // A second holiday on the day draws nothing more: on smooth edges the number would grow bolder.
    for (const int holidays : {1, 2}) {
        Open();
        for (int i = 0; i < holidays; ++i) {
            Program->State().Categories.HolidayList.Append(Program->GivenAllDay(u"Feast", At(2004, 11, 8)));
        }
        Program->ShowPage(PageNumber::Calendar);
        Tap(2, 2);
        EXPECT_EQ(DrawnIn(1, 1), "fill 37,84,70,110 #FFFFFF\n"
                                 "bitmap 150 38,105,70,110 from 0,0,32,5\n"
                                 "text 39,84,70,110 #000000 format 32 [Arial -13 700] \"8\"\n"
                                 "text 39,84,70,110 #FF0000 format 32 [Arial -13 700] \"8\"\n"
                                 "fill 45,106,50,110 #FF0000\n")
            << holidays;
    }
}

// The last frame holds what was drawn since the one before it: the marks alone, so the bare grid was shown first.
TEST_F(CalendarPageLook, TheBareGridShowsBeforeTheMarks) {
    Open();
    Program->GivenAppointment(u"Dentist", At(2004, 12, 8, 9), At(2004, 12, 8, 10));
    Program->ShowPage(PageNumber::Calendar);
    Program->Device.Key(VK_RIGHT);
    ASSERT_TRUE(Program->Settle());
    EXPECT_EQ(ToText(Calls()), "fill 123,106,128,110 #FFFF00\n");
    Program->TapAside(50, 200); // the same month again, in one go
    ASSERT_TRUE(Program->Settle());
    EXPECT_GT(Calls().size(), 42U * 3);
}

TEST_F(CalendarPageLook, EveryCellLineIsWithinItsLimits) {
    Open();
    Program->ShowPage(PageNumber::Calendar);
    Tap(1, 1);
    int numbers = 0;
    for (const DrawCall& call : Calls()) {
        if (call.Kind != DrawKind::Text || call.Area.Top < 58) {
            continue;
        }
        const int column = (call.Area.Left - 6) / 33;
        const int row = (call.Area.Top - 58) / 26;
        EXPECT_EQ(call.Area, (Rect{6 + 33 * column, 58 + 26 * row, 37 + 33 * column, 84 + 26 * row}));
        EXPECT_EQ(call.Format, DT_SINGLELINE); // top left
        ++numbers;
    }
    EXPECT_EQ(numbers, 42);
}

TEST_F(CalendarPageLook, DaysOfOtherMonthsAndTheirHolidaysHaveTheSmallerFont) {
    Open();
    const Oid holiday = Program->GivenAllDay(u"Feast", At(2004, 12, 8));
    Program->State().Categories.HolidayList.Append(holiday);
    Program->ShowPage(PageNumber::Calendar);
    Tap(2, 2);
    EXPECT_EQ(FontOf(0, 0), "Arial -12 700"); // 31 October
    EXPECT_EQ(FontOf(5, 2), "Arial -12 700"); // 7 December
    EXPECT_EQ(FontOf(0, 1), "Arial -13 700"); // 1 November
    EXPECT_EQ(FontOf(4, 2), "Arial -13 700"); // 30 November
    EXPECT_EQ(DrawnIn(5, 3), "fill 103,188,136,214 #FFFFFF\n"
                             "bitmap 150 104,209,136,214 from 0,0,32,5\n"
                             "text 105,188,136,214 #969696 format 32 [Arial -12 700] \"8\"\n"
                             "text 105,188,136,214 #FF0000 format 32 [Arial -12 700] \"8\"\n"
                             "fill 111,210,116,214 #FF0000\n");
}

TEST_F(CalendarPageLook, TheSelectedDayOfAnotherMonthHasTheLargerFont) {
    Open();
    Program->ShowPage(PageNumber::Calendar);
    Tap(5, 4);
    EXPECT_EQ(DrawnIn(5, 4), "fill 136,188,169,214 #46A3FA\n"
                             "bitmap 150 137,209,169,214 from 0,0,32,5\n"
                             "text 138,188,169,214 #FFFFFF format 32 [Arial -13 700] \"9\"\n");
}

TEST_F(CalendarPageLook, TodayInAnotherMonthIsGreyWithItsNumberInTheSmallerFont) {
    Open(At(2004, 12, 1));
    Program->ShowPage(PageNumber::Calendar);
    Program->Device.Key(VK_LEFT); // to November, with its 1st selected
    ASSERT_TRUE(Program->Settle());
    Tap(2, 2);
    EXPECT_EQ(DrawnIn(4, 3), "fill 103,162,136,188 #CCCCCC\n"
                             "bitmap 150 104,183,136,188 from 0,0,32,5\n"
                             "text 105,162,136,188 #969696 format 32 [Arial -12 700] \"1\"\n");
}

TEST_F(CalendarPageLook, GridLinesAreDrawnAfterTheCells) {
    Open();
    Program->ShowPage(PageNumber::Calendar);
    Tap(1, 1);
    Transcript lines;
    std::size_t lastCell = 0;
    std::size_t firstLine = 0;
    for (std::size_t index = 0; index < Calls().size(); ++index) {
        const DrawCall& call = Calls()[index];
        if (call.Kind == DrawKind::Line) {
            firstLine = lines.empty() ? index : firstLine;
            lines.push_back(call);
        } else {
            lastCell = index;
        }
    }
    EXPECT_LT(lastCell, firstLine);
    ASSERT_EQ(lines.size(), 14U);
    EXPECT_EQ(ToText(lines.front()), "line 4,84 to 236,84 pen 1 #000000");
    EXPECT_EQ(ToText(lines[5]), "line 4,214 to 236,214 pen 1 #000000");
    EXPECT_EQ(ToText(lines[6]), "line 4,58 to 4,214 pen 1 #000000");
    EXPECT_EQ(ToText(lines.back()), "line 235,58 to 235,214 pen 1 #000000");
}

} // namespace
} // namespace tavo::test
