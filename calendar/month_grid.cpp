// Which day stands in which cell.
#include "calendar/month_grid.h"

#include <cstddef>

namespace tavo {

namespace {
constexpr int kFirstYearBefore = 1901; // a leading cell lies in this year at the earliest
constexpr int kFirstYearBeyond = 2999; // a trailing cell lies before this year
} // namespace

std::array<int, kGridCells> ComputeDayGrid(int firstWeekday, int previousMonthLength, int monthLength) {
    std::array<int, kGridCells> grid{};
    for (int cell = 0; cell < kGridCells; ++cell) {
        int number = cell - firstWeekday + 1;
        if (number < 1) {
            number += previousMonthLength;
        } else if (number > monthLength) {
            number -= monthLength;
        }
        grid[static_cast<std::size_t>(cell)] = number;
    }
    return grid;
}

CalendarDate DateOfCell(int row, int number, int displayedYear, int displayedMonth) {
    CalendarDate date{displayedYear, displayedMonth, number};
    if (row == 0 && number >= 8) {
        --date.Month;
        if (date.Month < 1) {
            date.Month = 12;
            --date.Year;
            if (date.Year < kFirstYearBefore) {
                date.Day = 0;
            }
        }
    } else if (row >= 4 && number < 15) {
        ++date.Month;
        if (date.Month > 12) {
            date.Month = 1;
            ++date.Year;
            if (date.Year >= kFirstYearBeyond) {
                date.Day = 0;
            }
        }
    }
    return date;
}

} // namespace tavo
