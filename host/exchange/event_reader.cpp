// Turns one event of a calendar file into what the store keeps.
#include "host/exchange/event_reader.h"

#include "host/exchange/calendar_text.h"
#include "host/exchange/event_reminder.h"
#include "host/exchange/event_series.h"
#include "host/exchange/long_event.h"
#include "host/exchange/own_properties.h"
#include "host/rules/save_rules.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

namespace tavo::exchange {
namespace {

using rules::StoredException;
using rules::StoredItem;

constexpr std::string_view kUidName = "UID";
// What an occurrence of a series says for itself and has no place of its own in the store.
constexpr std::array<std::string_view, 5> kOfOccurrence = {"DESCRIPTION", "CATEGORIES", "CLASS", "TRANSP",
                                                           "X-MICROSOFT-CDO-BUSYSTATUS"};

void ReadText(const LineList& event, std::string_view name, std::u16string& text) {
    if (const rules::ContentLine* line = event.FindFirst(name); line != nullptr) {
        text = DecodeText(RemoveEscapes(line->Value));
    }
}

void ReadCategories(const LineList& event, EventEntry& entry) {
    StoredItem& item = entry.Item;
    for (const rules::ContentLine* line : event.FindAll("CATEGORIES")) {
        if (const std::optional<TagList> kind = ReadOwnKind(*line); kind) {
            entry.Kinds.push_back(*kind);
            continue;
        }
        for (const std::string_view category : SplitTexts(line->Value)) {
            item.Categories += item.Categories.empty() ? u"" : u", ";
            item.Categories += DecodeText(RemoveEscapes(category));
        }
    }
}

// The word of a line; empty when there is no such line.
std::string_view ReadWord(const LineList& event, std::string_view name) {
    const rules::ContentLine* line = event.FindFirst(name);
    return line == nullptr ? "" : locale::TrimBlanks(line->Value);
}

std::int32_t ReadBusyWord(std::string_view word, std::int32_t otherwise) {
    if (EqualsIgnoringCase(word, "FREE")) {
        return kBusyFree;
    }
    if (EqualsIgnoringCase(word, "TENTATIVE")) {
        return kBusyTentative;
    }
    return EqualsIgnoringCase(word, "OOF") ? kBusyOutOfOffice : otherwise;
}

void ReadFlags(const LineList& event, EventEntry& entry) {
    StoredItem& item = entry.Item;
    if (const std::string_view word = ReadWord(event, "CLASS"); !word.empty()) {
        item.Sensitivity = EqualsIgnoringCase(word, "PUBLIC") ? kSensitivityNormal : kSensitivityPrivate;
    }
    const std::string_view status = ReadWord(event, "STATUS");
    entry.Cancelled = EqualsIgnoringCase(status, "CANCELLED");
    item.BusyStatus = EqualsIgnoringCase(status, "TENTATIVE") ? kBusyTentative : item.BusyStatus;
    const std::string_view transparency = ReadWord(event, "TRANSP");
    if (EqualsIgnoringCase(transparency, "TRANSPARENT") || EqualsIgnoringCase(transparency, "TRANSPARENT-NOCONFLICT")) {
        item.BusyStatus = kBusyFree;
    }
    item.BusyStatus = ReadBusyWord(ReadWord(event, "X-MICROSOFT-CDO-BUSYSTATUS"), item.BusyStatus);
}

Reading ReadTimes(const LineList& event, const EntryContext& context, EventEntry& entry, EventTime& end,
                  FileFault& fault) {
    const rules::ContentLine* line = event.FindFirst("DTSTART");
    if (line == nullptr) {
        fault = {context.Piece.Line, "it has no start (DTSTART)"};
        return Reading::Refused;
    }
    Reading reading = ReadTime(*line, line->Value, context, entry.Start, fault.Reason);
    if (reading != Reading::Good) {
        fault.Line = FindLine(context.Piece, "DTSTART");
        return reading;
    }
    reading = ReadEnd(event, entry.Start, context, end, fault.Reason);
    if (reading != Reading::Good) {
        fault.Line = FindLine(context.Piece, "DTEND");
        return reading;
    }
    StoredItem& item = entry.Item;
    item.AllDay = entry.Start.DateOnly;
    if (entry.Start.In != nullptr) {
        item.Zone = entry.Start.In->Name;
        item.ZoneStart = entry.Start.Clock;
        item.ZoneEnd = end.Clock;
    } else {
        item.Start = entry.Start.Clock;
        item.End = end.Clock;
    }
    return Reading::Good;
}

Reading ReadOccurrence(const LineList& event, const EntryContext& context, EventEntry& entry, FileFault& fault) {
    const rules::ContentLine* line = event.FindFirst("RECURRENCE-ID");
    if (line == nullptr) {
        return Reading::Good;
    }
    fault.Line = FindLine(context.Piece, "RECURRENCE-ID");
    entry.ChangesFollowing = line->FindParameter("RANGE") != nullptr;
    EventTime time;
    const Reading reading = ReadTime(*line, line->Value, context, time, fault.Reason);
    entry.Occurrence = time;
    entry.OccurrenceText = locale::TrimBlanks(line->Value);
    return reading;
}

// The places of the alarms that say when.
std::vector<std::size_t> FindAlarms(const EventLines& event) {
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < event.Alarms.size(); ++place) {
        if (event.Alarms[place].FindFirst("TRIGGER") != nullptr) {
            places.push_back(place);
        }
    }
    return places;
}

// A series keeps of an occurrence its times, its subject and its place, and all else as it came.
void CarryOccurrence(const CalendarPiece& piece, const std::vector<std::size_t>& alarms, FaultTeller& faults,
                     EventEntry& entry) {
    int depth = 0;
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string_view name;
        std::string_view value;
        SplitLine(piece.GetLine(index), name, value);
        depth += EqualsIgnoringCase(name, "BEGIN") ? 1 : 0;
        depth -= EqualsIgnoringCase(name, "END") ? 1 : 0;
        if (depth == 1 &&
            std::find(kOfOccurrence.begin(), kOfOccurrence.end(), MakeUpper(name)) != kOfOccurrence.end()) {
            AppendCarried(entry.OccurrenceCarried, piece.GetLine(index));
        }
    }
    AppendCarriedLines(entry.OccurrenceCarried, piece.Carried.Join(alarms));
    if (entry.OccurrenceCarried.size() > rules::kMaxCarriedByOccurrence) {
        faults.Mention(piece.Line, "this occurrence has more text than can be kept",
                       "its times, subject and place were read");
        entry.OccurrenceCarried.clear();
    }
}

} // namespace

