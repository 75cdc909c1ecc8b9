// Arithmetic on starts and ends.
#include "edit/item_times.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavo {

namespace {

constexpr double kSecondsPerDay = 86400;
constexpr double kMinutesPerDay = 1440;
// Keeps a whole minute from falling below itself.
constexpr double kMinuteTolerance = 5.787037037037037e-6;

// A date that does not exist becomes the lowest one; the pickers do not give any.
DATE Convert(ILocale& locale, SYSTEMTIME& time) {
    DATE date = kLowestDate;
    if (locale.SystemTimeToVariantTime(time, date)) {
        static_cast<void>(locale.VariantTimeToSystemTime(date, time)); // fills in the weekday
    }
    return date;
}

} // namespace

double ItemTimes::SpanInDays() const {
    return std::round((EndDate - StartDate) * kSecondsPerDay) / kSecondsPerDay;
}

std::int32_t ItemTimes::DurationMinutes() const {
    constexpr double lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(SpanInDays() * kMinutesPerDay + kMinuteTolerance, lowest, highest));
}

ItemTimes MakeItemTimes(ILocale& locale, const SYSTEMTIME& start, const SYSTEMTIME& end) {
    ItemTimes times;
    times.Start = start;
    times.End = end;
    times.StartDate = Convert(locale, times.Start);
    times.EndDate = Convert(locale, times.End);
    return times;
}

SYSTEMTIME JoinDateAndTime(const SYSTEMTIME& date, const SYSTEMTIME& time) {
    SYSTEMTIME joined = MidnightOf(date);
    joined.Hour = time.Hour;
    joined.Minute = time.Minute;
    joined.Second = time.Second;
    return joined;
}

SYSTEMTIME MidnightOf(const SYSTEMTIME& date) {
    SYSTEMTIME midnight = date;
    midnight.Hour = 0;
    midnight.Minute = 0;
    midnight.Second = 0;
    midnight.Milliseconds = 0;
    return midnight;
}

SYSTEMTIME RoundDownToHalfHour(const SYSTEMTIME& time) {
    constexpr std::uint16_t half = 30;
    SYSTEMTIME rounded = time;
    rounded.Minute = time.Minute < half ? 0 : half;
    rounded.Second = 0;
    rounded.Milliseconds = 0;
    return rounded;
}

} // namespace tavo
