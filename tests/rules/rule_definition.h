// What a recurrence rule means, said day by day: every day of a span is asked whether each part of the rule holds.
#pragma once

#include "host/rules/rule_walk.h"

#include <vector>

namespace tavo::rules::test {

// All occurrences from `start` to `last`, without regard to cost. Days that a month does not have are left out.
std::vector<Seconds> DefineOccurrences(const RecurrenceRule& rule, Seconds start, Seconds last);

} // namespace tavo::rules::test
