// A parental leave, a year abroad: on every day that they touch.
#include "host/exchange/long_event.h"

#include "host/exchange/carried_lines.h"
#include "host/exchange/own_properties.h"
#include "host/exchange/zone_parameter.h"
#include "host/rules/calendar_value.h"
#include "host/rules/save_rules.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace tavo::exchange {
namespace {

using rules::Seconds;
using rules::StoredException;
using rules::StoredItem;

constexpr std::string_view kUtcName = "UTC";
constexpr std::array<std::string_view, 7> kTimeNames = {"DTSTART", "DTEND", "DURATION", "RRULE",
                                                        "EXRULE",  "RDATE", "EXDATE"};

struct Span {
    Seconds& Start;
    Seconds& End;
};

// On the clock that the item keeps.
Span OwnSpan(StoredItem& item) {
    return item.Zone.empty() ? Span{item.Start, item.End} : Span{item.ZoneStart, item.ZoneEnd};
}

StoredException MakePart(Seconds day, Seconds start, Seconds end) {
    StoredException part;
    part.Original = day;
    part.Kind = rules::ExceptionKind::Moved;
    part.Start = start;
    part.End = end;
    return part;
}

// The line with the zone's name as the store knows it; as it came where that is none.
std::string NameZone(std::string_view line, const EntryContext& context) {
    std::string named(line);
    const std::optional<ZoneParameter> parameter = FindZoneParameter(line);
    const Zone* const zone = parameter ? context.Zones.Find(parameter->Name) : nullptr;
    if (zone != nullptr) {
        named.replace(parameter->From, parameter->To - parameter->From, WriteZoneParameter(zone->Name));
    }
    return named;
}

void CarryTimes(const LineList& event, const EntryContext& context, StoredItem& item) {
    const CalendarPiece& piece = context.Piece;
    int depth = 0;
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string_view name;
        std::string_view value;
        const std::string_view line = piece.GetLine(index);
        SplitLine(line, name, value);
        depth += EqualsIgnoringCase(name, "BEGIN") ? 1 : 0;
        depth -= EqualsIgnoringCase(name, "END") ? 1 : 0;
        for (const std::string_view timeName : kTimeNames) {
            if (depth == 1 && piece.Lines[index].IsRead && EqualsIgnoringCase(name, timeName) &&
                event.FindFirst(timeName) != nullptr) {
                AppendCarried(item.Carried, std::string(kOwnWhole) + NameZone(line, context));
            }
        }
    }
}

// Turns the item into the series of the days from a start to an end, both on its own clock.
void MakeDays(StoredItem& item, Seconds start, Seconds end) {
    const Span span = OwnSpan(item);
    const Seconds firstDay = rules::MidnightOf(rules::DayOf(start));
    const Seconds lastDay = rules::MidnightOf(rules::DayOf(end - 1)); // an end at midnight touches the day before
    item.Pattern = {};
    item.Pattern.Type = kRecursDaily;
    item.Pattern.End = rules::PatternEnd::OnDate;
    item.Pattern.LastDay = rules::DayOf(lastDay);
    item.ForeignRule.clear();
    item.Exceptions.clear();
    span.Start = firstDay;
    span.End = item.AllDay ? firstDay : firstDay + rules::kSecondsPerDay; // one day is kept as its midnight
    if (!item.AllDay && start != firstDay) {
        item.Exceptions.push_back(MakePart(firstDay, start, firstDay + rules::kSecondsPerDay));
    }
    if (!item.AllDay && end != lastDay + rules::kSecondsPerDay) {
        item.Exceptions.push_back(MakePart(lastDay, lastDay, end));
    }
}

// What the carried lines say of the time of the whole, on the clock of the item; nothing where they are on another.
class CarriedSpan {
  public:
    explicit CarriedSpan(const StoredItem& item) {
        std::string_view lines = item.Carried;
        while (!lines.empty()) {
            const std::string_view line = lines.substr(0, lines.find('\n'));
            lines.remove_prefix(std::min(line.size() + 1, lines.size()));
            if (line.starts_with(kOwnWhole)) {
                Take(line.substr(kOwnWhole.size()), item.Zone);
            }
        }
        if (Start && Length && !End) {
            End = *Start + *Length;
        }
    }

    std::optional<Seconds> Start;
    std::optional<Seconds> End;

  private:
    void Take(std::string_view line, std::string_view zone) {
        std::string_view name;
        std::string_view value;
        SplitLine(line, name, value);
        if (EqualsIgnoringCase(name, "DURATION")) {
            if (const auto duration = rules::ReadDuration(value); duration) {
                Length = duration->ToSeconds();
            }
        } else if (EqualsIgnoringCase(name, "DTSTART")) {
            Start = ReadOn(line, value, zone);
        } else if (EqualsIgnoringCase(name, "DTEND")) {
            End = ReadOn(line, value, zone);
        }
    }

    static std::optional<Seconds> ReadOn(std::string_view line, std::string_view value, std::string_view zone) {
        const auto time = rules::ReadCalendarTime(value);
        const std::optional<ZoneParameter> parameter = FindZoneParameter(line);
        const std::string_view own = time && time->Utc ? kUtcName : parameter ? parameter->Name : std::string_view();
        return time && time->IsReal() && own == zone ? std::optional(time->ToSeconds()) : std::nullopt;
    }

    std::optional<Seconds> Length;
};

bool IsSamePart(const StoredException& left, const StoredException& right) {
    return left.Original == right.Original && left.Kind == right.Kind && left.Start == right.Start &&
           left.End == right.End && left.Subject == right.Subject && left.Location == right.Location;
}

} // namespace

bool IsTooLong(const StoredItem& item) {
    const Seconds length = item.Zone.empty() ? item.End - item.Start : item.ZoneEnd - item.ZoneStart;
    return length > rules::kLongestAppointment;
}

void SpreadOverDays(const LineList& event, const EntryContext& context, StoredItem& item) {
    const Span span = OwnSpan(item);
    MakeDays(item, span.Start, span.End);
    CarryTimes(event, context, item);
    const bool repeats = event.FindFirst("RRULE") != nullptr || event.FindFirst("RDATE") != nullptr;
    context.Faults.Mention(context.Piece.Line, "it lasts longer than 31 days",
                           repeats ? "it comes as one appointment on each of its days, and takes place once here"
                                   : "it comes as one appointment on each of its days");
}

bool IsStillWhole(const StoredItem& item) {
    const CarriedSpan whole(item);
    if (item.Pattern.Type != kRecursDaily || item.ReminderSet || !whole.Start || !whole.End ||
        *whole.End - *whole.Start <= rules::kLongestAppointment) {
        return false;
    }
    StoredItem made = item;
    made.Item = 0;
    MakeDays(made, *whole.Start, *whole.End);
    const bool isGood = rules::CheckAndDerive(made) == rules::SaveFault::None;
    return isGood && made.Pattern == item.Pattern && made.Start == item.Start && made.End == item.End &&
           made.ZoneStart == item.ZoneStart && made.ZoneEnd == item.ZoneEnd &&
           std::equal(made.Exceptions.begin(), made.Exceptions.end(), item.Exceptions.begin(), item.Exceptions.end(),
                      IsSamePart);
}

} // namespace tavo::exchange
