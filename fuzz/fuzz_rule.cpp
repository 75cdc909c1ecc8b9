// Rules that a fuzzer's bytes choose by a grammar: what is read is walked within its budget, as the definition says,
// and from a moment between as from the start.
#include "fuzz/calendar_grammar.h"
#include "host/rules/rule_text.h"
#include "tests/rules/rule_definition.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace tavo::rules;

constexpr std::int64_t kMostPerDay = 100; // that the definition is asked about

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void RequireSame(const std::string& text, Seconds start, const std::vector<Seconds>& found,
                 const std::vector<Seconds>& expected) {
    if (found == expected) {
        return;
    }
    const auto [one, other] = std::mismatch(found.begin(), found.end(), expected.begin(), expected.end());
    std::fprintf(stderr, "%s from %lld: %zu times for %zu; %lld where %lld is expected\n", text.c_str(),
                 static_cast<long long>(start), found.size(), expected.size(),
                 one == found.end() ? -1LL : static_cast<long long>(*one),
                 other == expected.end() ? -1LL : static_cast<long long>(*other));
    std::abort();
}

// Whether the standard gives all its parts a meaning with this frequency. A leap second is none of the definition's.
bool IsDefined(const RecurrenceRule& rule) {
    const bool isYearly = rule.Every == Frequency::Yearly;
    const bool hasOrdinals =
        std::any_of(rule.Days.begin(), rule.Days.end(), [](const RuleDay& day) { return day.Ordinal != 0; });
    return (!hasOrdinals || rule.Every == Frequency::Monthly || (isYearly && rule.Weeks.empty())) &&
           std::find(rule.OfMinute.begin(), rule.OfMinute.end(), 60) == rule.OfMinute.end() &&
           (rule.Every != Frequency::Weekly || rule.MonthDays.empty()) &&
           (isYearly || rule.Every == Frequency::Hourly || rule.YearDays.empty()) && (isYearly || rule.Weeks.empty());
}

// Nothing when the budget does not suffice.
std::optional<std::vector<Seconds>> Walk(RecurrenceRule rule, Seconds start, Seconds from, Seconds last) {
    rule.Until = std::min(rule.Until.value_or(last), last);
    ExpansionBudget budget(kStepsOfExpansion);
    RuleWalk walk(rule, start, from, budget);
    std::vector<Seconds> times;
    while (const std::optional<Seconds> time = walk.Next()) {
        Require(*time >= from && *time <= last && (times.empty() || *time > times.back()));
        times.push_back(*time);
    }
    return budget.IsSpent() ? std::nullopt : std::optional(times);
}

Seconds SpanOf(Frequency frequency) {
    constexpr DayNumber days[] = {5, 100, 200, 500, 1500};
    return days[static_cast<std::size_t>(frequency)] * kSecondsPerDay;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tavo::fuzz::Choices choices(data, size);
    const Seconds start = MakeTime(2020 + choices.Below(12), 1 + choices.Below(12), 1 + choices.Below(28)) +
                          Seconds{choices.Below(24)} * 3600 + Seconds{choices.Below(60)} * 60;
    std::string text = tavo::fuzz::MakeRule(choices);
    text.erase(std::min(text.find_first_of("\r\n"), text.size()));
    RuleText read;
    std::string fault;
    if (!ReadRuleText(text, read, fault)) {
        return 0;
    }
    const RecurrenceRule& rule = read.Rule;
    const Seconds last = start + SpanOf(rule.Every);
    const std::optional<std::vector<Seconds>> walked = Walk(rule, start, start, last);
    const Seconds from = start + (last - start) / (1 + choices.Below(10));
    const std::optional<std::vector<Seconds>> rest = Walk(rule, start, from, last);
    if (!walked) {
        return 0;
    }
    if (rest) {
        RequireSame(text, start, *rest, {std::lower_bound(walked->begin(), walked->end(), from), walked->end()});
    }
    if (IsDefined(rule) && rule.Missing == MissingDay::Omit && CountStartsPerDay(rule) <= kMostPerDay) {
        RequireSame(text, start, *walked, tavo::rules::test::DefineOccurrences(rule, start, last));
    }
    return 0;
}
