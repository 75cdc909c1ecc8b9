// Tells which repetition rules of other calendars say exactly what one of the store's six types says.
#pragma once

#include "host/rules/rule_text.h"

#include <cstdint>
#include <optional>

namespace tavo::exchange {

// A repetition by one of the six types, in the store's own numbers. Fields that the type does not use are 0.
struct SeriesRule {
    std::int32_t Type = 0; // kRecursDaily .. kRecursYearNth
    std::int32_t Interval = 1;
    std::int32_t DayOfWeekMask = 0;
    std::int32_t DayOfMonth = 0;
    std::int32_t Instance = 0;
    std::int32_t MonthOfYear = 0;
};

// The rule without its end, for a series that starts on `start`. Empty when no type gives the same days: the rule
// must then be kept as it is. The time parts of the rule (BYHOUR and finer) must be the start's own.
std::optional<SeriesRule> RecogniseRule(const rules::RuleText& text, rules::Seconds start);

} // namespace tavo::exchange
