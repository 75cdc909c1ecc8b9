// Which day stands in which cell of the month.
#include "calendar/month_grid.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace tavo
