// A series that is moved to other days.
#pragma once

#include "host/rules/stored_item.h"

namespace tavo::tools {

// The same rule when the series begins on the day `to` instead of `from`: what was weekly on Wednesdays and begins on a
// Friday is weekly on Fridays, what was the first Wednesday of a month is the second Friday when that is where it
// begins. The interval and the end stay. Of a rule of other calendars nothing is known: it stays as it is.
rules::StoredPattern MovePattern(const rules::StoredPattern& pattern, rules::DayNumber from, rules::DayNumber to);

// Puts what is different. The item has to be saved then.
Status PutPattern(IRecurrencePattern& target, const rules::StoredPattern& before, const rules::StoredPattern& after);

} // namespace tavo::tools
