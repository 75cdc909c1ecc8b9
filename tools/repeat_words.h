// Repetitions as people write them: "weekly on mon,wed until 1 dec", "every 2 weeks 10 times", or an RRULE.
#pragma once

#include "host/rules/wall_time.h"
#include "tools/repeat_rule.h"
#include "tools/when.h"

namespace tavo::tools {

// Nothing, with a sentence in `error`, for what is no repetition.
std::optional<RepeatRule> ReadRepeat(std::string_view text, const Moment& now, std::string& error);

// The first day from `start` on that the rule names a weekday for; `start` where it names none.
rules::DayNumber FindFirstDay(const RepeatRule& rule, rules::DayNumber start);

// The value of an RRULE for what starts on that day. In words a day that a month does not have is its last one.
std::string WriteRule(const RepeatRule& rule, rules::DayNumber start);

} // namespace tavo::tools
