// Counting days by automation dates.
#include "schedule/item_days.h"

#include "store/midnight.h"

namespace tavo {

namespace {

// Whole days; a date that does not exist is the lowest one.
DATE DayNumber(const SYSTEMTIME& date, ILocale& locale) {
    DATE number = kLowestDate;
    static_cast<void>(locale.SystemTimeToVariantTime(MidnightOf(date.Year, date.Month, date.Day), number));
    return number;
}

bool IsMidnight(const SYSTEMTIME& time) {
    return time.Hour == 0 && time.Minute == 0 && time.Second == 0;
}

} // namespace

int DaysBetween(const SYSTEMTIME& from, const SYSTEMTIME& to, ILocale& locale) {
    return static_cast<int>(DayNumber(to, locale) - DayNumber(from, locale));
}

SYSTEMTIME DayAfter(const SYSTEMTIME& date, int days, ILocale& locale) {
    SYSTEMTIME day = MidnightOf(date.Year, date.Month, date.Day);
    static_cast<void>(
        locale.VariantTimeToSystemTime(DayNumber(date, locale) + days, day)); // stays at the calendar's end
    return day;
}

SYSTEMTIME LastDayOf(const AppointmentData& record, ILocale& locale) {
    const bool endsBefore = IsMidnight(record.End) && DaysBetween(record.Start, record.End, locale) > 0;
    return DayAfter(record.End, endsBefore ? -1 : 0, locale);
}

} // namespace tavo
