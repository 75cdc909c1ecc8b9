// Which day stands in which cell of the month.
#include "calendar/month_grid.h"

#include "host/locale/us_english_locale.h"

#include <gtest/gtest.h>

#include <random>

namespace tavo {
namespace {

TEST(DayGrid, AMonthThatBeginsOnSundayShowsNoDayOfTheMonthBefore) {
    const auto grid = ComputeDayGrid(0, 31, 28); // February 2026
    EXPECT_EQ(grid[0], 1);
    EXPECT_EQ(grid[27], 28);
    EXPECT_EQ(grid[28], 1);
    EXPECT_EQ(grid[41], 14);
}

TEST(DayGrid, TheEndsOfTheNeighboursFillTheRest) {
    const auto grid = ComputeDayGrid(6, 30, 31); // May 2027 begins on a Saturday
    EXPECT_EQ(grid[0], 25);
    EXPECT_EQ(grid[5], 30);
    EXPECT_EQ(grid[6], 1);
    EXPECT_EQ(grid[36], 31);
    EXPECT_EQ(grid[37], 1);
    EXPECT_EQ(grid[41], 5);
}

TEST(DateOfCell, ALargeNumberInTheFirstRowIsOfTheMonthBefore) {
    EXPECT_EQ(DateOfCell(0, 8, 2004, 6), (CalendarDate{2004, 5, 8}));
    EXPECT_EQ(DateOfCell(0, 7, 2004, 6), (CalendarDate{2004, 6, 7}));
    EXPECT_EQ(DateOfCell(1, 8, 2004, 6), (CalendarDate{2004, 6, 8}));
    EXPECT_EQ(DateOfCell(0, 28, 2004, 1), (CalendarDate{2003, 12, 28}));
}

TEST(DateOfCell, ASmallNumberInTheLastTwoRowsIsOfTheMonthAfter) {
    EXPECT_EQ(DateOfCell(4, 14, 2004, 6), (CalendarDate{2004, 7, 14}));
    EXPECT_EQ(DateOfCell(4, 15, 2004, 6), (CalendarDate{2004, 6, 15}));
    EXPECT_EQ(DateOfCell(3, 14, 2004, 6), (CalendarDate{2004, 6, 14}));
    EXPECT_EQ(DateOfCell(5, 1, 2004, 12), (CalendarDate{2005, 1, 1}));
}

TEST(DateOfCell, ACellBeforeTheYear1901HasNoDate) {
    EXPECT_EQ(DateOfCell(0, 31, 1901, 1).Day, 0);
    EXPECT_EQ(DateOfCell(0, 31, 1902, 1), (CalendarDate{1901, 12, 31}));
    EXPECT_EQ(DateOfCell(0, 31, 1900, 2), (CalendarDate{1900, 1, 31}));
}

TEST(DateOfCell, ACellOfTheYear2999HasNoDate) {
    EXPECT_EQ(DateOfCell(5, 1, 2998, 12).Day, 0);
    EXPECT_EQ(DateOfCell(5, 1, 2997, 12), (CalendarDate{2998, 1, 1}));
    EXPECT_EQ(DateOfCell(5, 1, 2999, 11), (CalendarDate{2999, 12, 1}));
}

TEST(RectOfCell, CellsAreThirtyThreeByTwentySixPixels) {
    EXPECT_EQ(RectOfCell(0, 0), (Rect{4, 58, 37, 84}));
    EXPECT_EQ(RectOfCell(5, 6), (Rect{202, 188, 235, 214}));
}

TEST(SplitDate, GivesTheDayAndMinuteThatTheDeviceConvertsTo) {
    locale::UsEnglishLocale locale;
    std::mt19937 random(20041103);
    // The calendar's years and some before day zero; every second of a day, and moments a hair beside one.
    std::uniform_int_distribution<int> days(-800, 401767);
    std::uniform_int_distribution<int> seconds(0, 86399);
    for (int i = 0; i < 200'000; ++i) {
        const int day = days(random);
        const double fraction = seconds(random) / 86400.0;
        const double hair = (i % 5 - 2) * 2.9e-6; // up to half a second
        const DATE date = (day < 0 ? day - fraction : day + fraction) + hair;
        SYSTEMTIME time;
        ASSERT_TRUE(locale.VariantTimeToSystemTime(date, time));
        SYSTEMTIME midnight = time;
        midnight.Hour = midnight.Minute = midnight.Second = 0;
        DATE dayOnly = 0;
        ASSERT_TRUE(locale.SystemTimeToVariantTime(midnight, dayOnly));
        ASSERT_EQ(SplitDate(date), (DayMinute{static_cast<int>(dayOnly), time.Hour * 60 + time.Minute})) << date;
    }
}

TEST(SplitDate, AMomentJustBeforeMidnightIsTheNextDay) {
    EXPECT_EQ(SplitDate(38293.9999999), (DayMinute{38294, 0}));
    EXPECT_EQ(SplitDate(38293.5), (DayMinute{38293, 720}));
    EXPECT_EQ(SplitDate(0.25), (DayMinute{0, 360}));
    EXPECT_EQ(SplitDate(-1.25), (DayMinute{-1, 360}));
}

} // namespace
} // namespace tavo
