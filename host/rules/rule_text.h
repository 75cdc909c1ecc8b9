// Recurrence rules of other calendars as they write them: "FREQ=MONTHLY;BYDAY=-1FR;COUNT=3".
#pragma once

#include "host/rules/rule_walk.h"

#include <string>
#include <string_view>

namespace tavo::rules {

struct RuleText {
    RecurrenceRule Rule; // its end in the digits that the text has; a date alone is the end of that day
    bool IsUntilUtc = false;
    bool HasScale = false; // RSCALE, which says what becomes of days that a month does not have
};

// Reads the value of an RRULE or EXRULE. Names count in either case, parts come in any order; a part of an
// experimental name (X-) is passed over. False for a rule that cannot be walked; `fault` then says why, for people,
// unless it is no rule at all.
bool ReadRuleText(std::string_view value, RuleText& read, std::string& fault);

} // namespace tavo::rules
