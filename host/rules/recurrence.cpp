// Arithmetic of the six kinds of recurrence.
#include "host/rules/recurrence.h"

#include <algorithm>
#include <bit>

namespace tavo::rules {

namespace {

constexpr int kDaysInWeek = 7;
constexpr int kMonthsInYear = 12;
constexpr int kLastInstance = 5;
constexpr std::int32_t kEveryDay = 127;
constexpr std::int32_t kMaxInterval = 999;
constexpr std::int64_t kMonthsEnd = std::int64_t{3001} * kMonthsInYear; // no stored date lies there

bool UsesMonthInterval(std::int32_t type) {
    return type == kRecursMonthly || type == kRecursMonthNth;
}

bool UsesInterval(std::int32_t type) {
    return type == kRecursDaily || type == kRecursWeekly || UsesMonthInterval(type);
}

bool UsesMask(std::int32_t type) {
    return type == kRecursWeekly || type == kRecursMonthNth || type == kRecursYearNth;
}

bool UsesInstance(std::int32_t type) {
    return type == kRecursMonthNth || type == kRecursYearNth;
}

bool UsesDayOfMonth(std::int32_t type) {
    return type == kRecursMonthly || type == kRecursYearly;
}

bool UsesMonthOfYear(std::int32_t type) {
    return type == kRecursYearly || type == kRecursYearNth;
}

DayNumber Capped(DayNumber day) {
    return day <= kLastStoredDay ? day : kNoDay;
}

// The instance-th day of the month whose weekday is in the mask; the last one for kLastInstance.
DayNumber NthInMonth(int year, int month, std::int32_t mask, std::int32_t instance) {
    const DayNumber first = DayFromCivil(year, month, 1);
    const int length = DaysInMonth(year, month);
    const bool fromEnd = instance == kLastInstance;
    int left = fromEnd ? 1 : instance;
    for (int index = 0; index < length; ++index) {
        const DayNumber day = fromEnd ? first + length - 1 - index : first + index;
        if ((mask >> WeekdayOf(day) & 1) != 0 && --left == 0) {
            return day;
        }
    }
    return first + length - 1; // unreachable with a mask: every weekday comes four times
}

} // namespace

RecurrenceDays::RecurrenceDays(const StoredPattern& pattern, DayNumber start)
    : Interval(pattern.Interval), Mask(pattern.DayOfWeekMask & kEveryDay),
      MaskDays(std::popcount(static_cast<unsigned>(Mask))), Start(start), FirstSunday(start - WeekdayOf(start)) {
    if (pattern.Type == kRecursDaily) {
        Kind = Mask == kWeekdaysMask ? Family::DailyWeekdays : Family::Daily;
        return;
    }
    if (pattern.Type == kRecursWeekly) {
        Kind = Family::Weekly;
        return;
    }
    Kind = Family::OneInMonths;
    DayOfMonth = UsesDayOfMonth(pattern.Type) ? pattern.DayOfMonth : 0;
    Instance = pattern.Instance;
    const CivilDate date = CivilFromDay(start);
    FirstMonth = static_cast<std::int64_t>(date.Year) * kMonthsInYear;
    if (UsesMonthInterval(pattern.Type)) {
        FirstMonth += date.Month - 1;
    } else {
        Interval = kMonthsInYear;
        FirstMonth += pattern.MonthOfYear - 1;
    }
}

bool RecurrenceDays::IsStepOnWeekday(std::int64_t step) const {
    return (Mask >> WeekdayOf(Start + step * Interval) & 1) != 0;
}

int RecurrenceDays::CountStepsOnWeekday(std::int64_t steps) const {
    int count = 0;
    for (std::int64_t step = 0; step < steps; ++step) {
        count += IsStepOnWeekday(step) ? 1 : 0;
    }
    return count;
}

int RecurrenceDays::CountMaskBelow(int weekday) const {
    return std::popcount(static_cast<unsigned>(Mask & ((1 << weekday) - 1)));
}

DayNumber RecurrenceDays::DayOfRound(std::int64_t round) const {
    const std::int64_t months = FirstMonth + round * Interval;
    if (months >= kMonthsEnd) {
        return kNoDay;
    }
    const int year = static_cast<int>(months / kMonthsInYear);
    const int month = static_cast<int>(months % kMonthsInYear) + 1;
    if (DayOfMonth == 0) {
        return Capped(NthInMonth(year, month, Mask, Instance));
    }
    return Capped(DayFromCivil(year, month, std::min(DayOfMonth, DaysInMonth(year, month))));
}

DayNumber RecurrenceDays::FirstWeekday(DayNumber day) const {
    const std::int64_t step = (day - Start + Interval - 1) / Interval;
    for (std::int64_t tried = step; tried < step + kDaysInWeek; ++tried) {
        if (IsStepOnWeekday(tried)) {
            return Start + tried * Interval;
        }
    }
    return kNoDay;
}

DayNumber RecurrenceDays::FirstOfWeeks(DayNumber day) const {
    const std::int64_t week = (day - FirstSunday) / kDaysInWeek;
    const std::int64_t late = week % Interval;
    const int weekday = late == 0 ? WeekdayOf(day) : kDaysInWeek;
    const auto left = static_cast<unsigned>(Mask) >> weekday << weekday;
    const DayNumber sunday = FirstSunday + (week - late) * kDaysInWeek;
    if (left != 0 && weekday < kDaysInWeek) {
        return sunday + std::countr_zero(left);
    }
    return sunday + Interval * kDaysInWeek + std::countr_zero(static_cast<unsigned>(Mask));
}

DayNumber RecurrenceDays::FirstOfMonths(DayNumber day) const {
    const CivilDate date = CivilFromDay(day);
    const std::int64_t months = static_cast<std::int64_t>(date.Year) * kMonthsInYear + date.Month - 1 - FirstMonth;
    std::int64_t round = months <= 0 ? 0 : (months + Interval - 1) / Interval;
    if (DayOfRound(round) < day) {
        ++round;
    }
    return DayOfRound(round);
}

DayNumber RecurrenceDays::FirstOnOrAfter(DayNumber day) const {
    day = std::max(day, Start);
    if (day > kLastStoredDay) {
        return kNoDay;
    }
    switch (Kind) {
    case Family::Daily:
        return Capped(Start + (day - Start + Interval - 1) / Interval * Interval);
    case Family::DailyWeekdays:
        return Capped(FirstWeekday(day));
    case Family::Weekly:
        return Capped(FirstOfWeeks(day));
    case Family::OneInMonths:
        break;
    }
    return FirstOfMonths(day);
}

std::int64_t RecurrenceDays::CountThrough(DayNumber day) const {
    day = std::min(day, kLastStoredDay);
    if (day < Start) {
        return 0;
    }
    const std::int64_t steps = (day - Start) / Interval + 1;
    if (Kind == Family::Daily) {
        return steps;
    }
    if (Kind == Family::DailyWeekdays) {
        return steps / kDaysInWeek * CountStepsOnWeekday(kDaysInWeek) + CountStepsOnWeekday(steps % kDaysInWeek);
    }
    if (Kind == Family::Weekly) {
        const std::int64_t week = (day - FirstSunday) / kDaysInWeek;
        const bool counts = week % Interval == 0;
        const std::int64_t whole = (week + Interval - 1) / Interval;
        return whole * MaskDays + (counts ? CountMaskBelow(WeekdayOf(day) + 1) : 0) - CountMaskBelow(WeekdayOf(Start));
    }
    const CivilDate date = CivilFromDay(day);
    const std::int64_t months = static_cast<std::int64_t>(date.Year) * kMonthsInYear + date.Month - 1 - FirstMonth;
    if (months < 0) {
        return 0;
    }
    const std::int64_t round = months / Interval;
    const std::int64_t through = DayOfRound(round) <= day ? round : round - 1;
    return std::max<std::int64_t>(through - FirstRound() + 1, 0);
}

DayNumber RecurrenceDays::Nth(std::int64_t n) const {
    const std::int64_t index = n - 1;
    if (Kind == Family::Daily) {
        return Capped(Start + index * Interval);
    }
    if (Kind == Family::DailyWeekdays) {
        const int perCycle = CountStepsOnWeekday(kDaysInWeek);
        if (perCycle == 0) {
            return kNoDay;
        }
        std::int64_t step = index / perCycle * kDaysInWeek;
        for (std::int64_t left = index % perCycle; left > 0 || !IsStepOnWeekday(step); ++step) {
            left -= IsStepOnWeekday(step) ? 1 : 0;
        }
        return Capped(Start + step * Interval);
    }
    if (Kind == Family::Weekly) {
        const std::int64_t fromSunday = index + CountMaskBelow(WeekdayOf(Start));
        auto left = static_cast<unsigned>(Mask);
        for (std::int64_t skip = fromSunday % MaskDays; skip > 0; --skip) {
            left &= left - 1;
        }
        return Capped(FirstSunday + fromSunday / MaskDays * Interval * kDaysInWeek + std::countr_zero(left));
    }
    return DayOfRound(FirstRound() + index);
}

PatternFault FindPatternFault(const StoredPattern& pattern) {
    const std::int32_t type = pattern.Type;
    if (!UsesInterval(type) && !UsesMonthOfYear(type)) {
        return PatternFault::Type;
    }
    if (UsesInterval(type) && (pattern.Interval < 1 || pattern.Interval > kMaxInterval)) {
        return PatternFault::Interval;
    }
    if (UsesMask(type) && (pattern.DayOfWeekMask < 1 || pattern.DayOfWeekMask > kEveryDay)) {
        return PatternFault::Mask;
    }
    if (UsesInstance(type) && (pattern.Instance < 1 || pattern.Instance > kLastInstance)) {
        return PatternFault::Instance;
    }
    if (UsesMonthOfYear(type) && (pattern.MonthOfYear < 1 || pattern.MonthOfYear > kMonthsInYear)) {
        return PatternFault::Month;
    }
    if (UsesDayOfMonth(type) && (pattern.DayOfMonth < 1 || pattern.DayOfMonth > 31)) {
        return PatternFault::DayOfMonth;
    }
    constexpr int kLeapYear = 2000; // the 29th of February is allowed
    if (type == kRecursYearly && pattern.DayOfMonth > DaysInMonth(kLeapYear, pattern.MonthOfYear)) {
        return PatternFault::NeverInMonth;
    }
    return PatternFault::None;
}

bool IsSameRule(const StoredPattern& left, const StoredPattern& right) {
    const std::int32_t type = left.Type;
    if (type != right.Type || (UsesInterval(type) && left.Interval != right.Interval) ||
        (UsesMask(type) && left.DayOfWeekMask != right.DayOfWeekMask) ||
        (UsesInstance(type) && left.Instance != right.Instance) ||
        (UsesDayOfMonth(type) && left.DayOfMonth != right.DayOfMonth) ||
        (UsesMonthOfYear(type) && left.MonthOfYear != right.MonthOfYear)) {
        return false;
    }
    if (type == kRecursDaily && (left.DayOfWeekMask == kWeekdaysMask) != (right.DayOfWeekMask == kWeekdaysMask)) {
        return false;
    }
    if (left.End == PatternEnd::Never || right.End == PatternEnd::Never) {
        return left.End == right.End;
    }
    // A count and a date that leave the same occurrences are the same end.
    return left.Occurrences == right.Occurrences;
}

bool DerivePatternEnd(StoredPattern& pattern, DayNumber start) {
    const RecurrenceDays days(pattern, start);
    switch (pattern.End) {
    case PatternEnd::Never:
        pattern.Occurrences = 0;
        pattern.LastDay = 0;
        return true;
    case PatternEnd::OnDate:
        if (pattern.LastDay < start) {
            return false;
        }
        pattern.Occurrences = static_cast<std::int32_t>(days.CountThrough(pattern.LastDay));
        return pattern.Occurrences >= 1;
    case PatternEnd::AfterCount:
        if (pattern.Occurrences < 1) {
            return false;
        }
        pattern.LastDay = std::min(days.Nth(pattern.Occurrences), kLastStoredDay);
        return days.FirstOnOrAfter(start) != kNoDay;
    }
    return false;
}

} // namespace tavo::rules
