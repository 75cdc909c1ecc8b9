// Arithmetic of the Gregorian calendar on day numbers. The one home of it for all hosts; everything is constexpr.
#pragma once

#include <compare>
#include <cstdint>

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
    if (month < 1 || month > 12) {
        return 0;
    }
    if (month == 2) {
        return IsLeapYear(year) ? 29 : 28;
    }
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

constexpr bool IsDate(int year, int month, int day) {
    return day >= 1 && day <= DaysInMonth(year, month);
}

// Rounds down for negative values, too. The divisor is positive.
constexpr int DivideDown(int value, int divisor) {
    return value >= 0 ? value / divisor : -((-value + divisor - 1) / divisor);
}

constexpr int kEraDays = 146097;        // 400 years, after which the calendar repeats itself
constexpr int kDaysBeforeZero = 693899; // from 0000-03-01 to 1899-12-30

// The day number, counted like the days of an automation date: 1899-12-30 is 0. A month outside 1..12 counts on into
// other years, a day beyond its month into other months.
constexpr int DayNumberOf(int year, int month, int day) {
    // Years are counted from March, so that the leap day is a year's last, and in eras.
    const int marchYear = year + DivideDown(month - 3, 12);
    const int marchMonth = (year - marchYear) * 12 + month - 3;
    const int era = DivideDown(marchYear, 400);
    const int yearOfEra = marchYear - era * 400;
    const int dayOfYear = (153 * marchMonth + 2) / 5 + day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * kEraDays + dayOfEra - kDaysBeforeZero;
}

constexpr int DayNumberOf(const CivilDate& date) {
    return DayNumberOf(date.Year, date.Month, date.Day);
}

constexpr CivilDate DateOfDayNumber(int dayNumber) {
    const int days = dayNumber + kDaysBeforeZero;
    const int era = DivideDown(days, kEraDays);
    // An average century lasts 146097 quarters of a day and an average year 1461: counted in quarters, the remainders
    // tell the day without a correction for the longer ones.
    const auto quarters = static_cast<std::uint32_t>(days - era * kEraDays) * 4 + 3;
    const std::uint32_t century = quarters / kEraDays;
    const std::uint32_t quartersOfCentury = quarters % kEraDays | 3;
    const std::uint32_t yearOfCentury = quartersOfCentury / 1461;
    const std::uint32_t dayOfYear = quartersOfCentury % 1461 / 4;
    const std::uint32_t marchMonth = (5 * dayOfYear + 2) / 153;
    const std::uint32_t day = dayOfYear - (153 * marchMonth + 2) / 5 + 1;
    const auto month = static_cast<int>(marchMonth < 10 ? marchMonth + 3 : marchMonth - 9);
    const int marchYear = era * 400 + static_cast<int>(century * 100 + yearOfCentury);
    return {marchYear + (month <= 2 ? 1 : 0), month, static_cast<int>(day)};
}

// 0 Sunday .. 6 Saturday; also for days before zero.
constexpr int WeekdayOfDayNumber(int dayNumber) {
    return (dayNumber % 7 + 13) % 7; // day 0 was a Saturday
}

} // namespace tavo::locale
