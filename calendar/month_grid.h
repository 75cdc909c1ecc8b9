// The grid of one month: six weeks of seven days, Sunday first, with the ends of its neighbours.
#pragma once

#include "platform/geometry.h"
#include "platform/system_time.h"

#include <array>
#include <cstddef>

namespace tavo {

constexpr int kGridRows = 6;
constexpr int kGridColumns = 7;
constexpr int kGridCells = kGridRows * kGridColumns;

constexpr int kGridLeft = 4;
constexpr int kGridTop = 58;
constexpr int kCellWidth = 33;
constexpr int kCellHeight = 26;
constexpr int kLowestYear = 1900;
constexpr int kHighestYear = 2999;
constexpr int kJanuary = 1;
constexpr int kDecember = 12;
constexpr int kSecondsPerDay = 86400;

constexpr int kGridRight = kGridLeft + kGridColumns * kCellWidth;
constexpr int kGridBottom = kGridTop + kGridRows * kCellHeight;

// Month 1..12; Day 0 is no day of the month.
struct CalendarDate {
    int Year = 0;
    int Month = 0;
    int Day = 0;
    friend constexpr bool operator==(const CalendarDate&, const CalendarDate&) = default;
};

// Of a year that wraps at January and December; the day stays.
CalendarDate MonthBefore(CalendarDate date);
CalendarDate MonthAfter(CalendarDate date);

// 42 day-of-month numbers, row by row. `firstWeekday` (0 Sunday) is that of the 1st of the month.
std::array<int, kGridCells> ComputeDayGrid(int firstWeekday, int previousMonthLength, int monthLength);

// The date of a cell, from its row, its number and the month shown. Day is 0 for a cell that has no date: one that
// falls in a year before 1901 or after 2998.
CalendarDate DateOfCell(int row, int number, int displayedYear, int displayedMonth);

// A moment's day, counted as whole automation dates are, and the minute of that day.
struct DayMinute {
    int Day = 0;
    int Minute = 0;
    friend constexpr bool operator==(const DayMinute&, const DayMinute&) = default;
};

// To the nearest second, as the device's own conversion goes. The date must be one that the device can convert.
DayMinute SplitDate(DATE date);

// Cells count row by row.
constexpr std::size_t CellAt(int row, int column) {
    return static_cast<std::size_t>(row) * kGridColumns + static_cast<std::size_t>(column);
}

constexpr Rect RectOfCell(int row, int column) {
    return Rect::FromSize(kGridLeft + column * kCellWidth, kGridTop + row * kCellHeight, kCellWidth, kCellHeight);
}

} // namespace tavo
