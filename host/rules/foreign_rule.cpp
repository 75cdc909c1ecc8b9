// What foreign rules make, put together from what their lines say.
#include "host/rules/foreign_rule.h"

#include <algorithm>
#include <cstddef>

namespace tavo::rules {

namespace {

constexpr Seconds kFirstSpan = 400 * kSecondsPerDay;
constexpr Seconds kEndOfTime = (kLastStoredDay + 1) * kSecondsPerDay;

} // namespace

std::unique_ptr<ForeignRule> ForeignRule::Parse(std::string_view lines, Seconds start, const ZoneRules* own,
                                                const ZoneLookup& lookup, std::string& fault) {
    RuleParts parts;
    parts.Start = start;
    if (!ReadRuleLines(lines, own, lookup, parts, fault)) {
        return nullptr;
    }
    return std::unique_ptr<ForeignRule>(new ForeignRule(std::move(parts)));
}

void ForeignRule::TakeCountedEnd(Seconds end) {
    std::vector<RecurrenceRule*> counted;
    for (std::vector<RecurrenceRule>* rules : {&Rule.Rules, &Rule.ExceptRules}) {
        for (RecurrenceRule& rule : *rules) {
            if (rule.Count > 0) {
                counted.push_back(&rule);
            }
        }
    }
    if (counted.size() == 1 && end >= Rule.Start - 1) {
        counted.front()->Until = end;
        counted.front()->Count = 0;
        Rule.CountedEnd = end;
    }
}

bool ForeignRule::FindCountedEnds(ExpansionBudget& budget) {
    int counted = 0;
    for (std::vector<RecurrenceRule>* rules : {&Rule.Rules, &Rule.ExceptRules}) {
        const bool adds = rules == &Rule.Rules;
        for (RecurrenceRule& rule : *rules) {
            if (rule.Count == 0) {
                continue;
            }
            // The start is the first that a rule adds, also where the rule alone would not make it.
            std::int64_t place = adds ? 1 : 0;
            Seconds last = adds ? Rule.Start : Rule.Start - 1; // what takes nothing out ends before it begins
            RuleWalk walk(rule, Rule.Start, Rule.Start, budget);
            while (const std::optional<Seconds> time = walk.Next()) {
                place += adds && *time == Rule.Start ? 0 : 1;
                if (place > rule.Count) {
                    break;
                }
                last = *time;
            }
            if (budget.IsSpent()) {
                return false;
            }
            rule.Count = 0;
            rule.Until = last;
            Rule.CountedEnd = ++counted == 1 && Rule.CountedEnd == 0 ? last : 0;
        }
    }
    return true;
}

Seconds ForeignRule::GetCountedEnd() const {
    return std::max<Seconds>(Rule.CountedEnd, 0);
}

void ForeignRule::Expand(Seconds from, Seconds to, std::vector<RuleOccurrence>& occurrences,
                         ExpansionBudget& budget) const {
    const auto startsBefore = [](const RuleOccurrence& date, Seconds time) { return date.Start < time; };
    const auto begin = std::lower_bound(Rule.Dates.begin(), Rule.Dates.end(), from, startsBefore);
    const auto end = to >= from ? std::lower_bound(begin, Rule.Dates.end(), to + 1, startsBefore) : begin;
    if (!budget.Take(end - begin)) {
        return;
    }
    std::vector<RuleOccurrence> found(begin, end);
    const auto walk = [&](const RecurrenceRule& rule, const auto& visit) {
        RecurrenceRule bounded = rule;
        bounded.Until = std::min(rule.Until.value_or(to), to);
        RuleWalk steps(bounded, Rule.Start, from, budget);
        while (const std::optional<Seconds> time = steps.Next()) {
            visit(*time);
        }
    };
    for (const RecurrenceRule& rule : Rule.Rules) {
        walk(rule, [&found](Seconds time) { found.push_back({time, std::nullopt}); });
    }
    std::vector<Seconds> except;
    for (const RecurrenceRule& rule : Rule.ExceptRules) {
        walk(rule, [&except](Seconds time) { except.push_back(time); });
    }
    if (budget.IsSpent()) {
        return; // a part of the occurrences would be taken for all of them
    }
    std::sort(except.begin(), except.end());
    // Of equal starts the one from a period of its own length stays.
    std::stable_sort(found.begin(), found.end(), [](const RuleOccurrence& left, const RuleOccurrence& right) {
        return left.Start != right.Start ? left.Start < right.Start
                                         : left.Length.has_value() > right.Length.has_value();
    });
    const std::size_t before = occurrences.size();
    for (const RuleOccurrence& occurrence : found) {
        const bool twice = occurrences.size() > before && occurrences.back().Start == occurrence.Start;
        const bool excepted =
            std::binary_search(except.begin(), except.end(), occurrence.Start) ||
            std::binary_search(Rule.ExceptDates.begin(), Rule.ExceptDates.end(), occurrence.Start) ||
            std::binary_search(Rule.ExceptDays.begin(), Rule.ExceptDays.end(), DayOf(occurrence.Start));
        if (!twice && !excepted) {
            occurrences.push_back(occurrence);
        }
    }
}

std::optional<RuleOccurrence> ForeignRule::FindFirst(const std::function<bool(Seconds)>& isExcepted,
                                                     ExpansionBudget& budget) const {
    Seconds from = Rule.Dates.front().Start;
    for (Seconds span = kFirstSpan; from < kEndOfTime && !budget.IsSpent(); span *= 8) {
        const Seconds to = std::min(from + span, kEndOfTime);
        std::vector<RuleOccurrence> found;
        Expand(from, to, found, budget);
        for (const RuleOccurrence& occurrence : found) {
            if (!isExcepted(occurrence.Start)) {
                return occurrence;
            }
        }
        from = to + 1;
    }
    return std::nullopt;
}

bool ForeignRule::TakesPlace() const {
    if (Rule.Rules.empty() || Rule.Dates.size() > 1) {
        return true;
    }
    ExpansionBudget budget(kStepsOfExpansion);
    return std::any_of(Rule.Rules.begin(), Rule.Rules.end(), [&](RecurrenceRule rule) {
        rule.Until.reset(); // one that ends before its second occurrence leaves the start in its own right
        return RuleWalk(rule, Rule.Start, Rule.Start, budget).Next().has_value();
    });
}

Seconds ForeignRule::FindLastStart() const {
    Seconds last = Rule.Dates.back().Start;
    for (const RecurrenceRule& rule : Rule.Rules) {
        if (rule.IsEndless()) {
            return kForever;
        }
        last = std::max(last, *rule.Until);
    }
    return last;
}

} // namespace tavo::rules
