// Tests of the calendar's arithmetic.
#include "host/locale/calendar_math.h"

#include <gtest/gtest.h>

namespace tavo::locale {

static_assert(DayNumberOf(1899, 12, 30) == 0);
static_assert(DayNumberOf(1970, 1, 1) == kUnixEpochDay);
static_assert(DayNumberOf(1900, 1, 1) == 2);
static_assert(DayNumberOf(2999, 12, 31) == 401768);
static_assert(DayNumberOf(4501, 1, 1) == 949998);
static_assert(DayNumberOf(100, 1, 1) == -657434);
static_assert(DayNumberOf(9999, 12, 31) == 2958465);
// A month beyond the year counts on.
static_assert(DayNumberOf(2004, 13, 31) == DayNumberOf(2005, 1, 31));
static_assert(DayNumberOf(2004, 26, 1) == DayNumberOf(2006, 2, 1));
static_assert(DayNumberOf(2004, 0, 1) == DayNumberOf(2003, 12, 1));
static_assert(DayNumberOf(2004, -11, 1) == DayNumberOf(2003, 1, 1));
static_assert(DayNumberOf(2004, -12, 1) == DayNumberOf(2002, 12, 1));
// Before the calendar's first year.
static_assert(DayNumberOf(0, 1, 1) == DayNumberOf(1, 1, 1) - 366);
static_assert(DateOfDayNumber(DayNumberOf(0, 2, 29)) == CivilDate{0, 2, 29});
static_assert(DateOfDayNumber(DayNumberOf(-1, 12, 31)) == CivilDate{-1, 12, 31});

TEST(CalendarMath, EveryDayFromYearOneToTheLastFollowsTheOneBefore) {
    CivilDate expected{1, 1, 1};
    int weekday = 1; // 0001-01-01 was a Monday
    for (int day = DayNumberOf(1, 1, 1); day <= DayNumberOf(9999, 12, 31); ++day) {
        ASSERT_EQ(DateOfDayNumber(day), expected) << day;
        ASSERT_EQ(DayNumberOf(expected), day);
        ASSERT_EQ(WeekdayOfDayNumber(day), weekday) << day;
        weekday = (weekday + 1) % 7;
        if (++expected.Day > DaysInMonth(expected.Year, expected.Month)) {
            expected.Day = 1;
            if (++expected.Month > 12) {
                expected.Month = 1;
                ++expected.Year;
            }
        }
    }
    EXPECT_EQ(expected, (CivilDate{10000, 1, 1}));
}

TEST(CalendarMath, HundredthYearsAreLeapYearsOnlyEveryFourHundred) {
    EXPECT_EQ(DaysInMonth(2000, 2), 29);
    EXPECT_EQ(DaysInMonth(1900, 2), 28);
    EXPECT_EQ(DaysInMonth(2100, 2), 28);
    EXPECT_EQ(DaysInMonth(2004, 2), 29);
    EXPECT_EQ(DaysInMonth(2005, 2), 28);
}

TEST(CalendarMath, MonthsHaveTheirLengths) {
    constexpr int kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(DaysInMonth(2005, month), kLengths[month - 1]) << month;
    }
    EXPECT_EQ(DaysInMonth(2005, 0), 0);
    EXPECT_EQ(DaysInMonth(2005, 13), 0);
}

TEST(CalendarMath, DatesThatDoNotExistAreNone) {
    EXPECT_TRUE(IsDate(2004, 2, 29));
    EXPECT_FALSE(IsDate(2005, 2, 29));
    EXPECT_FALSE(IsDate(2005, 4, 31));
    EXPECT_FALSE(IsDate(2005, 1, 0));
    EXPECT_FALSE(IsDate(2005, 13, 1));
}

TEST(CalendarMath, KnownDaysHaveTheirWeekday) {
    EXPECT_EQ(WeekdayOfDayNumber(DayNumberOf(2004, 9, 15)), 3);  // a Wednesday
    EXPECT_EQ(WeekdayOfDayNumber(DayNumberOf(1899, 12, 30)), 6); // a Saturday
    EXPECT_EQ(WeekdayOfDayNumber(DayNumberOf(1601, 1, 1)), 1);   // a Monday
}

} // namespace tavo::locale
