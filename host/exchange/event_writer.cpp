// What others understand in their words, and beside it, in ours, what they cannot say.
#include "host/exchange/event_writer.h"

#include "host/exchange/calendar_lines.h"
#include "host/exchange/ink_lines.h"
#include "host/exchange/long_event.h"
#include "host/exchange/own_properties.h"
#include "host/exchange/rule_writer.h"
#include "host/exchange/zone_parameter.h"
#include "host/locale/utf.h"

#include <algorithm>
#include <optional>

namespace tavo::exchange {
namespace {

using rules::Seconds;
using rules::StoredException;
using rules::StoredItem;

// Calls `take` with each line of several.
template <class Take> void ForEachLine(std::string_view lines, const Take& take) {
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        take(lines.substr(0, end));
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
}

bool IsMidnight(Seconds time) {
    return rules::TimeOfDay(time) == 0;
}

class EventWriter {
  public:
    EventWriter(const ExportItem& source, std::string_view uid, const EventWords& words, std::string& file)
        : Source(source), Item(source.Item), Uid(uid), Words(words), File(file),
          Zone(Item.Zone.empty() ? WrittenZone() : words.Zones(Item.Zone)),
          IsZoned(!Item.Zone.empty() && Zone.Rules != nullptr), Start(Item.Zone.empty() ? Item.Start : Item.ZoneStart),
          End(Item.Zone.empty() ? Item.End : Item.ZoneEnd), IsWhole(IsStillWhole(Item)) {}

    void WriteAll() {
        Begin();
        WriteTimes();
        WriteTexts();
        WriteWords();
        AppendInk(Item.Ink, Words.DrawInk, File);
        WriteCarried(Item.Carried, CarriedPart::Properties);
        WriteAlarm();
        WriteCarried(Item.Carried, CarriedPart::Components);
        Line("END:VEVENT");
        if (Item.IsRecurring() && !IsWhole) {
            for (const StoredException& exception : Item.Exceptions) {
                WriteMoved(exception);
            }
        }
    }

  private:
    enum class CarriedPart { Properties, Components };

    void Line(std::string_view line) { AppendFolded(line, File); }

    void Text(std::string_view name, std::u16string_view text) {
        // Of characters that no file may hold nothing is left.
        if (const std::string escaped = EscapeText(text); !escaped.empty()) {
            Line(std::string(name) + ":" + escaped);
        }
    }

    void Begin() {
        Line("BEGIN:VEVENT");
        Line("UID:" + std::string(Uid));
        Line("DTSTAMP:" + Words.Stamp);
    }

    // A time of the item's clock, with what says whose it is: ";TZID=Europe/Berlin:20260503T090000".
    std::string TimeValue(Seconds time, bool isDate) const {
        if (isDate) {
            return ";VALUE=DATE:" + WriteDate(time);
        }
        if (!IsZoned) {
            return ":" + WriteDateTime(time);
        }
        if (Zone.Tzid.empty()) {
            return ":" + WriteDateTime(time) + "Z";
        }
        return WriteZoneParameter(Zone.Tzid) + ":" + WriteDateTime(time);
    }

    bool AreDays(Seconds start, Seconds end) const {
        return Item.AllDay && !IsZoned && IsMidnight(start) && IsMidnight(end);
    }

    void WriteSpan(Seconds start, Seconds end) {
        const bool isDate = AreDays(start, end);
        Line("DTSTART" + TimeValue(start, isDate));
        if (end != start) { // one day has no length here, and needs no end there
            Line("DTEND" + TimeValue(end, isDate));
        }
        if (Item.AllDay && !isDate) {
            Line(std::string(kOwnAllDay) + ":1");
        }
    }

    std::string UntilValue() const {
        const Seconds last = rules::MidnightOf(Item.Pattern.LastDay);
        if (AreDays(Start, End)) {
            return WriteDate(last);
        }
        const Seconds until = last + rules::kSecondsPerDay - 1;
        return IsZoned ? WriteDateTime(Zone.Rules->ToUtc(until)) + "Z" : WriteDateTime(until);
    }

    void WriteTimes() {
        if (IsWhole) {
            ForEachLine(Item.Carried, [this](std::string_view line) {
                if (line.starts_with(kOwnWhole)) {
                    Line(NameZone(line.substr(kOwnWhole.size())));
                }
            });
            return;
        }
        if (!Item.IsRecurring()) {
            WriteSpan(Start, End);
            return;
        }
        if (Item.Pattern.Type == kRecursForeign) {
            WriteSpan(Start, End);
            ForEachLine(Item.ForeignRule, [this](std::string_view line) { Line(NameZone(line)); });
        } else {
            const WrittenRule rule =
                WriteRule(Item.Pattern, rules::DayOf(Start),
                          Item.Pattern.End == rules::PatternEnd::OnDate ? UntilValue() : std::string());
            const Seconds later = (rule.FirstDay - rules::DayOf(Start)) * rules::kSecondsPerDay;
            WriteSpan(Start + later, End + later);
            Line("RRULE:" + rule.Value);
            const std::string start = TimeValue(Start + later, AreDays(Start, End));
            Line(std::string(kOwnRule) + ":" +
                 WriteOwnRule({Item.Pattern, rules::DayOf(Start)}, start.substr(start.rfind(':') + 1), rule.Value));
        }
        const std::string mark =
            Item.Pattern.Type == kRecursForeign ? ";" + std::string(kOwnException) + "=1" : std::string();
        for (const StoredException& exception : Item.Exceptions) {
            if (exception.Kind == rules::ExceptionKind::Cancelled) {
                Line("EXDATE" + mark + TimeValue(exception.Original, AreDays(Start, End)));
            }
        }
    }

