// Digits, each at its place.
#include "host/rules/calendar_value.h"

#include "host/locale/ascii.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace tavo::rules {

namespace {

constexpr std::size_t kDateSize = 8;
constexpr std::size_t kTimeSize = 15;
constexpr Seconds kHour = 3600;
constexpr Seconds kMinute = 60;
constexpr int kHoursPerDay = 24;
constexpr std::int64_t kDaysPerWeek = 7;
constexpr std::size_t kMostDigits = 9; // of a duration's numbers
constexpr Seconds kLongestDuration = kLastStoredDay * kSecondsPerDay;

// The number that so many digits make; -1 when one is none.
int ReadNumber(std::string_view digits) {
    int number = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9') {
            return -1;
        }
        number = number * 10 + (digit - '0');
    }
    return number;
}

// Takes "+" or "-" off the front: 1 or -1; 0 when there is none.
int TakeSign(std::string_view& text) {
    if (text.empty() || (text.front() != '+' && text.front() != '-')) {
        return 0;
    }
    const int sign = text.front() == '-' ? -1 : 1;
    text.remove_prefix(1);
    return sign;
}

} // namespace

bool CalendarTime::IsReal() const {
    if (Year < 1 || Month < 1 || Month > 12 || Day < 1 || Day > DaysInMonth(Year, Month)) {
        return false;
    }
    const bool isEndOfDay = Hour == kHoursPerDay && Minute == 0 && Second == 0;
    return isEndOfDay || (Hour < kHoursPerDay && Minute < 60 && Second <= 60);
}

Seconds CalendarTime::ToSeconds() const {
    return MakeTime(Year, Month, Day) + Hour * kHour + Minute * kMinute + Second;
}

std::optional<CalendarTime> ReadCalendarTime(std::string_view text) {
    text = locale::TrimBlanks(text);
    CalendarTime time;
    time.DateOnly = text.size() == kDateSize;
    time.Utc = text.size() == kTimeSize + 1 && locale::ToUpperAscii(text.back()) == 'Z';
    if (!time.DateOnly && text.size() != kTimeSize && !time.Utc) {
        return std::nullopt;
    }
    time.Year = ReadNumber(text.substr(0, 4));
    time.Month = ReadNumber(text.substr(4, 2));
    time.Day = ReadNumber(text.substr(6, 2));
    if (!time.DateOnly) {
        time.Hour = ReadNumber(text.substr(9, 2));
        time.Minute = ReadNumber(text.substr(11, 2));
        time.Second = ReadNumber(text.substr(13, 2));
    }
    const bool areNumbers = std::min({time.Year, time.Month, time.Day, time.Hour, time.Minute, time.Second}) >= 0;
    if (!areNumbers || (!time.DateOnly && locale::ToUpperAscii(text[kDateSize]) != 'T')) {
        return std::nullopt;
    }
    return time;
}

std::optional<CalendarDuration> ReadDuration(std::string_view text) {
    text = locale::TrimBlanks(text);
    const int sign = TakeSign(text) < 0 ? -1 : 1;
    if (text.empty() || locale::ToUpperAscii(text.front()) != 'P') {
        return std::nullopt;
    }
    text.remove_prefix(1);
    CalendarDuration duration;
    bool isOfDay = false; // behind "T"
    bool hasNumber = false;
    while (!text.empty()) {
        if (!isOfDay && locale::ToUpperAscii(text.front()) == 'T') {
            isOfDay = true;
            text.remove_prefix(1);
            continue;
        }
        const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
        if (digits == 0 || digits > kMostDigits || digits == text.size()) {
            return std::nullopt;
        }
        const std::int64_t number = std::int64_t{sign} * ReadNumber(text.substr(0, digits));
        const char unit = locale::ToUpperAscii(text[digits]);
        text.remove_prefix(digits + 1);
        hasNumber = true;
        if (!isOfDay && (unit == 'W' || unit == 'D')) {
            duration.Days += number * (unit == 'W' ? kDaysPerWeek : 1);
        } else if (isOfDay && (unit == 'H' || unit == 'M' || unit == 'S')) {
            duration.Exact += number * (unit == 'H' ? kHour : unit == 'M' ? kMinute : 1);
        } else {
            return std::nullopt;
        }
    }
    return hasNumber && std::abs(duration.ToSeconds()) <= kLongestDuration ? std::optional(duration) : std::nullopt;
}

std::optional<std::int32_t> ReadUtcOffset(std::string_view text) {
    constexpr std::size_t withoutSeconds = 4;
    constexpr std::size_t withSeconds = 6;
    text = locale::TrimBlanks(text);
    const int sign = TakeSign(text);
    if (sign == 0 || (text.size() != withoutSeconds && text.size() != withSeconds)) {
        return std::nullopt;
    }
    const int hours = ReadNumber(text.substr(0, 2));
    const int minutes = ReadNumber(text.substr(2, 2));
    const int seconds = ReadNumber(text.substr(4)); // 0 where there are none
    if (std::min({hours, minutes, seconds}) < 0) {
        return std::nullopt;
    }
    return sign * static_cast<std::int32_t>(hours * kHour + minutes * kMinute + seconds);
}

} // namespace tavo::rules
