// A parental leave, a year abroad: on every day that they touch.
#include "host/exchange/long_event.h"

#include "host/exchange/carried_lines.h"
#include "host/rules/save_rules.h"

#include <array>
#include <string>

namespace tavo::exchange {
namespace {

using rules::Seconds;
using rules::StoredException;
using rules::StoredItem;

constexpr std::string_view kMark = "X-TAVO-WHOLE-"; // before the name of a line about the time of the whole
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

void CarryTimes(const LineList& event, const CalendarPiece& piece, StoredItem& item) {
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
                AppendCarried(item.Carried, std::string(kMark) + std::string(line));
            }
        }
    }
}

} // namespace

bool IsTooLong(const StoredItem& item) {
    const Seconds length = item.Zone.empty() ? item.End - item.Start : item.ZoneEnd - item.ZoneStart;
    return length > rules::kLongestAppointment;
}

void SpreadOverDays(const LineList& event, const EntryContext& context, StoredItem& item) {
    const Span span = OwnSpan(item);
    const Seconds start = span.Start;
    const Seconds end = span.End;
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
    CarryTimes(event, context.Piece, item);
    const bool repeats = event.FindFirst("RRULE") != nullptr || event.FindFirst("RDATE") != nullptr;
    context.Faults.Mention(context.Piece.Line, "it lasts longer than 31 days",
                           repeats ? "it comes as one appointment on each of its days, and takes place once here"
                                   : "it comes as one appointment on each of its days");
}

} // namespace tavo::exchange
