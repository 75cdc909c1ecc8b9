// Recurrence rules of other calendars that the device's six types cannot say.
#pragma once

#include "host/outlook/expansion_budget.h"
#include "host/outlook/wall_time.h"
#include "host/outlook/zone_rules.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::outlook {

// An occurrence that the rule makes; a period of an RDATE brings its own length.
struct RuleOccurrence {
    Seconds Start = 0;
    std::optional<Seconds> Length;
};

// Looks a zone up by the name that a TZID parameter gives; null when there is none.
using ZoneLookup = std::function<const ZoneRules*(const std::string& name)>;

// The unfolded content lines RRULE, EXRULE, RDATE and EXDATE of a series, ready to be expanded. All times are on the
// clock of the series' own zone (the device's, for a floating one).
class ForeignRule {
  public:
    // Null when a line cannot be read or is not one of the four, and when the rules recur too often; `fault` then says
    // which and why, for people. `own` is the zone of the series, null for a floating one. A rule with a count has its
    // end found before anything else is asked of it.
    static std::unique_ptr<ForeignRule> Parse(std::string_view lines, Seconds start, const ZoneRules* own,
                                              const ZoneLookup& lookup, std::string& fault);
    ~ForeignRule();
    ForeignRule(const ForeignRule&) = delete;
    ForeignRule& operator=(const ForeignRule&) = delete;

    // Steps that reading these lines takes.
    static std::int64_t CostOf(std::string_view lines);

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
    // False when its rules make no occurrence at all, whatever is taken out.
    bool TakesPlace() const;
    // A time after which nothing starts; kForever when the rule is endless.
    Seconds FindLastStart() const;

  private:
    struct Parts;
    explicit ForeignRule(std::unique_ptr<Parts> parts);
    std::unique_ptr<Parts> Rule;
};

// The same lines with every date-time in them later by `shift` seconds: for a series that moves within its days.
std::string ShiftRuleTimes(std::string_view lines, Seconds shift);

} // namespace tavo::outlook
