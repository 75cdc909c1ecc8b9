// How an event repeats: by one of the store's types where it says the same, else by its own rule, kept whole.
#include "host/exchange/event_series.h"

#include "host/exchange/own_properties.h"
#include "host/exchange/series_rule.h"
#include "host/exchange/zone_parameter.h"
#include "host/rules/rule_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace tavo::exchange {
namespace {

using rules::PatternEnd;
using rules::Seconds;
using rules::StoredException;
using rules::StoredItem;
using rules::StoredPattern;

constexpr std::array<std::string_view, 4> kRuleNames = {"RRULE", "EXRULE", "RDATE", "EXDATE"};

bool IsRuleLine(std::string_view name) {
    return std::any_of(kRuleNames.begin(), kRuleNames.end(),
                       [name](std::string_view rule) { return EqualsIgnoringCase(name, rule); });
}

// The line with the zone's name as the store knows it, or without the name of one that nothing knows; false when the
// file's own zone cannot be kept.
bool NameZone(std::string& line, int number, const EntryContext& context, std::string& reason) {
    const std::optional<ZoneParameter> parameter = FindZoneParameter(line);
    if (!parameter) {
        return true;
    }
    const Zone* zone = context.Zones.Find(parameter->Name);
    if (zone == nullptr && context.Zones.IsDefined(parameter->Name)) {
        reason = context.Zones.DescribeUnknown(parameter->Name);
        return false;
    }
    if (zone == nullptr) {
        context.Zones.TellUnknown(parameter->Name, number, context.Faults);
    }
    line.replace(parameter->From, parameter->To - parameter->From,
                 zone == nullptr ? std::string() : WriteZoneParameter(zone->Name));
    return true;
}

void TellUnwalked(std::string_view name, std::string_view value, int number, FaultTeller& faults) {
    rules::RuleText text;
    std::string why;
    if ((EqualsIgnoringCase(name, "RRULE") || EqualsIgnoringCase(name, "EXRULE")) &&
        !rules::ReadRuleText(value, text, why) && !why.empty()) {
        faults.Mention(number, why, "it takes place once here, and the rule is kept for an export");
    }
}

Reading KeepRule(const EntryContext& context, StoredItem& item, FileFault& fault) {
    const CalendarPiece& piece = context.Piece;
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string line = piece.GetLine(index);
        std::string_view name;
        std::string_view value;
        if (!piece.Lines[index].IsRead || !SplitLine(line, name, value) || !IsRuleLine(name)) {
            continue;
        }
        if (EqualsIgnoringCase(name, "EXDATE") && line.find(kOwnException) < line.find(':')) {
            continue; // it is no part of the rule
        }
        TellUnwalked(name, value, piece.Lines[index].Number, context.Faults);
        if (!NameZone(line, piece.Lines[index].Number, context, fault.Reason)) {
            fault.Line = piece.Lines[index].Number;
            return Reading::Refused;
        }
        item.ForeignRule += item.ForeignRule.empty() ? "" : "\n";
        item.ForeignRule += line;
    }
    item.Pattern.Type = kRecursForeign;
    return Reading::Good;
}

// The last day on which an occurrence may start, by an end on the start's clock: one that is earlier on its day than
// the series ends the day before.
rules::DayNumber FindLastDay(Seconds end, Seconds start, bool isDateOnly) {
    const bool tooEarly = !isDateOnly && rules::TimeOfDay(end) < rules::TimeOfDay(start);
    return rules::DayOf(end) - (tooEarly ? 1 : 0);
}

Seconds ReadUntil(const rules::RuleText& text, const EventTime& start, ZoneTable& zones) {
    EventTime end;
    end.Clock = *text.Rule.Until;
    end.In = text.IsUntilUtc && !start.DateOnly ? zones.GetUtc() : nullptr;
    return MoveToZone(end, start.In);
}

// `lastDay` counts where the rule has such an end.
void SetPattern(const SeriesRule& series, const rules::RuleText& text, rules::DayNumber lastDay,
                StoredPattern& pattern) {
    pattern.Type = series.Type;
    pattern.Interval = series.Interval;
    pattern.DayOfWeekMask = series.DayOfWeekMask;
    pattern.DayOfMonth = series.DayOfMonth;
    pattern.Instance = series.Instance;
    pattern.MonthOfYear = series.MonthOfYear;
    if (text.Rule.Count > 0) {
        pattern.End = PatternEnd::AfterCount;
        pattern.Occurrences = static_cast<std::int32_t>(text.Rule.Count);
    } else if (text.Rule.Until) {
        pattern.End = PatternEnd::OnDate;
        pattern.LastDay = lastDay;
    }
}

