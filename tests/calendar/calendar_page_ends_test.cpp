// Where the calendar ends: which months and days are shown there, and what the others do.
#include "calendar/month_grid.h"
#include "tests/calendar/calendar_page_desk.h"

namespace tavo::test {
namespace {

TEST_F(CalendarPage, LeftOnJanuary1901ShowsJanuary1900) {
    Open(At(1901, 1, 10));
    Press(VK_LEFT);
    EXPECT_EQ(Program->Header(), u"Wed, Jan, 10, 1900");
    Press(VK_LEFT);
    EXPECT_EQ(Program->Header(), u"Wed, Jan, 10, 1900");
}

TEST_F(CalendarPage, LeftOnFebruary1900ShowsJanuary1900) {
    Open(At(1901, 2, 10));
    Press(VK_UP);
    Press(VK_LEFT);
    EXPECT_EQ(Program->Header(), u"Wed, Jan, 10, 1900");
}

TEST_F(CalendarPage, UpOn1901Shows1900AndStaysThere) {
    Open(At(1901, 5, 10));
    Press(VK_UP);
    EXPECT_EQ(Program->Header(), u"Thu, May, 10, 1900");
    Press(VK_UP);
    EXPECT_EQ(Program->Header(), u"Thu, May, 10, 1900");
}

TEST_F(CalendarPage, TheYear1901IsReachedFromTheOneAfterIt) {
    Open(At(1902, 1, 10));
    Press(VK_LEFT);
    EXPECT_EQ(Program->Header(), u"Tue, Dec, 10, 1901");
    Open(At(1902, 5, 10));
    Press(VK_UP);
    EXPECT_EQ(Program->Header(), u"Fri, May, 10, 1901");
}

TEST_F(CalendarPage, LeftAndRightGoByMonthWithinTheFirstYearAndTheLast) {
    Open(At(1901, 5, 10));
    Press(VK_UP);
    Press(VK_LEFT);
    EXPECT_EQ(Program->Header(), u"Tue, Apr, 10, 1900");
    Press(VK_RIGHT, 2);
    EXPECT_EQ(Program->Header(), u"Sun, Jun, 10, 1900");
    Open(At(2998, 5, 10));
    Press(VK_DOWN);
    Press(VK_LEFT);
    EXPECT_EQ(Program->Header(), u"Wed, Apr, 10, 2999");
    Press(VK_RIGHT, 2);
    EXPECT_EQ(Program->Header(), u"Mon, Jun, 10, 2999");
}

TEST_F(CalendarPage, RightOnDecember2998ShowsDecember2999) {
    Open(At(2998, 12, 10));
    Press(VK_RIGHT);
    EXPECT_EQ(Program->Header(), u"Tue, Dec, 10, 2999");
    Press(VK_RIGHT);
    EXPECT_EQ(Program->Header(), u"Tue, Dec, 10, 2999");
}

TEST_F(CalendarPage, DownOn2998Shows2999AndStaysThere) {
    Open(At(2998, 5, 10));
    Press(VK_DOWN, 2);
    EXPECT_EQ(Program->Header(), u"Fri, May, 10, 2999");
}

TEST_F(CalendarPage, ACellBeyondTheCalendarIsBlankAndSelectsDayZero) {
    Open(At(1901, 1, 10)); // begins on a Tuesday
    EXPECT_EQ(Program->NumberIn(0, 0).Text, u"");
    EXPECT_EQ(Program->NumberIn(0, 2).Text, u"1");
    Tap(10, 70);
    EXPECT_EQ(Program->Header(), u"");
    EXPECT_EQ(Program->CellName(1, 0), u"1901-01-06");
}

TEST_F(CalendarPage, JanuaryOf1900HasItsDaysAndNoneOf1899) {
    Open(At(1901, 1, 10));
    Program->GivenAppointment(u"Ball", At(1900, 1, 15, 9), At(1900, 1, 15, 10));
    Press(VK_LEFT);
    EXPECT_EQ(Program->NumberIn(0, 0).Text, u""); // 31 December 1899
    EXPECT_EQ(Program->CellName(0, 1), u"1900-01-01");
    EXPECT_EQ(Program->CellName(2, 1), u"1900-01-15: appointment");
    EXPECT_EQ(Program->CellName(4, 3), u"1900-01-31");
    EXPECT_EQ(Program->CellName(4, 4), u"1900-02-01");
    EXPECT_EQ(Program->CellName(5, 6), u"1900-02-10");
}

TEST_F(CalendarPage, DecemberOf2999HasItsDaysAndNoneOf3000) {
    Open(At(2998, 12, 10));
    Program->GivenAppointment(u"Ball", At(2999, 12, 20, 9), At(2999, 12, 20, 10));
    Press(VK_RIGHT);
    EXPECT_EQ(Program->CellName(0, 0), u"2999-12-01");
    EXPECT_EQ(Program->CellName(2, 5), u"2999-12-20: appointment");
    EXPECT_EQ(Program->CellName(4, 2), u"2999-12-31");
    EXPECT_EQ(Program->NumberIn(4, 3).Text, u""); // 1 January 3000
    EXPECT_EQ(Program->CellName(4, 3), u"(no cell)");
    EXPECT_EQ(Program->NumberIn(5, 6).Text, u"");
}

TEST_F(CalendarPage, DaysOfTheFirstYearAndTheLastHaveTheirMenu) {
    const auto opensMenu = [&](int row, int column) {
        const Rect cell = RectOfCell(row, column);
        Program->Device.Tap(cell.Left + 5, cell.Top + 5);
        bool wasOpen = false;
        Program->Device.Do([&] { wasOpen = Program->Device.Host().State.Menus.Tracked.has_value(); });
        Program->Device.ChooseTracked(0);
        return Program->Settle() && wasOpen;
    };
    Open(At(1901, 1, 10));
    Press(VK_LEFT);
    EXPECT_TRUE(opensMenu(0, 1)); // 1 January 1900
    Open(At(2998, 12, 10));
    Press(VK_RIGHT);
    EXPECT_TRUE(opensMenu(2, 5)); // 20 December 2999
}

TEST_F(CalendarPage, ACellWithoutADateStaysBlankThoughAnItemLiesThere) {
    Open(At(1901, 2, 10));
    Program->GivenAppointment(u"Last of its year", At(1900, 12, 31, 9), At(1900, 12, 31, 10));
    const Oid holiday = Program->GivenAllDay(u"Eve", At(1900, 12, 31));
    Program->State().Categories.HolidayList.Append(holiday);
    Program->WriteFile("19001231_101010.pwi", "ink");
    EXPECT_EQ(Program->NumberIn(0, 1).Text, u"28"); // of January: what is to be wiped
    Press(VK_LEFT);                                 // January, which begins on a Tuesday
    for (const int column : {0, 1}) {
        EXPECT_EQ(Program->NumberIn(0, column).Text, u"") << column;
        EXPECT_EQ(Program->CellName(0, column), u"(no cell)") << column;
        for (int x = 5; x < 36; ++x) {
            EXPECT_EQ(Pixel(33 * column + x, 81), kWhite) << column << ", " << x;
        }
    }
    EXPECT_EQ(Program->CellName(0, 2), u"1901-01-01");
}

} // namespace
} // namespace tavo::test
