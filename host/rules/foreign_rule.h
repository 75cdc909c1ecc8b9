// Recurrence rules of other calendars that the device's six types cannot say.
#pragma once

#include "host/rules/expansion_budget.h"
#include "host/rules/rule_lines.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tavo::rules {

// The unfolded content lines RRULE, EXRULE, RDATE and EXDATE of a series, ready to be expanded. All times are on the
// clock of the series' own zone (the device's, for a floating one). The start is an occurrence, unless it is taken out.
class ForeignRule {
  public:
    // Null when a line cannot be read or is not one of the four, and when the rules recur too often; `fault` then says
    // which and why, for people. `own` is the zone of the series, null for a floating one. A rule with a count has its
    // end found before anything else is asked of it.
    static std::unique_ptr<ForeignRule> Parse(std::string_view lines, Seconds start, const ZoneRules* own,
                                              const ZoneLookup& lookup, std::string& fault);
    ForeignRule(const ForeignRule&) = delete;
    ForeignRule& operator=(const ForeignRule&) = delete;

    // The end of the one line with a count, as an earlier FindCountedEnds gave it; 0 where it gave none.
    void TakeCountedEnd(Seconds end);
    // Walks the lines with a count whose end is not known to their last start. False when the budget does not suffice.
    bool FindCountedEnds(ExpansionBudget& budget);
    // The last start of the only line with a count; 0 when none or several have one.
    Seconds GetCountedEnd() const;

    // Adds the occurrences with from <= start <= to, in order, each once; none when the budget does not suffice.
    void Expand(Seconds from, Seconds to, std::vector<RuleOccurrence>& occurrences, ExpansionBudget& budget) const;
    // The first that `isExcepted` does not take out; nothing also when the budget does not suffice.
    std::optional<RuleOccurrence> FindFirst(const std::function<bool(Seconds)>& isExcepted,
                                            ExpansionBudget& budget) const;
    // False when its rules make no occurrence at all, and only the start is left of it.
    bool TakesPlace() const;
    // A time after which nothing starts; kForever when the rule is endless.
    Seconds FindLastStart() const;

  private:
    explicit ForeignRule(RuleParts parts) : Rule(std::move(parts)) {}

    RuleParts Rule;
};

} // namespace tavo::rules
