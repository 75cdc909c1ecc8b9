// The values of iCalendar lines that tell times: dates, moments, durations, distances from universal time.
#pragma once

#include "host/rules/wall_time.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavo::rules {

// A date or date-time as its digits say, which may be no real one.
struct CalendarTime {
    int Year = 0;
    int Month = 0;
    int Day = 0;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
    bool DateOnly = false;
    bool Utc = false;

    // A month from 1 to 12 and a day that it has; of a day 00:00:00 to 23:59:60, and 24:00:00.
    bool IsReal() const;
    // Of a time whose month is from 1 to 12. A day beyond its month counts on into the next.
    Seconds ToSeconds() const;
};

// All three pass over blanks at the ends, and give nothing for text of another form.

// "20260503", "20260503T090000" or "20260503T090000Z".
std::optional<CalendarTime> ReadCalendarTime(std::string_view text);

// Days go by the calendar, the rest by a clock that runs on.
struct CalendarDuration {
    std::int64_t Days = 0;
    Seconds Exact = 0;

    Seconds ToSeconds() const { return Days * kSecondsPerDay + Exact; }
};

// "P1W", "-PT15M", "P1DT2H". Nothing for one of more than eleven centuries.
std::optional<CalendarDuration> ReadDuration(std::string_view text);

// "+0100" or "-053015", in seconds.
std::optional<std::int32_t> ReadUtcOffset(std::string_view text);

} // namespace tavo::rules
