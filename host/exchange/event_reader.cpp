// Turns one event of a calendar file into what the store keeps.
#include "host/exchange/event_reader.h"

#include "host/exchange/calendar_text.h"
#include "host/exchange/event_reminder.h"
#include "host/exchange/event_series.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace tavo::exchange {
namespace {

using rules::StoredException;
using rules::StoredItem;

constexpr std::string_view kUidName = "UID";
constexpr const char* kBusyProperty = "X-MICROSOFT-CDO-BUSYSTATUS";

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string_view::npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::u16string ReadText(const char* text) {
    return text == nullptr ? std::u16string() : DecodeText(text);
}

void ReadCategories(icalcomponent* event, StoredItem& item) {
    for (icalproperty* property = icalcomponent_get_first_property(event, ICAL_CATEGORIES_PROPERTY);
         property != nullptr; property = icalcomponent_get_next_property(event, ICAL_CATEGORIES_PROPERTY)) {
        item.Categories += item.Categories.empty() ? u"" : u", ";
        item.Categories += ReadText(icalproperty_get_categories(property));
    }
}

void ReadTexts(icalcomponent* event, StoredItem& item) {
    if (icalproperty* property = icalcomponent_get_first_property(event, ICAL_SUMMARY_PROPERTY)) {
        item.Subject = ReadText(icalproperty_get_summary(property));
    }
    if (icalproperty* property = icalcomponent_get_first_property(event, ICAL_LOCATION_PROPERTY)) {
        item.Location = ReadText(icalproperty_get_location(property));
    }
    if (icalproperty* property = icalcomponent_get_first_property(event, ICAL_DESCRIPTION_PROPERTY)) {
        item.Body = ReadText(icalproperty_get_description(property));
    }
    ReadCategories(event, item);
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

void ReadFlags(icalcomponent* event, EventEntry& entry) {
    StoredItem& item = entry.Item;
    if (icalproperty* property = icalcomponent_get_first_property(event, ICAL_CLASS_PROPERTY)) {
        item.Sensitivity =
            icalproperty_get_class(property) == ICAL_CLASS_PUBLIC ? kSensitivityNormal : kSensitivityPrivate;
    }
    if (icalproperty* property = icalcomponent_get_first_property(event, ICAL_STATUS_PROPERTY)) {
        const icalproperty_status status = icalproperty_get_status(property);
        entry.Cancelled = status == ICAL_STATUS_CANCELLED;
        item.BusyStatus = status == ICAL_STATUS_TENTATIVE ? kBusyTentative : item.BusyStatus;
    }
    if (icalproperty* property = icalcomponent_get_first_property(event, ICAL_TRANSP_PROPERTY)) {
        const icalproperty_transp transparency = icalproperty_get_transp(property);
        if (transparency == ICAL_TRANSP_TRANSPARENT || transparency == ICAL_TRANSP_TRANSPARENTNOCONFLICT) {
            item.BusyStatus = kBusyFree;
        }
    }
    for (icalproperty* property = icalcomponent_get_first_property(event, ICAL_X_PROPERTY); property != nullptr;
         property = icalcomponent_get_next_property(event, ICAL_X_PROPERTY)) {
        if (EqualsIgnoringCase(icalproperty_get_x_name(property), kBusyProperty)) {
            item.BusyStatus = ReadBusyWord(Trim(icalproperty_get_value_as_string(property)), item.BusyStatus);
        }
    }
}

} // namespace

Reading EventReader::Read(CalendarPiece& piece, EventEntry& entry, FileFault& fault) {
    entry = {};
    const ComponentPtr event = Parser.Parse(piece, fault);
    if (event == nullptr) {
        return Reading::Broken;
    }
    entry.Item.Uid = FindUid(piece);
    EventTime end;
    Reading reading = ReadTimes(piece, event.get(), entry, end, fault);
    if (reading == Reading::Good) {
        reading = ReadOccurrence(piece, event.get(), entry, fault);
    }
    if (reading == Reading::Good && !entry.Occurrence) {
        reading = ReadSeries(piece, event.get(), entry.Start, Zones, entry.Item, fault);
    }
    if (reading != Reading::Good) {
        return reading;
    }
    ReadTexts(event.get(), entry.Item);
    ReadFlags(event.get(), entry);
    ReadReminder(event.get(), entry.Start, end, entry.Item);
    return Reading::Good;
}

Reading EventReader::ReadTimes(const CalendarPiece& piece, icalcomponent* event, EventEntry& entry, EventTime& end,
                               FileFault& fault) {
    icalproperty* property = icalcomponent_get_first_property(event, ICAL_DTSTART_PROPERTY);
    if (property == nullptr) {
        fault = {piece.Line, "it has no start (DTSTART)"};
        return Reading::Refused;
    }
    Reading reading = ReadTime(property, icalproperty_get_dtstart(property), Zones, entry.Start, fault.Reason);
    if (reading != Reading::Good) {
        fault.Line = FindLine(piece, "DTSTART");
        return reading;
    }
    reading = ReadEnd(event, entry.Start, Zones, end, fault.Reason);
    if (reading != Reading::Good) {
        fault.Line = FindLine(piece, "DTEND");
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

Reading EventReader::ReadOccurrence(const CalendarPiece& piece, icalcomponent* event, EventEntry& entry,
                                    FileFault& fault) {
    icalproperty* property = icalcomponent_get_first_property(event, ICAL_RECURRENCEID_PROPERTY);
    if (property == nullptr) {
        return Reading::Good;
    }
    fault.Line = FindLine(piece, "RECURRENCE-ID");
    if (icalproperty_get_first_parameter(property, ICAL_RANGE_PARAMETER) != nullptr) {
        fault.Reason = "it changes all later occurrences of a series at once (RANGE), which cannot be kept";
        return Reading::Refused;
    }
    EventTime time;
    const Reading reading = ReadTime(property, icalproperty_get_recurrenceid(property), Zones, time, fault.Reason);
    entry.Occurrence = time;
    entry.OccurrenceText = icalproperty_get_value_as_string(property);
    return reading;
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
        if (depth == 1 && EqualsIgnoringCase(name, kUidName) && !Trim(value).empty()) {
            return std::string(Trim(value));
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
