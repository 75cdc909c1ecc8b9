// Arithmetic of the Gregorian calendar on day numbers. The one home of it for all hosts; everything is constexpr.
#pragma once

#include <compare>

namespace tavo::locale {

struct CivilDate {
    int Year = 0;
    int Month = 0; // 1..12
    int Day = 0;   // 1..31
    friend constexpr bool operator==(const CivilDate&, const CivilDate&) = default;
    friend constexpr auto operator<=>(const CivilDate&, const CivilDate&) = default;
};

constexpr int kSecondsPerDay = 86400;
constexpr int kUnixEpochDay = 25569; // the day number of 1970-01-01

constexpr bool IsLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// 0 for a month outside 1..12.
constexpr int DaysInMonth(int year, int month) {
    if (month < 1 || month > 12)
        return 0;
    if (month == 2)
        return IsLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

constexpr bool IsDate(int year, int month, int day) {
    return day >= 1 && day <= DaysInMonth(year, month);
}

// The day number, counted like the days of an automation date: 1899-12-30 is 0. The date must exist; years from 1 on.
constexpr int DayNumberOf(int year, int month, int day) {
    // Years are counted from March, so that the leap day is a year's last, and in eras of 400 years.
    constexpr int kDaysBeforeZero = 693899; // from 0000-03-01 to 1899-12-30
    const int marchYear = month > 2 ? year : year - 1;
    const int era = marchYear / 400;
    const int yearOfEra = marchYear - era * 400;
    const int marchMonth = month > 2 ? month - 3 : month + 9;
    const int dayOfYear = (153 * marchMonth + 2) / 5 + day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - kDaysBeforeZero;
}

constexpr int DayNumberOf(const CivilDate& date) {
    return DayNumberOf(date.Year, date.Month, date.Day);
}

// The date of a day number; for days from 0001-01-01 on.
constexpr CivilDate DateOfDayNumber(int dayNumber) {
    constexpr int kDaysBeforeZero = 693899;
    const int days = dayNumber + kDaysBeforeZero;
    const int era = days / 146097;
    const int dayOfEra = days - era * 146097;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int marchMonth = (5 * dayOfYear + 2) / 153;
    const int day = dayOfYear - (153 * marchMonth + 2) / 5 + 1;
    const int month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
    return {yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month, day};
}

// 0 Sunday .. 6 Saturday; also for days before zero.
constexpr int WeekdayOfDayNumber(int dayNumber) {
    return (dayNumber % 7 + 13) % 7; // day 0 was a Saturday
}

} // namespace tavo::locale
