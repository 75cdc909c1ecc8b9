// Time zones that come inside a calendar, as VTIMEZONE components.
#include "host/locale/ascii.h"
#include "host/rules/calendar_value.h"
#include "host/rules/content_line.h"
#include "host/rules/rule_text.h"
#include "host/rules/zone_rules.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <optional>

namespace tavo::rules {

namespace {

// A zone is not described in more lines, nor does it change its clock more often; what is longer is somebody's
// mischief.
constexpr std::ptrdiff_t kMaxLines = 5000;
constexpr std::size_t kMaxTransitions = 20000;
constexpr const char* kTooMuch = "changes its clock in more ways than can be worked out";

// From when on a zone's clock goes by one of its times; the rules and dates tell when again.
struct Observance {
    std::optional<Seconds> Start;
    std::optional<std::int32_t> From;
    std::optional<std::int32_t> To;
    std::vector<RuleText> Rules;
    std::vector<Seconds> Dates;

    bool IsWhole() const { return Start && From && To; }
};

// Takes a line that means something; any other one, and what cannot be read, is left out.
void ReadLine(const ContentLine& line, Observance& observance) {
    if (line.Name == "DTSTART") {
        if (const std::optional<CalendarTime> time = ReadCalendarTime(line.Value); time && time->IsReal()) {
            observance.Start = time->ToSeconds();
        }
    } else if (line.Name == "TZOFFSETFROM") {
        observance.From = ReadUtcOffset(line.Value);
    } else if (line.Name == "TZOFFSETTO") {
        observance.To = ReadUtcOffset(line.Value);
    } else if (line.Name == "RRULE") {
        RuleText rule;
        std::string fault;
        // Zones change by the year; anything finer would be mischief.
        if (ReadRuleText(line.Value, rule, fault) && rule.Rule.Every >= Frequency::Monthly) {
            observance.Rules.push_back(std::move(rule));
        }
    } else if (line.Name == "RDATE") {
        std::string_view rest = line.Value;
        while (!rest.empty() && observance.Dates.size() <= kMaxTransitions) { // one more is noticed
            const std::size_t end = std::min(rest.find(','), rest.size());
            if (const std::optional<CalendarTime> time = ReadCalendarTime(rest.substr(0, end));
                time && time->IsReal()) {
                observance.Dates.push_back(time->ToSeconds());
            }
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
}

void AppendRule(const RuleText& text, const Observance& observance, ExpansionBudget& budget,
                std::vector<ZoneTransition>& transitions) {
    RecurrenceRule rule = text.Rule;
    if (rule.Until && text.IsUntilUtc) {
        rule.Until = *rule.Until + *observance.From; // onsets are local times
    }
    const Seconds horizon = MakeTime(kZoneHorizonYear + 1, 1, 1) - 1;
    rule.Until = std::min(rule.Until.value_or(horizon), horizon);
    RuleWalk walk(rule, *observance.Start, *observance.Start, budget);
    while (const std::optional<Seconds> onset = walk.Next()) {
        transitions.push_back({*onset - *observance.From, *observance.To});
    }
}

void AppendObservance(const Observance& observance, ExpansionBudget& budget, std::vector<ZoneTransition>& transitions) {
    transitions.push_back({*observance.Start - *observance.From, *observance.To});
    for (const RuleText& rule : observance.Rules) {
        AppendRule(rule, observance, budget, transitions);
    }
    for (const Seconds date : observance.Dates) {
        transitions.push_back({date - *observance.From, *observance.To});
    }
}

// The observances of a zone, those that are not whole left out. Nothing for text that is no zone.
std::optional<std::vector<Observance>> ReadObservances(std::string_view text) {
    std::vector<Observance> read;
    int depth = 0; // 1 within the zone, 2 within an observance
    bool isClosed = false;
    while (!text.empty() && !isClosed) {
        const std::string unfolded = TakeUnfoldedLine(text);
        const std::optional<ContentLine> line = ReadContentLine(unfolded);
        if (!line) {
            continue;
        }
        if (line->Name == "BEGIN") {
            if (depth == 0 && !locale::EqualsIgnoringCase(line->Value, "VTIMEZONE")) {
                return std::nullopt;
            }
            if (++depth == 2) {
                read.emplace_back();
            }
        } else if (line->Name == "END") {
            isClosed = --depth <= 0;
        } else if (depth == 2) {
            ReadLine(*line, read.back());
        }
    }
    if (!isClosed) {
        return std::nullopt;
    }
    std::erase_if(read, [](const Observance& observance) { return !observance.IsWhole(); });
    return read;
}

} // namespace

std::unique_ptr<ZoneRules> ParseZoneComponent(const std::string& text, std::string& fault) {
    if (std::count(text.begin(), text.end(), '\n') > kMaxLines) {
        fault = kTooMuch;
        return nullptr;
    }
    fault = "cannot be read";
    const std::optional<std::vector<Observance>> observances = ReadObservances(text);
    if (!observances) {
        return nullptr;
    }
    std::vector<ZoneTransition> transitions;
    Seconds earliest = std::numeric_limits<Seconds>::max();
    std::int32_t firstOffset = 0;
    ExpansionBudget budget(kStepsOfZone);
    for (const Observance& observance : *observances) {
        if (std::abs(*observance.From) >= kLargestZoneOffset || std::abs(*observance.To) >= kLargestZoneOffset) {
            fault = "is 24 hours or more away from universal time";
            return nullptr;
        }
        if (*observance.Start < earliest) {
            earliest = *observance.Start;
            firstOffset = *observance.From;
        }
        AppendObservance(observance, budget, transitions);
        if (budget.IsSpent() || transitions.size() > kMaxTransitions) {
            fault = kTooMuch;
            return nullptr;
        }
    }
    return transitions.empty() ? nullptr : std::make_unique<ZoneRules>(firstOffset, std::move(transitions));
}

} // namespace tavo::rules