Reading EventReader::Read(CalendarPiece& piece, FaultTeller& faults, EventEntry& entry, FileFault& fault) {
    entry = {};
    if (piece.TooLargeLine != 0) {
        fault = {piece.TooLargeLine, "this entry is too large"};
        return Reading::Broken;
    }
    entry.Item.Uid = FindUid(piece);
    EventLines lines;
    if (!ReadEventLines(piece, lines, faults, fault)) {
        return Reading::Broken;
    }
    const EntryContext context{piece, Zones, faults};
    EventTime end;
    Reading reading = ReadTimes(lines.Own, context, entry, end, fault);
    if (reading == Reading::Good) {
        reading = ReadOccurrence(lines.Own, context, entry, fault);
    }
    if (reading == Reading::Good && !entry.Occurrence) {
        reading = ReadSeries(lines.Own, entry.Start, context, entry.Item, fault);
    }
    if (reading != Reading::Good) {
        return reading;
    }
    ReadText(lines.Own, "SUMMARY", entry.Item.Subject);
    ReadText(lines.Own, "LOCATION", entry.Item.Location);
    ReadText(lines.Own, "DESCRIPTION", entry.Item.Body);
    ReadCategories(lines.Own, entry);
    ReadFlags(lines.Own, entry);
    ReadOwnTexts(lines.Own, entry.Item);
    std::vector<std::size_t> alarms = FindAlarms(lines);
    if (entry.Occurrence) {
        CarryOccurrence(piece, alarms, faults, entry);
    }
    if (!entry.Occurrence && IsTooLong(entry.Item)) {
        SpreadOverDays(lines.Own, context,
                       entry.Item); // its alarms stay with the whole: a day of many reminds of nothing
    } else {
        ReadReminder(lines, entry.Start, end, entry.Item, alarms);
    }
    AppendCarriedLines(entry.Item.Carried, piece.Carried.Join(alarms));
    return Reading::Good;
}

StoredException MakeException(const EventEntry& entry, const EventTime& seriesStart, const StoredItem& series) {
    StoredException exception;
    exception.Original = MoveToZone(*entry.Occurrence, seriesStart.In);
    if (entry.Occurrence->DateOnly || seriesStart.DateOnly) {
        exception.Original = rules::MidnightOf(rules::DayOf(exception.Original)) + rules::TimeOfDay(seriesStart.Clock);
    }
    if (entry.Cancelled) {
        return exception;
    }
    const StoredItem& item = entry.Item;
    exception.Kind = rules::ExceptionKind::Moved;
    exception.Start = MoveToZone(entry.Start, seriesStart.In);
    exception.End =
        exception.Start + (entry.Start.In != nullptr ? item.ZoneEnd - item.ZoneStart : item.End - item.Start);
    if (item.Subject != series.Subject) {
        exception.Subject = item.Subject;
    }
    if (item.Location != series.Location) {
        exception.Location = item.Location;
    }
    exception.Carried = entry.OccurrenceCarried;
    return exception;
}

std::string FindUid(const CalendarPiece& piece) {
    std::uint64_t hash = 14695981039346656037ULL; // FNV-1a
    int depth = 0;                                // alarms have UIDs of their own
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string_view name;
        std::string_view value;
        const std::string_view line = piece.GetLine(index);
        SplitLine(line, name, value);
        depth += EqualsIgnoringCase(name, "BEGIN") ? 1 : 0;
        depth -= EqualsIgnoringCase(name, "END") ? 1 : 0;
        if (depth == 1 && EqualsIgnoringCase(name, kUidName) && !locale::TrimBlanks(value).empty()) {
            return std::string(locale::TrimBlanks(value));
        }
        for (const char character : line) {
            hash = (hash ^ static_cast<unsigned char>(character)) * 1099511628211ULL;
        }
        hash = (hash ^ '\n') * 1099511628211ULL;
    }
    std::array<char, 40> uid{};
    std::snprintf(uid.data(), uid.size(), "tavo-%016llx", static_cast<unsigned long long>(hash));
    return uid.data();
}

} // namespace tavo::exchange
