// The month page: which days it shows, and how keys and taps move through them.
#include "tests/calendar/calendar_page_desk.h"
#include "tests/support/folder_probe.h"

#include <algorithm>

namespace tavo::test {
namespace {

TEST_F(CalendarPage, OpensOnTodayWithTodaySelected) {
    Open(At(2004, 11, 3));
    EXPECT_EQ(Program->Header(), u"Wed, Nov, 03, 2004");
    EXPECT_EQ(Program->SelectedCell(), 3);
    EXPECT_EQ(Program->CellName(0, 3), u"2004-11-03");
}

TEST_F(CalendarPage, AMonthThatBeginsOnSundayStartsInTheFirstCell) {
    Open(At(2026, 2, 10));
    EXPECT_EQ(Program->CellName(0, 0), u"2026-02-01");
    EXPECT_EQ(Program->CellName(5, 6), u"2026-03-14");
}

TEST_F(CalendarPage, FebruaryFollowsTheLeapRule) {
    Open(At(1904, 2, 10));
    Press(VK_UP, 4); // 1900 begins on a Thursday
    EXPECT_EQ(Program->CellName(0, 4), u"1900-02-01");
    EXPECT_EQ(Program->CellName(4, 3), u"1900-02-28");
    EXPECT_EQ(Program->CellName(4, 4), u"1900-03-01");
    Open(At(2000, 2, 10));
    EXPECT_EQ(Program->CellName(4, 2), u"2000-02-29");
    EXPECT_EQ(Program->CellName(4, 3), u"2000-03-01");
    Open(At(2100, 2, 10));
    EXPECT_EQ(Program->CellName(4, 0), u"2100-02-28");
    EXPECT_EQ(Program->CellName(4, 1), u"2100-03-01");
}

TEST_F(CalendarPage, TheLengthOfFebruaryIsSetAsTheYearChanges) {
    Open(At(2003, 3, 10));
    Press(VK_DOWN); // March 2004, after a February of 29 days
    EXPECT_EQ(Program->CellName(0, 0), u"2004-02-29");
    EXPECT_EQ(Program->CellName(0, 1), u"2004-03-01");
}

TEST_F(CalendarPage, LeftAndRightGoByMonthAcrossTheYear) {
    Open(At(2004, 12, 10));
    Press(VK_RIGHT);
    EXPECT_EQ(Program->Header(), u"Mon, Jan, 10, 2005");
    Press(VK_LEFT);
    EXPECT_EQ(Program->Header(), u"Fri, Dec, 10, 2004");
}

TEST_F(CalendarPage, ASelectedDayThatTheMonthLacksIsShownByNoCell) {
    Open(At(2005, 1, 31));
    Press(VK_RIGHT);
    EXPECT_EQ(Program->SelectedCell(), -1);
    EXPECT_EQ(Program->Header(), u""); // the 31st of February has no picture
    EXPECT_EQ(Program->CellName(0, 2), u"2005-02-01");
    Press(VK_RIGHT); // the displayed day was cut to the 28th
    EXPECT_EQ(Program->Header(), u"Mon, Mar, 28, 2005");
}

// The month's length is that of the new year before the displayed day is cut to it.
TEST_F(CalendarPage, TheTwentyNinthOfFebruaryIsCutByTheYearThatComes) {
    Open(At(2004, 2, 29));
    Press(VK_DOWN);
    EXPECT_EQ(Program->Header(), u""); // 29 February 2005 has no picture
    EXPECT_EQ(Program->SelectedCell(), -1);
    EXPECT_EQ(Program->CellName(4, 1), u"2005-02-28");
    EXPECT_EQ(Program->CellName(4, 2), u"2005-03-01");
    Press(VK_RIGHT);
    EXPECT_EQ(Program->Header(), u"Mon, Mar, 28, 2005");
    Open(At(2003, 2, 28));
    Press(VK_DOWN);
    EXPECT_EQ(Program->Header(), u"Sat, Feb, 28, 2004");
    EXPECT_EQ(Program->CellName(4, 0), u"2004-02-29");
}

TEST_F(CalendarPage, TodayWhileSelectedIsBlueAndNotGrey) {
    Open(At(2004, 11, 3));
    EXPECT_EQ(Pixel(110, 64), kBlue);
    EXPECT_EQ(Program->NumberIn(0, 3).Ink, kWhite);
    Tap(38, 85);
    EXPECT_EQ(Pixel(110, 64), kGrey);
    EXPECT_EQ(Program->NumberIn(0, 3).Ink, kBlack);
}

TEST_F(CalendarPage, AnyOtherKeyChangesNeitherMonthNorSelection) {
    Open(At(2004, 11, 3));
    Press(VK_HOME);
    EXPECT_EQ(Program->Header(), u"Wed, Nov, 03, 2004");
    EXPECT_EQ(Program->CellName(0, 1), u"2004-11-01");
}

TEST_F(CalendarPage, ATapSelectsTheDayAndNotTheMonth) {
    Open(At(2004, 11, 3));
    Tap(38, 85);
    EXPECT_EQ(Program->Header(), u"Mon, Nov, 08, 2004");
    EXPECT_EQ(Program->SelectedCell(), 8);
    EXPECT_EQ(Pixel(50, 90), kBlue);
    EXPECT_EQ(Pixel(110, 64), kGrey); // today
}

TEST_F(CalendarPage, ATappedDayOfTheNextMonthIsHighlightedWhileTheMonthStays) {
    Open(At(2004, 11, 3));
    Tap(150, 200);
    EXPECT_EQ(Program->Header(), u"Thu, Dec, 09, 2004");
    EXPECT_EQ(Program->SelectedCell(), 39);
    EXPECT_EQ(Program->CellName(0, 1), u"2004-11-01");
    EXPECT_EQ(Pixel(150, 192), kBlue);
    EXPECT_EQ(Program->NumberIn(5, 4).Ink, kWhite);
}

TEST_F(CalendarPage, ATapLeftOfTheFirstGridLineStillSelectsSunday) {
    Open(At(2004, 11, 3));
    Tap(2, 90);
    EXPECT_EQ(Program->Header(), u"Sun, Nov, 07, 2004");
}

TEST_F(CalendarPage, ATapRightOfTheLastColumnSelectsNothing) {
    Open(At(2004, 11, 3));
    Tap(235, 90);
    EXPECT_EQ(Program->Header(), u"Wed, Nov, 03, 2004");
    Tap(234, 90);
    EXPECT_EQ(Program->Header(), u"Sat, Nov, 13, 2004");
}

TEST_F(CalendarPage, TheEdgesOfTheGridSelectNothing) {
    Open(At(2004, 11, 3));
    Tap(50, 58);
    EXPECT_EQ(Program->SelectedCell(), 3);
    Tap(50, 214);
    EXPECT_EQ(Program->SelectedCell(), 3);
    Tap(50, 59);
    EXPECT_EQ(Program->SelectedCell(), 1);
    Tap(50, 213);
    EXPECT_EQ(Program->SelectedCell(), 36);
}

TEST_F(CalendarPage, AsksForTheMonthFromTheFirstOfTheOneBeforeToTheGridsEnd) {
    Open(At(2004, 11, 3));
    const AskedRestrictions asked(Program->State().Store.CalendarFolder);
    Press(VK_RIGHT);
    ASSERT_FALSE(asked.Texts.empty());
    EXPECT_EQ(asked.Texts.back(), u"[Start] >= 11/1/2004 and [Start] <= 1/9/2005 and [End] >= 11/28/2004\n");
}

TEST_F(CalendarPage, TheDayIsReadWhenItIsAskedFor) {
    Open(At(2004, 11, 3));
    const AskedRestrictions asked(Program->State().Store.CalendarFolder);
    Press(VK_RIGHT, 2);
    const std::u16string day = u"[Start] <= 1/3/2005 and [End] >= 1/3/2005";
    const auto days = [&] { return std::count(asked.Texts.begin(), asked.Texts.end(), day); };
    EXPECT_EQ(asked.Texts.size(), 2U) << "of two months, and of no day that was passed";
    for (int openings = 0; openings < 2; ++openings) {
        Program->Device.Key(VK_RETURN);
        Program->Device.Key(VK_ESCAPE); // closes the day's menu
        ASSERT_TRUE(Program->Settle());
        EXPECT_EQ(days(), openings + 1);
    }
}

TEST_F(CalendarPage, MidnightMovesTodayWhileThePageIsOnShow) {
    Open(At(2004, 11, 3, 23, 58));
    Tap(10, 200);
    EXPECT_EQ(Pixel(110, 64), kGrey);
    Program->Device.AdvanceClock(shell::Milliseconds(119'000));
    ASSERT_TRUE(Program->Settle());
    EXPECT_EQ(Pixel(110, 64), kGrey);
    Program->Device.AdvanceClock(shell::Milliseconds(1000));
    ASSERT_TRUE(Program->Settle());
    EXPECT_EQ(Pixel(110, 64), kWhite);
    EXPECT_EQ(Pixel(143, 64), kGrey);
    EXPECT_EQ(Program->SelectedCell(), 35); // what was chosen stays chosen
    Program->Device.AdvanceClock(shell::Milliseconds(24 * 3600 * 1000));
    ASSERT_TRUE(Program->Settle());
    EXPECT_EQ(Pixel(176, 64), kGrey);
}

TEST_F(CalendarPage, AClockThatWasSetIsNoticedWithinTenMinutes) {
    Open(At(2004, 11, 3, 9));
    Tap(10, 200);
    Program->Device.SetClock(At(2004, 11, 5, 9));
    Program->Device.AdvanceClock(shell::Milliseconds(10 * 60 * 1000));
    ASSERT_TRUE(Program->Settle());
    EXPECT_EQ(Pixel(110, 64), kWhite);
    EXPECT_EQ(Pixel(176, 64), kGrey);
}

TEST_F(CalendarPage, SleepsUntilMidnightAndNeverLongerThanTenMinutes) {
    const auto timeToWake = [&] {
        auto& host = Program->Device.Host();
        const auto isPage = [&](WindowHandle window) { return window == Program->Device.See.Top(); };
        return host.State.Timers.NextDue(isPage).value_or(0) - host.Time.GetMilliseconds();
    };
    SYSTEMTIME evening = At(2004, 11, 3, 23, 57);
    evening.Second = 30;
    Open(evening);
    EXPECT_EQ(timeToWake(), 150'000);
    Program->Device.AdvanceClock(shell::Milliseconds(150'000));
    ASSERT_TRUE(Program->Settle());
    EXPECT_EQ(timeToWake(), 600'000);
    Open(At(2004, 11, 3, 9));
    EXPECT_EQ(timeToWake(), 600'000);
}

TEST_F(CalendarPage, NumbersAreColouredByDayAndMonth) {
    Open(At(2004, 11, 3));
    EXPECT_EQ(Program->NumberIn(1, 0).Ink, kRed);        // Sunday
    EXPECT_EQ(Program->NumberIn(1, 6).Ink, kBlue);       // Saturday
    EXPECT_EQ(Program->NumberIn(1, 2).Ink, kBlack);      // any other day
    EXPECT_EQ(Program->NumberIn(0, 0).Ink, kOtherMonth); // 31 October, a Sunday
    EXPECT_EQ(Program->NumberIn(0, 3).Ink, kWhite);      // selected
    EXPECT_EQ(Program->NumberIn(0, 0).Text, u"31");
}

TEST_F(CalendarPage, GridLinesRunBelowEachRowAndBesideEachColumnOnly) {
    Open(At(2004, 11, 3));
    for (const int y : {84, 110, 136, 162, 188, 214}) {
        EXPECT_EQ(Pixel(4, y), kBlack) << y;
        EXPECT_EQ(Pixel(235, y), kBlack) << y;
        EXPECT_EQ(Pixel(236, y), kWhite) << y;
    }
    for (const int x : {4, 37, 70, 103, 136, 169, 202, 235}) {
        EXPECT_EQ(Pixel(x, 58), kBlack) << x;
        EXPECT_EQ(Pixel(x, 213), kBlack) << x;
    }
    EXPECT_EQ(Pixel(20, 58), kWhite); // none along the top
}

TEST_F(CalendarPage, TheTodayButtonReturnsToToday) {
    Open(At(2004, 11, 3));
    Press(VK_DOWN, 3);
    Tap(150, 200);
    Tap(218, 18);
    EXPECT_EQ(Program->Header(), u"Wed, Nov, 03, 2004");
    EXPECT_EQ(Program->CellName(0, 3), u"2004-11-03");
    EXPECT_EQ(Program->SelectedCell(), 3);
}

TEST_F(CalendarPage, TheTodayButtonIsPressedOnlyWhileTheStylusIsOnIt) {
    Open(At(2004, 11, 3));
    Press(VK_DOWN);
    const auto isPressed = [&] {
        const auto item = Program->Device.See.FindItem(PaintedRole::Button, u"Today");
        return item.has_value() && item->Pressed;
    };
    Program->Device.Press(210, 10);
    ASSERT_TRUE(Program->Settle());
    EXPECT_TRUE(isPressed());
    Program->Device.MoveTo(204, 10);
    ASSERT_TRUE(Program->Settle());
    EXPECT_FALSE(isPressed());
    Program->Device.MoveTo(230, 30);
    ASSERT_TRUE(Program->Settle());
    EXPECT_TRUE(isPressed());
    Program->Device.MoveTo(231, 31);
    Program->Device.Release(231, 31);
    ASSERT_TRUE(Program->Settle());
    EXPECT_FALSE(isPressed());
    EXPECT_EQ(Program->Header(), u"Thu, Nov, 03, 2005"); // released beside it: nothing happened
    Program->Device.Press(120, 230);
    Program->Device.Release(215, 15); // that press is over, and another began elsewhere
    ASSERT_TRUE(Program->Settle());
    EXPECT_EQ(Program->Header(), u"Thu, Nov, 03, 2005");
}

TEST_F(CalendarPage, AReleaseOnTheTodayButtonWithoutAPressDoesNothing) {
    Open(At(2004, 11, 3));
    Press(VK_DOWN);
    Program->Device.Press(120, 230);
    Program->Device.Release(215, 15);
    ASSERT_TRUE(Program->Settle());
    EXPECT_EQ(Program->Header(), u"Thu, Nov, 03, 2005");
}

TEST_F(CalendarPage, ATapOnTheHeaderStartsTheClockProgram) {
    Open(At(2004, 11, 3));
    auto& started = Program->Device.Host().ProcessCalls.Started;
    const std::size_t before = started.size();
    for (const Point beside : {Point{30, 20}, Point{195, 20}, Point{100, 5}, Point{100, 31}}) {
        Tap(beside.X, beside.Y);
    }
    EXPECT_EQ(started.size(), before);
    Tap(31, 6);
    Tap(194, 30);
    ASSERT_EQ(started.size(), before + 2);
    EXPECT_EQ(started.back(), (headless::StartedProcess{u"\\Windows\\Clock.exe", u""}));
}

TEST_F(CalendarPage, TodaysCellMovesWithMidnightWhenThePageOpensAgain) {
    Open(At(2004, 11, 3));
    Tap(10, 200);
    EXPECT_EQ(Pixel(110, 64), kGrey);
    Program->ShowPage(PageNumber::Clock);
    Program->Device.SetClock(At(2004, 11, 4));
    ASSERT_TRUE(Program->Settle());
    Program->ShowPage(PageNumber::Calendar);
    EXPECT_EQ(Pixel(110, 64), kWhite);
    EXPECT_EQ(Pixel(143, 64), kGrey);
}

} // namespace
} // namespace tavo::test
