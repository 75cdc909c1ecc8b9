// Time zones that come inside a calendar, as VTIMEZONE components.
#include "host/rules/ical_rule.h"
#include "host/rules/ical_time.h"
#include "host/rules/zone_rules.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace tavo::rules {

namespace {

// A zone is not described in more lines, nor does it change its clock more often; what is longer is somebody's
// mischief.
constexpr std::ptrdiff_t kMaxLines = 5000;
constexpr std::size_t kMaxTransitions = 20000;
constexpr const char* kTooMuch = "changes its clock in more ways than can be worked out";

struct ComponentCloser {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};

struct Observance {
    Seconds Start = 0;
    std::int32_t From = 0;
    std::int32_t To = 0;
};

bool ReadObservance(icalcomponent* part, Observance& observance) {
    icalproperty* start = icalcomponent_get_first_property(part, ICAL_DTSTART_PROPERTY);
    icalproperty* from = icalcomponent_get_first_property(part, ICAL_TZOFFSETFROM_PROPERTY);
    icalproperty* to = icalcomponent_get_first_property(part, ICAL_TZOFFSETTO_PROPERTY);
    if (start == nullptr || from == nullptr || to == nullptr) {
        return false;
    }
    observance.Start = SecondsFromIcal(icalproperty_get_dtstart(start));
    observance.From = icalproperty_get_tzoffsetfrom(from);
    observance.To = icalproperty_get_tzoffsetto(to);
    return true;
}

void AppendRule(icalproperty* property, const Observance& observance, ExpansionBudget& budget,
                std::vector<ZoneTransition>& transitions) {
    const icalrecurrencetype ical = icalproperty_get_rrule(property);
    RecurrenceRule rule;
    std::string fault;
    if (!ReadIcalRule(ical, rule, fault) || rule.Every < Frequency::Monthly) {
        return; // zones change by the year; anything finer would be mischief
    }
    if (rule.Until && icaltime_is_utc(ical.until) != 0) {
        rule.Until = *rule.Until + observance.From; // onsets are local times
    }
    const Seconds horizon = MakeTime(kZoneHorizonYear + 1, 1, 1) - 1;
    rule.Until = std::min(rule.Until.value_or(horizon), horizon);
    RuleWalk walk(rule, observance.Start, observance.Start, budget);
    while (const std::optional<Seconds> onset = walk.Next()) {
        transitions.push_back({*onset - observance.From, observance.To});
    }
}

void AppendObservance(icalcomponent* part, const Observance& observance, ExpansionBudget& budget,
                      std::vector<ZoneTransition>& transitions) {
    transitions.push_back({observance.Start - observance.From, observance.To});
    for (icalproperty* property = icalcomponent_get_first_property(part, ICAL_RRULE_PROPERTY); property != nullptr;
         property = icalcomponent_get_next_property(part, ICAL_RRULE_PROPERTY)) {
        AppendRule(property, observance, budget, transitions);
    }
    for (icalproperty* property = icalcomponent_get_first_property(part, ICAL_RDATE_PROPERTY);
         property != nullptr && transitions.size() <= kMaxTransitions; // one more is noticed
         property = icalcomponent_get_next_property(part, ICAL_RDATE_PROPERTY)) {
        const icaldatetimeperiodtype date = icalproperty_get_rdate(property);
        if (!icaltime_is_null_time(date.time)) {
            transitions.push_back({SecondsFromIcal(date.time) - observance.From, observance.To});
        }
    }
}

} // namespace

std::unique_ptr<ZoneRules> ParseZoneComponent(const std::string& text, std::string& fault) {
    if (std::count(text.begin(), text.end(), '\n') > kMaxLines) {
        fault = kTooMuch;
        return nullptr;
    }
    fault = "cannot be read";
    const std::unique_ptr<icalcomponent, ComponentCloser> zone(icalparser_parse_string(text.c_str()));
    if (zone == nullptr || icalcomponent_isa(zone.get()) != ICAL_VTIMEZONE_COMPONENT) {
        return nullptr;
    }
    std::vector<ZoneTransition> transitions;
    Seconds earliest = std::numeric_limits<Seconds>::max();
    std::int32_t firstOffset = 0;
    ExpansionBudget budget(kStepsOfZone);
    for (icalcomponent* part = icalcomponent_get_first_component(zone.get(), ICAL_ANY_COMPONENT); part != nullptr;
         part = icalcomponent_get_next_component(zone.get(), ICAL_ANY_COMPONENT)) {
        Observance observance;
        if (!ReadObservance(part, observance)) {
            continue;
        }
        if (std::abs(observance.From) >= kLargestZoneOffset || std::abs(observance.To) >= kLargestZoneOffset) {
            fault = "is 24 hours or more away from universal time";
            return nullptr;
        }
        if (observance.Start < earliest) {
            earliest = observance.Start;
            firstOffset = observance.From;
        }
        AppendObservance(part, observance, budget, transitions);
        if (budget.IsSpent() || transitions.size() > kMaxTransitions) {
            fault = kTooMuch;
            return nullptr;
        }
    }
    return transitions.empty() ? nullptr : std::make_unique<ZoneRules>(firstOffset, std::move(transitions));
}

} // namespace tavo::rules
