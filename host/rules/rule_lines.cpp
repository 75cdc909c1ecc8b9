// Reads the lines of foreign rules: rules, and lists of dates, which may be long.
#include "host/rules/rule_lines.h"

#include "host/locale/ascii.h"
#include "host/rules/calendar_value.h"
#include "host/rules/content_line.h"
#include "host/rules/expansion_budget.h"
#include "host/rules/rule_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace tavo::rules {

namespace {

constexpr std::size_t kMaxLines = 5000;
constexpr std::string_view kAddedDates = "RDATE";
constexpr std::string_view kCancelledDates = "EXDATE";

// A day beyond its month is one of the next, as lists of other programs have been taken so far.
bool IsListed(const CalendarTime& time) {
    return time.Year >= 1 && time.Year <= 3000 && time.Month >= 1 && time.Month <= 12 && time.Day >= 1 &&
           time.Day <= 31 && time.Hour < 24 && time.Minute < 60 && time.Second <= 60;
}

bool IsDateList(std::string_view line) {
    const auto beginsWith = [line](std::string_view name) {
        return line.size() > name.size() && locale::EqualsIgnoringCase(line.substr(0, name.size()), name);
    };
    return beginsWith(kAddedDates) || beginsWith(kCancelledDates);
}

// Reads the lines of one series into the parts of its rule.
class LineReader {
  public:
    LineReader(const ZoneRules* own, const ZoneLookup& lookup) : Own(own), Lookup(lookup) {}

    bool Read(std::string_view text, RuleParts& parts, std::string& fault) {
        const std::optional<ContentLine> line = ReadContentLine(text);
        bool isRead = false;
        if (line && (line->Name == "RRULE" || line->Name == "EXRULE")) {
            RecurrenceRule rule;
            std::string whyUnwalked;
            isRead = ReadRule(line->Value, rule, whyUnwalked);
            if (!whyUnwalked.empty()) {
                parts.HasUnwalked = true;
                return true;
            }
            parts.StartsPerDay += isRead ? CountStartsPerDay(rule) : 0;
            if (parts.StartsPerDay > kMostStartsPerDay) {
                fault = "it recurs more often than " + std::to_string(kMostStartsPerDay) + " times a day";
                return false;
            }
            (line->Name == "RRULE" ? parts.Rules : parts.ExceptRules).push_back(std::move(rule));
        } else if (line && (line->Name == kAddedDates || line->Name == kCancelledDates)) {
            isRead = ReadDates(*line, parts);
        }
        if (!isRead && fault.empty()) {
            fault = "the recurrence line cannot be read: " + std::string(text.substr(0, 60));
        }
        return isRead;
    }

  private:
    bool ReadRule(std::string_view value, RecurrenceRule& rule, std::string& fault) const {
        RuleText text;
        if (!ReadRuleText(value, text, fault)) {
            return false;
        }
        rule = std::move(text.Rule);
        if (rule.Until && text.IsUntilUtc && Own != nullptr) {
            rule.Until = Own->ToLocal(*rule.Until); // the walk goes by the series' own clock
        }
        return true;
    }

    // From the clock that the line names to the series' own.
    Seconds ToOwn(const CalendarTime& time, const ZoneRules* zone) const {
        const Seconds digits = time.ToSeconds();
        if (time.Utc) {
            return Own != nullptr ? Own->ToLocal(digits) : digits;
        }
        return zone != nullptr && Own != nullptr ? Own->ToLocal(zone->ToUtc(digits)) : digits;
    }

    bool ReadDates(const ContentLine& line, RuleParts& parts) const {
        const std::string* zone = line.FindParameter("TZID");
        const ZoneRules* clock = zone == nullptr ? nullptr : Lookup(*zone);
        std::string_view rest = line.Value;
        bool isRead = true;
        bool isLast = false;
        while (isRead && !isLast) {
            const std::size_t comma = rest.find(',');
            isLast = comma == std::string_view::npos;
            const std::string_view value = rest.substr(0, comma);
            isRead = line.Name == kAddedDates ? AddDate(value, clock, parts) : CancelDate(value, clock, parts);
            rest.remove_prefix(isLast ? rest.size() : comma + 1);
        }
        return isRead;
    }

    bool CancelDate(std::string_view value, const ZoneRules* clock, RuleParts& parts) const {
        const std::optional<CalendarTime> time = ReadCalendarTime(value);
        if (!time || !IsListed(*time)) {
            return false;
        }
        if (time->DateOnly) {
            parts.ExceptDays.push_back(DayOf(time->ToSeconds()));
        } else {
            parts.ExceptDates.push_back(ToOwn(*time, clock));
        }
        return true;
    }

