// The content lines RRULE, EXRULE, RDATE and EXDATE of a series, as text.
#pragma once

#include "host/rules/rule_walk.h"
#include "host/rules/wall_time.h"
#include "host/rules/zones.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::rules {

// An occurrence that the rule makes; a period of an RDATE brings its own length.
struct RuleOccurrence {
    Seconds Start = 0;
    std::optional<Seconds> Length;
};

// What the lines of one series say. All times are on the clock of the series' own zone (the device's, for a floating
// one).
struct RuleParts {
    Seconds Start = 0;
    std::vector<RecurrenceRule> Rules;
    std::vector<RecurrenceRule> ExceptRules;
    std::vector<RuleOccurrence> Dates; // sorted; the start is one of them
    std::vector<Seconds> ExceptDates;  // sorted
    std::vector<DayNumber> ExceptDays; // sorted: whole days that an EXDATE without a time takes out
    std::int64_t StartsPerDay = 0;     // of all rules together, at most
    bool HasUnwalked = false;          // a rule among them is not walked: then there are no others
    Seconds CountedEnd = 0;            // of the only rule that had a count; 0: none or several
};

// Reads unfolded lines into `parts`, whose start is set. Where a rule is not walked, as it recurs by the minute or by
// another calendar, only the start and added dates are left: which days it gives or takes cannot be said. False when a
// line cannot be read or is not one of the four, and when the rules recur too often; `fault` then says which and why,
// for people. `own` is the zone of the series, null for a floating one.
bool ReadRuleLines(std::string_view lines, const ZoneRules* own, const ZoneLookup& lookup, RuleParts& parts,
                   std::string& fault);

// Steps of an expansion budget that reading these lines takes.
std::int64_t CostOfRuleLines(std::string_view lines);

// The same lines with every date-time in them later by `shift` seconds: for a series that moves within its days.
std::string ShiftRuleTimes(std::string_view lines, Seconds shift);

} // namespace tavo::rules
