// The store's six types of recurrence as rules that other calendars read.
#pragma once

#include "host/rules/stored_item.h"

#include <string>

namespace tavo::exchange {

// A rule with the same occurrences, once they are counted from the first of them.
struct WrittenRule {
    rules::DayNumber FirstDay = 0; // of the first occurrence, which the pattern may have later than its start
    std::string Value;             // of RRULE
};

// Of a pattern of one of the six types that begins on that day and has its end derived. `until` is its last moment as
// the value of UNTIL, where it ends on a day.
WrittenRule WriteRule(const rules::StoredPattern& pattern, rules::DayNumber start, const std::string& until);

} // namespace tavo::exchange
