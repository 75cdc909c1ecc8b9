// Civil dates and automation dates.
#include "host/outlook/wall_time.h"

#include <algorithm>
#include <cmath>

namespace tavo::outlook {

namespace {

constexpr DayNumber kEraDays = 146097;     // 400 years
constexpr DayNumber kCivilOrigin = 693899; // 0000-03-01 to 1899-12-30

constexpr DayNumber FloorDivide(DayNumber value, DayNumber divisor) {
    return value >= 0 ? value / divisor : -((-value + divisor - 1) / divisor);
}

} // namespace

DayNumber DayFromCivil(int year, int month, int day) {
    const DayNumber months = static_cast<DayNumber>(year) * 12 + (month - 1);
    // Years that begin in March put the leap day last.
    const DayNumber shifted = months - 2;
    const DayNumber marchYear = FloorDivide(shifted, 12);
    const DayNumber marchMonth = shifted - marchYear * 12;
    const DayNumber era = FloorDivide(marchYear, 400);
    const DayNumber yearOfEra = marchYear - era * 400;
    const DayNumber dayOfYear = (153 * marchMonth + 2) / 5 + day - 1;
    const DayNumber dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * kEraDays + dayOfEra - kCivilOrigin;
}

CivilDate CivilFromDay(DayNumber day) {
    const DayNumber shifted = day + kCivilOrigin;
    const DayNumber era = FloorDivide(shifted, kEraDays);
    const DayNumber dayOfEra = shifted - era * kEraDays;
    const DayNumber yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const DayNumber dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const DayNumber marchMonth = (5 * dayOfYear + 2) / 153;
    CivilDate date;
    date.Day = static_cast<int>(dayOfYear - (153 * marchMonth + 2) / 5 + 1);
    date.Month = static_cast<int>(marchMonth < 10 ? marchMonth + 3 : marchMonth - 9);
    date.Year = static_cast<int>(yearOfEra + era * 400 + (date.Month <= 2 ? 1 : 0));
    return date;
}

int DaysInMonth(int year, int month) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[month - 1];
}

Seconds MakeTime(int year, int month, int day, int hour, int minute, int second) {
    return MidnightOf(DayFromCivil(year, month, day)) + Seconds{hour} * 3600 + Seconds{minute} * 60 + second;
}

Seconds SecondsFromDate(DATE date) {
    // Nothing beyond is a date; what is no number at all is far away, too, so that Save refuses it.
    constexpr DATE kFarAway = 1e8;
    date = std::isnan(date) ? kFarAway : std::clamp(date, -kFarAway, kFarAway);
    const double whole = std::trunc(date);
    const double fraction = std::fabs(date - whole);
    return static_cast<Seconds>(whole) * kSecondsPerDay +
           static_cast<Seconds>(std::llround(fraction * static_cast<double>(kSecondsPerDay)));
}

DATE DateFromSeconds(Seconds time) {
    const DayNumber day = DayOf(time);
    const double fraction = static_cast<double>(TimeOfDay(time)) / static_cast<double>(kSecondsPerDay);
    return day >= 0 ? static_cast<double>(day) + fraction : static_cast<double>(day) - fraction;
}

DayNumber EndDayOf(Seconds start, Seconds end) {
    const DayNumber endDay = DayOf(end);
    const bool bothMidnight = TimeOfDay(end) == 0 && TimeOfDay(start) == 0;
    return bothMidnight && endDay > DayOf(start) ? endDay - 1 : endDay;
}

} // namespace tavo::outlook