// The values of all lines of that name, each with its line.
std::vector<std::pair<const rules::ContentLine*, std::string_view>> ListValues(const LineList& event,
                                                                               std::string_view name) {
    std::vector<std::pair<const rules::ContentLine*, std::string_view>> values;
    for (const rules::ContentLine* line : event.FindAll(name)) {
        std::string_view rest = line->Value;
        for (std::size_t comma = rest.find(','); comma != std::string_view::npos; comma = rest.find(',')) {
            values.emplace_back(line, rest.substr(0, comma));
            rest.remove_prefix(comma + 1);
        }
        values.emplace_back(line, rest);
    }
    return values;
}

// Those of the item's exceptions that are cancelled; beside a rule of its own only lines that are marked as such.
Reading ReadCancelled(const LineList& event, const EventTime& start, const EntryContext& context, StoredItem& item,
                      FileFault& fault) {
    const bool isForeign = item.Pattern.Type == kRecursForeign;
    for (const auto& [line, value] : ListValues(event, "EXDATE")) {
        if (isForeign && line->FindParameter(kOwnException) == nullptr) {
            continue;
        }
        EventTime time;
        const Reading reading = ReadTime(*line, value, context, time, fault.Reason);
        if (reading != Reading::Good) {
            fault.Line = FindLine(context.Piece, "EXDATE");
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

// The pattern may begin before its first occurrence, on which the event does.
void TakeOwnRule(const OwnRule& own, const EventTime& start, StoredItem& item) {
    item.Pattern = own.Pattern;
    const Seconds earlier = (rules::DayOf(start.Clock) - own.Start) * rules::kSecondsPerDay;
    for (Seconds* time : {&item.Start, &item.End, &item.ZoneStart, &item.ZoneEnd}) {
        const bool isUsed = item.Zone.empty() == (time == &item.Start || time == &item.End);
        *time -= isUsed ? earlier : 0;
    }
}

} // namespace

Reading ReadSeries(const LineList& event, const EventTime& start, const EntryContext& context, StoredItem& item,
                   FileFault& fault) {
    const std::vector<const rules::ContentLine*> ruleLines = event.FindAll("RRULE");
    const bool hasExtraDays = event.FindFirst("RDATE") != nullptr;
    if (ruleLines.empty() && !hasExtraDays) {
        return Reading::Good; // nothing repeats, so nothing can be cancelled
    }
    if (const std::optional<OwnRule> own = ReadOwnRule(event); own && ruleLines.size() == 1 && !hasExtraDays) {
        TakeOwnRule(*own, start, item);
        return ReadCancelled(event, start, context, item, fault);
    }
    rules::RuleText text;
    std::string whyForeign; // why a rule cannot be walked is said where it is kept
    if (ruleLines.size() != 1 || hasExtraDays || event.FindFirst("EXRULE") != nullptr ||
        !rules::ReadRuleText(ruleLines.front()->Value, text, whyForeign)) {
        const Reading reading = KeepRule(context, item, fault);
        return reading == Reading::Good ? ReadCancelled(event, start, context, item, fault) : reading;
    }
    const std::optional<SeriesRule> series = RecogniseRule(text, start.Clock);
    if (!series) {
        const Reading reading = KeepRule(context, item, fault);
        return reading == Reading::Good ? ReadCancelled(event, start, context, item, fault) : reading;
    }
    const rules::DayNumber lastDay =
        text.Rule.Until ? FindLastDay(ReadUntil(text, start, context.Zones), start.Clock, start.DateOnly) : 0;
    SetPattern(*series, text, lastDay, item.Pattern);
    if (item.Pattern.End == PatternEnd::OnDate && item.Pattern.LastDay < rules::DayOf(start.Clock)) {
        context.Faults.Tell(FindLine(context.Piece, "RRULE"), "its repetition ends before it begins",
                            "it takes place once");
        item.Pattern = {};
        return Reading::Good;
    }
    return ReadCancelled(event, start, context, item, fault);
}

bool TakeRule(std::string_view value, rules::StoredItem& item, std::string& fault) {
    rules::RuleText text;
    if (!rules::ReadRuleText(value, text, fault)) {
        return false;
    }
    const rules::DayNumber lastDay = text.Rule.Until ? FindLastDay(*text.Rule.Until, item.Start, item.AllDay) : 0;
    if (text.Rule.Until && lastDay < rules::DayOf(item.Start)) {
        fault = "it ends before it begins";
        return false;
    }
    item.Pattern = {};
    item.ForeignRule.clear();
    if (const std::optional<SeriesRule> series = RecogniseRule(text, item.Start); series) {
        SetPattern(*series, text, lastDay, item.Pattern);
    } else {
        item.Pattern.Type = kRecursForeign;
        item.ForeignRule = std::string(kRuleNames.front()) + ":" + std::string(value);
    }
    return true;
}

} // namespace tavo::exchange
