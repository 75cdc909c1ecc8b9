// The one reminder that an appointment has, out of the alarms that an event may have.
#include "host/exchange/event_reminder.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace tavo::exchange {
namespace {

using rules::Seconds;

constexpr Seconds kSecondsPerMinute = 60;
constexpr Seconds kLongestLead = 366 * rules::kSecondsPerDay;
// Without the repeat bit: what comes from outside rings once.
constexpr std::int32_t kSilentReminder = kReminderLight | kReminderDialog;
constexpr std::int32_t kSoundingReminder = kSilentReminder | kReminderSound;

struct Alarm {
    bool Mail = false;
    bool Sound = false;
    Seconds Lead = 0; // before the start

    auto Rank() const { return std::tuple(Mail, Lead); }
};

Seconds ReadLead(icalproperty* trigger, const EventTime& start, const EventTime& end) {
    const icaltriggertype value = icalproperty_get_trigger(trigger);
    if (icaltime_is_null_time(value.time) == 0) {
        // A moment of its own, always in universal time.
        const Seconds moment = rules::MakeTime(value.time.year, value.time.month, value.time.day, value.time.hour,
                                               value.time.minute, value.time.second);
        return (start.In == nullptr ? start.Clock : start.In->Rules->ToUtc(start.Clock)) - moment;
    }
    Seconds lead = -static_cast<Seconds>(icaldurationtype_as_int(value.duration));
    icalparameter* related = icalproperty_get_first_parameter(trigger, ICAL_RELATED_PARAMETER);
    if (related != nullptr && icalparameter_get_related(related) == ICAL_RELATED_END) {
        lead -= end.Clock - start.Clock;
    }
    return lead;
}

std::optional<Alarm> ReadAlarm(icalcomponent* component, const EventTime& start, const EventTime& end) {
    icalproperty* trigger = icalcomponent_get_first_property(component, ICAL_TRIGGER_PROPERTY);
    if (trigger == nullptr) {
        return std::nullopt;
    }
    Alarm alarm;
    if (icalproperty* action = icalcomponent_get_first_property(component, ICAL_ACTION_PROPERTY); action != nullptr) {
        const char* word = icalproperty_get_value_as_string(action);
        if (EqualsIgnoringCase(word, "NONE")) {
            return std::nullopt; // how some programs say that there is no reminder
        }
        alarm.Mail = EqualsIgnoringCase(word, "EMAIL");
        alarm.Sound = EqualsIgnoringCase(word, "AUDIO");
    }
    const Seconds lead = ReadLead(trigger, start, end);
    if (lead > kLongestLead) {
        return std::nullopt; // of a series, decades of occurrences would be due at once
    }
    alarm.Lead = std::max<Seconds>(0, lead);
    return alarm;
}

} // namespace

void ReadReminder(icalcomponent* event, const EventTime& start, const EventTime& end, rules::StoredItem& item) {
    std::optional<Alarm> best;
    for (icalcomponent* component = icalcomponent_get_first_component(event, ICAL_VALARM_COMPONENT);
         component != nullptr; component = icalcomponent_get_next_component(event, ICAL_VALARM_COMPONENT)) {
        const std::optional<Alarm> alarm = ReadAlarm(component, start, end);
        if (alarm && (!best || alarm->Rank() < best->Rank())) {
            best = alarm;
        }
    }
    if (best) {
        item.ReminderSet = true;
        // Full minutes, and never later than asked for.
        item.ReminderMinutes = static_cast<std::int32_t>((best->Lead + kSecondsPerMinute - 1) / kSecondsPerMinute);
        item.ReminderOptions = best->Sound ? kSoundingReminder : kSilentReminder;
    }
}

} // namespace tavo::exchange
