// Property by property.
#include "edit/pattern_rule.h"

namespace tavo {

std::optional<PatternRule> ReadRule(IRecurrencePattern& pattern) {
    PatternRule rule;
    const bool isRead =
        Succeeded(pattern.get_RecurrenceType(rule.Type)) && Succeeded(pattern.get_Interval(rule.Interval)) &&
        Succeeded(pattern.get_DayOfWeekMask(rule.Mask)) && Succeeded(pattern.get_DayOfMonth(rule.DayOfMonth)) &&
        Succeeded(pattern.get_Instance(rule.Instance)) && Succeeded(pattern.get_MonthOfYear(rule.Month));
    return isRead ? std::optional(rule) : std::nullopt;
}

Status PutRule(IRecurrencePattern& pattern, const PatternRule& rule) {
    Status status = pattern.put_RecurrenceType(rule.Type);
    const auto put = [&](Status (IRecurrencePattern::*property)(std::int32_t), std::int32_t value) {
        status = Succeeded(status) ? (pattern.*property)(value) : status;
    };
    put(&IRecurrencePattern::put_Interval, rule.Interval);
    put(&IRecurrencePattern::put_DayOfWeekMask, rule.Mask);
    put(&IRecurrencePattern::put_DayOfMonth, rule.DayOfMonth);
    put(&IRecurrencePattern::put_Instance, rule.Instance);
    put(&IRecurrencePattern::put_MonthOfYear, rule.Month);
    return status;
}

} // namespace tavo