    bool AddDate(std::string_view value, const ZoneRules* clock, RuleParts& parts) const {
        const std::size_t slash = value.find('/');
        const std::optional<CalendarTime> time = ReadCalendarTime(value.substr(0, slash));
        if (!time || !IsListed(*time)) {
            return false;
        }
        RuleOccurrence occurrence;
        // A date alone recurs at the series' own time of day.
        occurrence.Start = time->DateOnly ? time->ToSeconds() + TimeOfDay(parts.Start) : ToOwn(*time, clock);
        if (slash != std::string_view::npos) {
            occurrence.Length = LengthOfPeriod(*time, value.substr(slash + 1));
            if (!occurrence.Length || *occurrence.Length < 0) {
                return false;
            }
        }
        parts.Dates.push_back(occurrence);
        return true;
    }

    // Of a period up to an end, or of a duration.
    static std::optional<Seconds> LengthOfPeriod(const CalendarTime& start, std::string_view rest) {
        if (const std::optional<CalendarTime> end = ReadCalendarTime(rest); end && IsListed(*end)) {
            return end->ToSeconds() - start.ToSeconds();
        }
        const std::optional<CalendarDuration> duration = ReadDuration(rest);
        return duration ? std::optional(duration->ToSeconds()) : std::nullopt;
    }

    const ZoneRules* Own;
    const ZoneLookup& Lookup;
};

} // namespace

bool ReadRuleLines(std::string_view lines, const ZoneRules* own, const ZoneLookup& lookup, RuleParts& parts,
                   std::string& fault) {
    LineReader reader(own, lookup);
    std::size_t count = 0;
    for (std::size_t at = 0; at < lines.size();) {
        const std::size_t end = std::min(lines.find('\n', at), lines.size());
        std::string_view line = lines.substr(at, end - at);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        at = end + 1;
        if (line.empty()) {
            continue;
        }
        if (++count > kMaxLines) {
            fault = "it has too many recurrence lines";
            return false;
        }
        if (!reader.Read(line, parts, fault)) {
            return false;
        }
    }
    if (parts.HasUnwalked) {
        parts.Rules.clear();
        parts.ExceptRules.clear();
    }
    parts.Dates.push_back({parts.Start, std::nullopt}); // whether or not a rule makes it: lists of holidays rely on it
    const auto byStart = [](const RuleOccurrence& left, const RuleOccurrence& right) {
        return left.Start < right.Start;
    };
    std::stable_sort(parts.Dates.begin(), parts.Dates.end(), byStart);
    std::sort(parts.ExceptDates.begin(), parts.ExceptDates.end());
    std::sort(parts.ExceptDays.begin(), parts.ExceptDays.end());
    return true;
}

std::int64_t CostOfRuleLines(std::string_view lines) {
    constexpr std::size_t kToBegin = 200;
    constexpr std::size_t kPerCharacter = 3; // of a rule
    constexpr std::size_t kPerStep = 4;      // characters of a list of dates
    std::size_t steps = kToBegin;
    for (std::size_t at = 0; at < lines.size();) {
        const std::size_t end = std::min(lines.find('\n', at), lines.size());
        steps += IsDateList(lines.substr(at, end - at)) ? (end - at) / kPerStep : (end - at) * kPerCharacter;
        at = end + 1;
    }
    return static_cast<std::int64_t>(steps);
}

std::string ShiftRuleTimes(std::string_view lines, Seconds shift) {
    constexpr std::size_t kTokenSize = 15; // 20260503T090000
    std::string out;
    for (std::size_t at = 0; at < lines.size();) {
        const std::string_view token = lines.substr(at, kTokenSize);
        const std::optional<CalendarTime> time = token.size() == kTokenSize ? ReadCalendarTime(token) : std::nullopt;
        if (!time || !IsListed(*time)) {
            out.push_back(lines[at++]);
            continue;
        }
        const Seconds shifted = time->ToSeconds() + shift;
        const CivilDate date = CivilFromDay(DayOf(shifted));
        const auto ofDay = static_cast<int>(TimeOfDay(shifted));
        char text[32];
        std::snprintf(text, sizeof text, "%04d%02d%02dT%02d%02d%02d", date.Year, date.Month, date.Day, ofDay / 3600,
                      ofDay / 60 % 60, ofDay % 60);
        out += text;
        at += kTokenSize;
    }
    return out;
}

} // namespace tavo::rules
