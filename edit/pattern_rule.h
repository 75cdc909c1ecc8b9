// What makes a rule of a recurrence pattern, without its times and its end.
#pragma once

#include "platform/outlook.h"

#include <cstdint>
#include <optional>

namespace tavo {

struct PatternRule {
    std::int32_t Type = kRecursOnce;
    std::int32_t Interval = 1;
    std::int32_t Mask = 0;
    std::int32_t DayOfMonth = 0;
    std::int32_t Instance = 0;
    std::int32_t Month = 0;

    friend bool operator==(const PatternRule&, const PatternRule&) = default;
};

// Nothing when a part of it cannot be read.
std::optional<PatternRule> ReadRule(IRecurrencePattern& pattern);
// The first failure, and then the rest is not put.
Status PutRule(IRecurrencePattern& pattern, const PatternRule& rule);

} // namespace tavo
