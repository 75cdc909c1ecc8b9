// Wall-clock times and automation dates.
#include "host/rules/wall_time.h"

#include <algorithm>
#include <cmath>

namespace tavo::rules {

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

} // namespace tavo::rules