    // A line of a rule with the zone that it names, which need not be the item's, under the name that the file gives
    // it.
    std::string NameZone(std::string_view line) const {
        std::string named(line);
        const std::optional<ZoneParameter> parameter = FindZoneParameter(line);
        const WrittenZone zone = parameter ? Words.Zones(parameter->Name) : WrittenZone();
        if (parameter && !zone.Tzid.empty()) {
            named.replace(parameter->From, parameter->To - parameter->From, WriteZoneParameter(zone.Tzid));
        }
        return named;
    }

    void WriteTexts() {
        Text("SUMMARY", Item.Subject);
        Text("LOCATION", Item.Location);
        Text("DESCRIPTION", Item.Body);
        for (const TagList kind : Source.Kinds) {
            const std::string name(NameKind(kind));
            Line(std::string("CATEGORIES;").append(kOwnKind).append("=").append(name).append(":").append(name));
        }
        Text("CATEGORIES", Item.Categories);
    }

    void WriteWords() {
        if (Item.Sensitivity != kSensitivityNormal) {
            Line("CLASS:PRIVATE");
        }
        if (Item.Sensitivity != kSensitivityNormal && Item.Sensitivity != kSensitivityPrivate) {
            Line(std::string(kOwnSensitivity) + ":" + std::to_string(Item.Sensitivity));
        }
        if (Item.BusyStatus == kBusyFree) {
            Line("TRANSP:TRANSPARENT");
        } else if (Item.BusyStatus != kBusyBusy) {
            Line(std::string(kOwnBusy) + ":" + std::to_string(Item.BusyStatus));
        }
        const StoredItem usual;
        if (Item.ReminderSet || Item.ReminderMinutes != usual.ReminderMinutes ||
            Item.ReminderOptions != usual.ReminderOptions || Item.Carried.find("BEGIN:VALARM") != std::string::npos) {
            Line(std::string(kOwnReminder) + ":" + WriteOwnReminder(Item));
        }
        Text(kOwnSound, Item.ReminderSound);
    }

    void WriteAlarm() {
        if (!Item.ReminderSet) {
            return;
        }
        Line("BEGIN:VALARM");
        Line(std::string(kOwnAlarm) + ":1");
        Line("TRIGGER:-PT" + std::to_string(Item.ReminderMinutes) + "M");
        Line((Item.ReminderOptions & kReminderSound) != 0 ? "ACTION:AUDIO" : "ACTION:DISPLAY");
        const std::string subject = EscapeText(Item.Subject);
        Line("DESCRIPTION:" + (subject.empty() ? "Reminder" : subject));
        Line("END:VALARM");
    }

    // Components come behind all properties.
    void WriteCarried(std::string_view lines, CarriedPart part) {
        int depth = 0;
        ForEachLine(lines, [&](std::string_view line) {
            const bool begins = line.starts_with("BEGIN:");
            depth += begins ? 1 : 0;
            const bool isWritten = IsWhole && line.starts_with(kOwnWhole); // already, as it was
            if (!isWritten && (depth > 0) == (part == CarriedPart::Components)) {
                Line(line);
            }
            depth -= line.starts_with("END:") ? 1 : 0;
        });
    }

    void WriteMoved(const StoredException& exception) {
        if (exception.Kind != rules::ExceptionKind::Moved) {
            return;
        }
        Begin();
        Line("RECURRENCE-ID" + TimeValue(exception.Original, AreDays(Start, End)));
        WriteSpan(exception.Start, exception.End);
        Text("SUMMARY", exception.Subject.value_or(Item.Subject));
        Text("LOCATION", exception.Location.value_or(Item.Location));
        WriteCarried(exception.Carried, CarriedPart::Properties);
        WriteCarried(exception.Carried, CarriedPart::Components);
        Line("END:VEVENT");
    }

    const ExportItem& Source;
    const StoredItem& Item;
    std::string_view Uid;
    const EventWords& Words;
    std::string& File;
    const WrittenZone Zone;
    const bool IsZoned;
    const Seconds Start; // on the item's own clock
    const Seconds End;
    const bool IsWhole; // a long event whose own lines are written instead of its days
};

} // namespace

void WriteEvents(const ExportItem& item, std::string_view uid, const EventWords& words, std::string& file) {
    EventWriter(item, uid, words, file).WriteAll();
}

} // namespace tavo::exchange
