// Wall-clock time as the store counts it: whole seconds since 1899-12-30 00:00, and days from the same origin.
#pragma once

#include "host/locale/calendar_math.h"
#include "platform/system_time.h"

#include <cstdint>
#include <limits>

namespace tavo::rules {

using Seconds = std::int64_t;   // since 1899-12-30 00:00 of some clock (the device's, a zone's, or UTC)
using DayNumber = std::int64_t; // since 1899-12-30

// Stands for "after every time there is".
constexpr Seconds kForever = std::numeric_limits<Seconds>::max();

constexpr Seconds kSecondsPerDay = 86400;
constexpr DayNumber kFirstStoredDay = 2;        // 1900-01-01
constexpr DayNumber kLastStoredDay = 401768;    // 2999-12-31
constexpr DayNumber kLowestQueryDay = -109205;  // 1601-01-01
constexpr DayNumber kHighestQueryDay = 2958465; // 9999-12-31

using locale::CivilDate;
using locale::DaysInMonth;
using locale::kUnixEpochDay;

// The calendar's arithmetic on the store's day numbers, for the days and years of anything that can be stored or asked.
constexpr DayNumber DayFromCivil(int year, int month, int day) {
    return locale::DayNumberOf(year, month, day);
}

constexpr CivilDate CivilFromDay(DayNumber day) {
    return locale::DateOfDayNumber(static_cast<int>(day));
}

// 0 is Sunday.
constexpr int WeekdayOf(DayNumber day) {
    return locale::WeekdayOfDayNumber(static_cast<int>(day));
}

constexpr DayNumber DayOf(Seconds time) {
    return time >= 0 ? time / kSecondsPerDay : -((-time + kSecondsPerDay - 1) / kSecondsPerDay);
}

constexpr Seconds MidnightOf(DayNumber day) {
    return day * kSecondsPerDay;
}

constexpr Seconds TimeOfDay(Seconds time) {
    return time - MidnightOf(DayOf(time));
}

Seconds MakeTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

// Automation dates: the fraction is the time of day and always adds, also before 1899-12-30. Rounds to the second.
Seconds SecondsFromDate(DATE date);
DATE DateFromSeconds(Seconds time);

// The day on which an end counts when whole days are compared: an end at midnight counts for the day before,
// but only when the start is midnight of an earlier day.
DayNumber EndDayOf(Seconds start, Seconds end);

} // namespace tavo::rules
