// Time zones that come inside a calendar, as VTIMEZONE components.
#include "host/outlook/ical_time.h"
#include "host/outlook/zone_rules.h"

#include <limits>

namespace tavo::outlook {

namespace {

// A zone does not change its clock more often than this; a longer list is somebody's mischief.
constexpr std::size_t kMaxTransitions = 20000;

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

void AppendRule(icalproperty* property, const Observance& observance, std::vector<ZoneTransition>& transitions) {
    icalrecurrencetype rule = icalproperty_get_rrule(property);
    if (!icaltime_is_null_time(rule.until) && icaltime_is_utc(rule.until) != 0) {
        // Onsets are local times; the iterator compares digits.
        rule.until = IcalFromSeconds(SecondsFromIcal(rule.until) + observance.From);
    }
    if (rule.freq != ICAL_YEARLY_RECURRENCE && rule.freq != ICAL_MONTHLY_RECURRENCE) {
        return; // zones change by the year; anything finer would be mischief
    }
    icalrecur_iterator* iterator = icalrecur_iterator_new(rule, IcalFromSeconds(observance.Start));
    while (iterator != nullptr && transitions.size() < kMaxTransitions) {
        const icaltimetype onset = icalrecur_iterator_next(iterator);
        if (icaltime_is_null_time(onset) || onset.year > kZoneHorizonYear) {
            break;
        }
        transitions.push_back({SecondsFromIcal(onset) - observance.From, observance.To});
    }
    icalrecur_iterator_free(iterator);
}

void AppendObservance(icalcomponent* part, const Observance& observance, std::vector<ZoneTransition>& transitions) {
    transitions.push_back({observance.Start - observance.From, observance.To});
    for (icalproperty* property = icalcomponent_get_first_property(part, ICAL_RRULE_PROPERTY); property != nullptr;
         property = icalcomponent_get_next_property(part, ICAL_RRULE_PROPERTY)) {
        AppendRule(property, observance, transitions);
    }
    for (icalproperty* property = icalcomponent_get_first_property(part, ICAL_RDATE_PROPERTY);
         property != nullptr && transitions.size() < kMaxTransitions;
         property = icalcomponent_get_next_property(part, ICAL_RDATE_PROPERTY)) {
        const icaldatetimeperiodtype date = icalproperty_get_rdate(property);
        if (!icaltime_is_null_time(date.time)) {
            transitions.push_back({SecondsFromIcal(date.time) - observance.From, observance.To});
        }
    }
}

} // namespace

std::unique_ptr<ZoneRules> ParseZoneComponent(const std::string& text) {
    const std::unique_ptr<icalcomponent, ComponentCloser> zone(icalparser_parse_string(text.c_str()));
    if (zone == nullptr || icalcomponent_isa(zone.get()) != ICAL_VTIMEZONE_COMPONENT) {
        return nullptr;
    }
    std::vector<ZoneTransition> transitions;
    Seconds earliest = std::numeric_limits<Seconds>::max();
    std::int32_t firstOffset = 0;
    for (icalcomponent* part = icalcomponent_get_first_component(zone.get(), ICAL_ANY_COMPONENT); part != nullptr;
         part = icalcomponent_get_next_component(zone.get(), ICAL_ANY_COMPONENT)) {
        Observance observance;
        if (!ReadObservance(part, observance)) {
            continue;
        }
        if (observance.Start < earliest) {
            earliest = observance.Start;
            firstOffset = observance.From;
        }
        AppendObservance(part, observance, transitions);
    }
    return transitions.empty() ? nullptr : std::make_unique<ZoneRules>(firstOffset, std::move(transitions));
}

} // namespace tavo::outlook
