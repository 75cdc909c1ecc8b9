// An item's start and end, and everything that the form, the pattern and the record derive from them.
#pragma once

#include "platform/locale.h"
#include "platform/system_time.h"

#include <cstdint>

namespace tavo {

struct ItemTimes {
    SYSTEMTIME Start;
    SYSTEMTIME End;
    DATE StartDate = 0;
    DATE EndDate = 0;

    // From the start to the end, exact to the second; negative when the end comes first.
    double SpanInDays() const;
    // Whole minutes of the span, towards zero.
    std::int32_t DurationMinutes() const;

    // 1 Sunday .. 64 Saturday.
    std::int32_t StartDayMask() const { return 1 << Start.DayOfWeek; }

    // 1..5: which of its weekday in its month the start is.
    std::int32_t StartInstance() const { return (Start.Day - 1) / 7 + 1; }
};

// Fills in the automation dates and the weekdays.
ItemTimes MakeItemTimes(ILocale& locale, const SYSTEMTIME& start, const SYSTEMTIME& end);

// The day of the one with the time of the other.
SYSTEMTIME JoinDateAndTime(const SYSTEMTIME& date, const SYSTEMTIME& time);
// The day at 00:00.
SYSTEMTIME MidnightOf(const SYSTEMTIME& date);
// Towards the past, to minute 0 or 30.
SYSTEMTIME RoundDownToHalfHour(const SYSTEMTIME& time);

} // namespace tavo
