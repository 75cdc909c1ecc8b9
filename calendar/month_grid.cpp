// Which day stands in which cell.
#include "calendar/month_grid.h"

#include <cmath>

namespace tavo {

namespace {
constexpr int kFirstYearBefore = 1901; // a leading cell lies in this year at the earliest
constexpr int kFirstYearBeyond = 2999; // a trailing cell lies before this year
constexpr int kSecondsPerMinute = 60;
} // namespace

CalendarDate MonthBefore(CalendarDate date) {
    if (date.Month == kJanuary) {
        return {date.Year - 1, kDecember, date.Day};
    }
    return {date.Year, date.Month - 1, date.Day};
}

CalendarDate MonthAfter(CalendarDate date) {
    if (date.Month == kDecember) {
        return {date.Year + 1, kJanuary, date.Day};
    }
    return {date.Year, date.Month + 1, date.Day};
}

std::array<int, kGridCells> ComputeDayGrid(int firstWeekday, int previousMonthLength, int monthLength) {
    std::array<int, kGridCells> grid{};
    int day = 1 - firstWeekday; // of the month shown; what lies beyond its ends is a neighbour's
    for (int& number : grid) {
        number = day;
        if (day < 1) {
            number += previousMonthLength;
        } else if (day > monthLength) {
            number -= monthLength;
        }
        ++day;
    }
    return grid;
}

CalendarDate DateOfCell(int row, int number, int displayedYear, int displayedMonth) {
    CalendarDate date{displayedYear, displayedMonth, number};
    if (row == 0 && number >= 8) {
        date = MonthBefore(date);
    } else if (row >= 4 && number < 15) {
        date = MonthAfter(date);
    }
    const bool isBefore = date.Year < displayedYear && date.Year < kFirstYearBefore;
    const bool isBeyond = date.Year > displayedYear && date.Year >= kFirstYearBeyond;
    if (isBefore || isBeyond) {
        date.Day = 0;
    }
    return date;
}

DayMinute SplitDate(DATE date) {
    const int day = static_cast<int>(date); // towards zero; the fraction adds for days before zero too
    // Never negative, and far from where a half more would round wrongly.
    const int second =
        static_cast<int>(std::fabs(date - day) * kSecondsPerDay + 0.5); // NOLINT(bugprone-incorrect-roundings)
    return second == kSecondsPerDay ? DayMinute{day + 1, 0} : DayMinute{day, second / kSecondsPerMinute};
}

} // namespace tavo
