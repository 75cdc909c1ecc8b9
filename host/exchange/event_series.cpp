// How an event repeats: by one of the store's types where it says the same, else by its own rule, kept whole.
#include "host/exchange/event_series.h"

#include "host/exchange/series_rule.h"
#include "host/rules/ical_time.h"

#include <algorithm>
#include <array>

namespace tavo::exchange {
namespace {

using rules::PatternEnd;
using rules::Seconds;
using rules::StoredException;
using rules::StoredItem;
using rules::StoredPattern;

constexpr std::array<std::string_view, 4> kRuleNames = {"RRULE", "EXRULE", "RDATE", "EXDATE"};
constexpr std::string_view kZoneParameter = ";TZID=";

bool IsRuleLine(std::string_view name) {
    return std::any_of(kRuleNames.begin(), kRuleNames.end(),
                       [name](std::string_view rule) { return EqualsIgnoringCase(name, rule); });
}

// The line with the zone's name as the store knows it; false when nothing knows the zone.
bool NameZone(std::string& line, ZoneTable& zones, std::string& reason) {
    const auto begin =
        std::search(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(line.find(':')), kZoneParameter.begin(),
                    kZoneParameter.end(), [](char a, char b) { return (a >= 'a' && a <= 'z' ? a - 32 : a) == b; });
    const std::size_t from = static_cast<std::size_t>(begin - line.begin()) + kZoneParameter.size();
    if (from >= line.size() || line.find(':') < from) {
        return true;
    }
    const bool quoted = line[from] == '"';
    const std::size_t to = quoted ? line.find('"', from + 1) : line.find_first_of(";:", from);
    if (to == std::string::npos) {
        return true;
    }
    const std::string name = line.substr(from + quoted, to - from - quoted);
    const Zone* zone = zones.Find(name);
    if (zone == nullptr) {
        reason = zones.DescribeUnknown(name);
        return false;
    }
    line.replace(from, to - from + quoted,
                 zone->Name.find_first_of(":;,") == std::string::npos ? zone->Name : "\"" + zone->Name + "\"");
    return true;
}

Reading KeepRule(const CalendarPiece& piece, ZoneTable& zones, StoredItem& item, FileFault& fault) {
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string line = piece.GetLine(index);
        std::string_view name;
        std::string_view value;
        if (!SplitLine(line, name, value) || !IsRuleLine(name)) {
            continue;
        }
        if (!NameZone(line, zones, fault.Reason)) {
            fault.Line = piece.Lines[index].Number;
            return Reading::Refused;
        }
        item.ForeignRule += item.ForeignRule.empty() ? "" : "\n";
        item.ForeignRule += line;
    }
    item.Pattern.Type = kRecursForeign;
    return Reading::Good;
}

// The last day on which an occurrence may start: an UNTIL earlier on its day than the series ends the day before.
rules::DayNumber FindLastDay(const icaltimetype& until, const EventTime& start, ZoneTable& zones) {
    EventTime end;
    end.Clock = rules::MakeTime(until.year, until.month, until.day);
    if (until.is_date != 0 || start.DateOnly) {
        return rules::DayOf(end.Clock);
    }
    end.Clock += until.hour * 3600 + until.minute * 60 + until.second;
    end.In = icaltime_is_utc(until) ? zones.GetUtc() : nullptr;
    const Seconds clock = MoveToZone(end, start.In);
    const bool tooEarly = rules::TimeOfDay(clock) < rules::TimeOfDay(start.Clock);
    return rules::DayOf(clock) - (tooEarly ? 1 : 0);
}

void SetPattern(const SeriesRule& series, const icalrecurrencetype& rule, const EventTime& start, ZoneTable& zones,
                StoredPattern& pattern) {
    pattern.Type = series.Type;
    pattern.Interval = series.Interval;
    pattern.DayOfWeekMask = series.DayOfWeekMask;
    pattern.DayOfMonth = series.DayOfMonth;
    pattern.Instance = series.Instance;
    pattern.MonthOfYear = series.MonthOfYear;
    if (rule.count > 0) {
        pattern.End = PatternEnd::AfterCount;
        pattern.Occurrences = rule.count;
    } else if (icaltime_is_null_time(rule.until) == 0) {
        pattern.End = PatternEnd::OnDate;
        pattern.LastDay = FindLastDay(rule.until, start, zones);
    }
}

Reading ReadCancelled(const CalendarPiece& piece, icalcomponent* event, const EventTime& start, ZoneTable& zones,
                      StoredItem& item, FileFault& fault) {
    for (icalproperty* property = icalcomponent_get_first_property(event, ICAL_EXDATE_PROPERTY); property != nullptr;
         property = icalcomponent_get_next_property(event, ICAL_EXDATE_PROPERTY)) {
        EventTime time;
        const Reading reading = ReadTime(property, icalproperty_get_exdate(property), zones, time, fault.Reason);
        if (reading != Reading::Good) {
            fault.Line = FindLine(piece, "EXDATE");
            return reading;
        }
        StoredException exception;
        exception.Original = MoveToZone(time, start.In);
        if (time.DateOnly || start.DateOnly) {
            // A date cancels what starts on it, whatever the time.
            exception.Original = rules::MidnightOf(rules::DayOf(exception.Original)) + rules::TimeOfDay(start.Clock);
        }
        item.Exceptions.push_back(exception);
    }
    const auto byOriginal = [](const StoredException& a, const StoredException& b) { return a.Original < b.Original; };
    std::sort(item.Exceptions.begin(), item.Exceptions.end(), byOriginal);
    const auto same = [](const StoredException& a, const StoredException& b) { return a.Original == b.Original; };
    item.Exceptions.erase(std::unique(item.Exceptions.begin(), item.Exceptions.end(), same), item.Exceptions.end());
    return Reading::Good;
}

} // namespace

Reading ReadSeries(const CalendarPiece& piece, icalcomponent* event, const EventTime& start, ZoneTable& zones,
                   StoredItem& item, FileFault& fault) {
    icalproperty* property = icalcomponent_get_first_property(event, ICAL_RRULE_PROPERTY);
    const bool severalRules = property != nullptr && icalcomponent_count_properties(event, ICAL_RRULE_PROPERTY) > 1;
    const bool extraDays = icalcomponent_get_first_property(event, ICAL_RDATE_PROPERTY) != nullptr;
    const bool takenRules = icalcomponent_get_first_property(event, ICAL_EXRULE_PROPERTY) != nullptr;
    if (property == nullptr && !extraDays) {
        return Reading::Good; // nothing repeats, so nothing can be cancelled
    }
    if (property == nullptr || severalRules || extraDays || takenRules) {
        return KeepRule(piece, zones, item, fault);
    }
    const icalrecurrencetype rule = icalproperty_get_rrule(property);
    const std::optional<SeriesRule> series = RecogniseRule(rule, rules::IcalFromSeconds(start.Clock));
    if (!series) {
        return KeepRule(piece, zones, item, fault);
    }
    SetPattern(*series, rule, start, zones, item.Pattern);
    if (item.Pattern.End == PatternEnd::OnDate && item.Pattern.LastDay < rules::DayOf(start.Clock)) {
        fault = {FindLine(piece, "RRULE"), "its repetition ends before it begins"};
        return Reading::Refused;
    }
    return ReadCancelled(piece, event, start, zones, item, fault);
}

} // namespace tavo::exchange
