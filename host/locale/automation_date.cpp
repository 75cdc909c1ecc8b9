// Automation dates are whole days since 1899-12-30 and a fraction that adds for days before zero too.
#include "host/locale/automation_date.h"

#include "host/locale/calendar_math.h"

#include <cmath>

namespace tavo::locale {

namespace {

constexpr int kFirstDay = DayNumberOf(kFirstAutomationYear, 1, 1);
constexpr int kLastDay = DayNumberOf(kLastAutomationYear, 12, 31);

} // namespace

bool VariantTimeToSystemTime(DATE date, SYSTEMTIME& time) {
    if (!(date > kFirstDay - 1.0 && date < kLastDay + 1.0)) {
        return false;
    }
    int day = static_cast<int>(date); // towards zero
    // Never negative, and far from where a half more would round wrongly.
    int second = static_cast<int>(std::fabs(date - day) * kSecondsPerDay + 0.5); // NOLINT(bugprone-incorrect-roundings)
    if (second == kSecondsPerDay) {
        second = 0;
        ++day;
    }
    if (day < kFirstDay || day > kLastDay) {
        return false;
    }
    const CivilDate civil = DateOfDayNumber(day);
    time = {.Year = static_cast<std::uint16_t>(civil.Year),
            .Month = static_cast<std::uint16_t>(civil.Month),
            .DayOfWeek = static_cast<std::uint16_t>(WeekdayOfDayNumber(day)),
            .Day = static_cast<std::uint16_t>(civil.Day),
            .Hour = static_cast<std::uint16_t>(second / 3600),
            .Minute = static_cast<std::uint16_t>(second / 60 % 60),
            .Second = static_cast<std::uint16_t>(second % 60),
            .Milliseconds = 0};
    return true;
}

bool SystemTimeToVariantTime(const SYSTEMTIME& time, DATE& date) {
    if (time.Year < kFirstAutomationYear || time.Year > kLastAutomationYear ||
        !IsDate(time.Year, time.Month, time.Day) || time.Hour > 23 || time.Minute > 59 || time.Second > 59) {
        return false;
    }
    const double day = DayNumberOf(time.Year, time.Month, time.Day);
    const double fraction = (time.Hour * 3600 + time.Minute * 60 + time.Second) / static_cast<double>(kSecondsPerDay);
    date = day < 0 ? day - fraction : day + fraction;
    return true;
}

} // namespace tavo::locale
