// Wall-clock time as the store counts it: whole seconds since 1899-12-30 00:00, and days from the same origin.
#pragma once

#include "platform/system_time.h"

#include <cstdint>

namespace tavo::outlook {

using Seconds = std::int64_t;   // since 1899-12-30 00:00 of some clock (the device's, a zone's, or UTC)
using DayNumber = std::int64_t; // since 1899-12-30

constexpr Seconds kSecondsPerDay = 86400;
constexpr DayNumber kFirstStoredDay = 2;        // 1900-01-01
constexpr DayNumber kLastStoredDay = 401768;    // 2999-12-31
constexpr DayNumber kLowestQueryDay = -109205;  // 1601-01-01
constexpr DayNumber kHighestQueryDay = 2958465; // 9999-12-31
constexpr DayNumber kUnixEpochDay = 25569;      // 1970-01-01

struct CivilDate {
    int Year = 0;
    int Month = 0; // 1..12
    int Day = 0;   // 1..31
    friend constexpr bool operator==(const CivilDate&, const CivilDate&) = default;
};

// Any year; the month may lie outside 1..12 and then counts on into other years.
DayNumber DayFromCivil(int year, int month, int day);
CivilDate CivilFromDay(DayNumber day);
int DaysInMonth(int year, int month);

// 0 is Sunday.
constexpr int WeekdayOf(DayNumber day) {
    const auto weekday = static_cast<int>((day + 6) % 7);
    return weekday < 0 ? weekday + 7 : weekday;
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

} // namespace tavo::outlook
