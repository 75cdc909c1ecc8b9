// The one reminder that an appointment has, out of the alarms that an event may have.
#include "host/exchange/event_reminder.h"

#include "host/exchange/own_properties.h"

#include "host/rules/calendar_value.h"

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
    bool Foreign = true; // not the one that an export of ours marked
    bool Mail = false;
    bool Sound = false;
    Seconds Lead = 0; // before the start

    auto Rank() const { return std::tuple(Foreign, Mail, Lead); }
};

Seconds ReadLead(const rules::ContentLine& trigger, const EventTime& start, const EventTime& end) {
    if (const auto moment = rules::ReadCalendarTime(trigger.Value); moment && moment->IsReal()) {
        // A moment of its own, always in universal time.
        return (start.In == nullptr ? start.Clock : start.In->Rules->ToUtc(start.Clock)) - moment->ToSeconds();
    }
    // A moment that there is not counts as the start; what is no duration either has ended the reading before.
    Seconds lead = -rules::ReadDuration(trigger.Value).value_or(rules::CalendarDuration()).ToSeconds();
    const std::string* related = trigger.FindParameter("RELATED");
    if (related != nullptr && EqualsIgnoringCase(*related, "END")) {
        lead -= end.Clock - start.Clock;
    }
    return lead;
}

std::optional<Alarm> ReadAlarm(const LineList& lines, const EventTime& start, const EventTime& end,
                               const std::optional<OwnReminder>& own) {
    const rules::ContentLine* trigger = lines.FindFirst("TRIGGER");
    if (trigger == nullptr) {
        return std::nullopt;
    }
    Alarm alarm;
    alarm.Foreign = lines.FindFirst(kOwnAlarm) == nullptr;
    if (const rules::ContentLine* action = lines.FindFirst("ACTION"); action != nullptr) {
        const std::string_view word = locale::TrimBlanks(action->Value);
        if (EqualsIgnoringCase(word, "NONE")) {
            return std::nullopt; // how some programs say that there is no reminder
        }
        alarm.Mail = EqualsIgnoringCase(word, "EMAIL");
        alarm.Sound = EqualsIgnoringCase(word, "AUDIO");
    }
    const Seconds lead = ReadLead(*trigger, start, end);
    const bool isOwn = own && !alarm.Foreign && lead == Seconds{own->Minutes} * kSecondsPerMinute;
    if (lead > kLongestLead && !isOwn) {
        return std::nullopt; // of a series, decades of occurrences would be due at once
    }
    alarm.Lead = std::max<Seconds>(0, lead);
    return alarm;
}

} // namespace

void ReadReminder(const EventLines& event, const EventTime& start, const EventTime& end, rules::StoredItem& item,
                  std::vector<std::size_t>& places) {
    const std::optional<OwnReminder> own = ReadOwnReminder(event.Own);
    if (own && !own->IsSet) {
        item.ReminderMinutes = own->Minutes;
        item.ReminderOptions = own->Options;
        return;
    }
    std::optional<Alarm> best;
    auto taken = places.end();
    for (auto place = places.begin(); place != places.end(); ++place) {
        const std::optional<Alarm> alarm = ReadAlarm(event.Alarms[*place], start, end, own);
        if (alarm && (!best || alarm->Rank() < best->Rank())) {
            best = alarm;
            taken = place;
        }
    }
    if (!best) {
        return;
    }
    places.erase(taken);
    item.ReminderSet = true;
    // Full minutes, and never later than asked for.
    item.ReminderMinutes = static_cast<std::int32_t>((best->Lead + kSecondsPerMinute - 1) / kSecondsPerMinute);
    item.ReminderOptions = best->Sound ? kSoundingReminder : kSilentReminder;
    if (own && item.ReminderMinutes == own->Minutes) {
        item.ReminderOptions = own->Options; // else another program has moved the alarm since
    }
}

} // namespace tavo::exchange
