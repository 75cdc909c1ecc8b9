// The days that a rule names follow the start.
#include "tools/series_move.h"

namespace tavo::tools {
namespace {

constexpr int kDaysPerWeek = 7;
constexpr int kLastInstance = 5;

std::int32_t RotateMask(std::int32_t mask, rules::DayNumber days) {
    const int places = static_cast<int>(((days % kDaysPerWeek) + kDaysPerWeek) % kDaysPerWeek);
    const std::int32_t whole = (1 << kDaysPerWeek) - 1;
    return ((mask << places) | (mask >> (kDaysPerWeek - places))) & whole;
}

// The last week of a month stays the last where the new day lies in one.
std::int32_t FindInstance(std::int32_t instance, const rules::CivilDate& date) {
    const std::int32_t week = (date.Day - 1) / kDaysPerWeek + 1;
    const bool isInLastWeek = date.Day + kDaysPerWeek > rules::DaysInMonth(date.Year, date.Month);
    return (instance == kLastInstance && isInLastWeek) || week == kLastInstance ? kLastInstance : week;
}

} // namespace

rules::StoredPattern MovePattern(const rules::StoredPattern& pattern, rules::DayNumber from, rules::DayNumber to) {
    rules::StoredPattern moved = pattern;
    const rules::CivilDate date = rules::CivilFromDay(to);
    const std::int32_t weekday = 1 << rules::WeekdayOf(to);
    switch (pattern.Type) {
    case kRecursWeekly:
        moved.DayOfWeekMask = RotateMask(pattern.DayOfWeekMask, to - from);
        break;
    case kRecursMonthly:
    case kRecursYearly:
        moved.DayOfMonth = date.Day;
        moved.MonthOfYear = pattern.Type == kRecursYearly ? date.Month : pattern.MonthOfYear;
        break;
    case kRecursMonthNth:
    case kRecursYearNth:
        moved.DayOfWeekMask = weekday;
        moved.Instance = FindInstance(pattern.Instance, date);
        moved.MonthOfYear = pattern.Type == kRecursYearNth ? date.Month : pattern.MonthOfYear;
        break;
    default:
        break;
    }
    return moved;
}

Status PutPattern(IRecurrencePattern& target, const rules::StoredPattern& before, const rules::StoredPattern& after) {
    Status status = Status::Ok;
    const auto put = [&](std::int32_t was, std::int32_t is, auto setter) {
        if (Succeeded(status) && was != is) {
            status = (target.*setter)(is);
        }
    };
    put(before.DayOfWeekMask, after.DayOfWeekMask, &IRecurrencePattern::put_DayOfWeekMask);
    put(before.DayOfMonth, after.DayOfMonth, &IRecurrencePattern::put_DayOfMonth);
    put(before.Instance, after.Instance, &IRecurrencePattern::put_Instance);
    put(before.MonthOfYear, after.MonthOfYear, &IRecurrencePattern::put_MonthOfYear);
    return status;
}

} // namespace tavo::tools
