// Rules get an end and a smaller count, lists of dates are dealt out.
#include "host/exchange/rule_split.h"

#include "host/exchange/calendar_lines.h"
#include "host/exchange/piece_reader.h"
#include "host/exchange/zone_parameter.h"
#include "host/rules/calendar_value.h"
#include "host/rules/foreign_rule.h"
#include "host/rules/rule_lines.h"
#include "host/rules/rule_text.h"

#include <algorithm>
#include <vector>

namespace tavo::exchange {
namespace {

using rules::Seconds;

constexpr std::string_view kUtcName = "UTC";

// The next piece of a list, which loses it.
std::string_view TakePart(std::string_view& list, char separator) {
    const std::string_view part = list.substr(0, list.find(separator));
    list.remove_prefix(std::min(part.size() + 1, list.size()));
    return part;
}

void AppendLine(std::string& lines, std::string_view line) {
    lines += lines.empty() ? "" : "\n";
    lines += line;
}

// Whether what the rule names goes along when every occurrence is later by so much.
bool CanShift(const rules::RecurrenceRule& rule, Seconds shift) {
    const bool movesDays = rules::DayOf(shift) != 0 || rules::TimeOfDay(shift) != shift;
    const bool namesDays = !rule.Days.empty() || !rule.MonthDays.empty() || !rule.YearDays.empty() ||
                           !rule.Weeks.empty() || !rule.Months.empty() || !rule.Positions.empty() ||
                           rule.Every == rules::Frequency::Monthly || rule.Every == rules::Frequency::Yearly;
    const bool namesTimes = !rule.Hours.empty() || !rule.Minutes.empty() || !rule.OfMinute.empty();
    return shift == 0 || (!namesTimes && !(movesDays && namesDays));
}

class Splitting {
  public:
    Splitting(const RuleSeries& series, Seconds original, Seconds shift)
        : Series(series), Original(original), Shift(shift) {}

    std::optional<SplitLines> Run() {
        std::string_view lines = Series.Lines;
        while (!lines.empty()) {
            const std::string_view line = TakePart(lines, '\n');
            std::string_view name;
            std::string_view value;
            SplitLine(line, name, value);
            const bool isRule = EqualsIgnoringCase(name, "RRULE");
            if (!(isRule || EqualsIgnoringCase(name, "EXRULE") ? SplitRule(line, value, isRule)
                                                               : SplitDates(line, value))) {
                return std::nullopt;
            }
        }
        Split.After = rules::ShiftRuleTimes(Split.After, Shift);
        return std::move(Split);
    }

  private:
    bool SplitRule(std::string_view line, std::string_view value, bool isRule) {
        rules::RuleText text;
        std::string fault;
        if (!rules::ReadRuleText(value, text, fault)) {
            return false;
        }
        std::string bare(line.substr(0, line.size() - value.size()));
        std::string_view parts = value;
        for (bool isFirst = true; !parts.empty();) {
            const std::string_view part = TakePart(parts, ';');
            const std::string_view name = part.substr(0, part.find('='));
            if (!EqualsIgnoringCase(name, "COUNT") && !EqualsIgnoringCase(name, "UNTIL")) {
                bare += isFirst ? "" : ";";
                bare += part;
                isFirst = false;
            }
        }
        if (!isRule) { // what it takes out it takes out of both
            AppendLine(Split.Before, line);
            AppendLine(Split.After, line);
            return text.Rule.Count == 0 && CanShift(text.Rule, Shift);
        }
        const std::optional<std::int64_t> before = text.Rule.Count == 0 ? 0 : CountBefore(line);
        if (!before) {
            return false;
        }
        const Seconds until = text.Rule.Until.value_or(rules::kForever);
        const bool goesOn = text.Rule.Count == 0 ? LocalUntil(text) >= Original : text.Rule.Count > *before;
        if (goesOn && !CanShift(text.Rule, Shift)) {
            return false;
        }
        AppendLine(Split.Before, goesOn ? bare + ";UNTIL=" + EndBefore() : std::string(line));
        if (goesOn && text.Rule.Count > 0) {
            AppendLine(Split.After, bare + ";COUNT=" + std::to_string(text.Rule.Count - *before));
        } else if (goesOn) {
            AppendLine(Split.After, until == rules::kForever ? bare : std::string(line));
        }
        return true;
    }

    Seconds LocalUntil(const rules::RuleText& text) const {
        if (!text.Rule.Until) {
            return rules::kForever;
        }
        return text.IsUntilUtc && Series.Own != nullptr ? Series.Own->ToLocal(*text.Rule.Until) : *text.Rule.Until;
    }

    // The last moment before the change, as an UNTIL of this series has it.
    std::string EndBefore() const {
        if (Series.IsAllDay && Series.Own == nullptr) {
            return WriteDate(Original - 1);
        }
        return Series.Own == nullptr ? WriteDateTime(Original - 1)
                                     : WriteDateTime(Series.Own->ToUtc(Original - 1)) + "Z";
    }

    // How many of the count of this line are used up before the change; nothing when that takes too long.
    std::optional<std::int64_t> CountBefore(std::string_view line) const {
        std::string fault;
        rules::ExpansionBudget budget(rules::kStepsOfCount);
        std::vector<rules::RuleOccurrence> found;
        const auto rule = rules::ForeignRule::Parse(
            line, Series.Start, Series.Own, [](const std::string&) { return nullptr; }, fault);
        if (!rule || !rule->FindCountedEnds(budget)) {
            return std::nullopt;
        }
        rule->Expand(Series.Start, Original - 1, found, budget);
        return budget.IsSpent() ? std::nullopt : std::optional(static_cast<std::int64_t>(found.size()));
    }

    bool SplitDates(std::string_view line, std::string_view value) {
        const std::optional<ZoneParameter> parameter = FindZoneParameter(line);
        if (parameter && parameter->Name != Series.Zone) {
            return false;
        }
        const std::string_view head = line.substr(0, line.size() - value.size());
        std::string before;
        std::string after;
        while (!value.empty()) {
            const std::string_view one = TakePart(value, ',');
            const std::optional<rules::CalendarTime> time = rules::ReadCalendarTime(one);
            if (!time || !time->IsReal() || time->Utc != (Series.Zone == kUtcName) ||
                (time->DateOnly && Shift != 0)) { // a whole day, which goes along with no shift of its times
                return false;
            }
            const Seconds moment = time->ToSeconds();
            const bool isBefore = time->DateOnly ? rules::DayOf(moment) < rules::DayOf(Original) : moment < Original;
            std::string& list = isBefore ? before : after;
            list += list.empty() ? "" : ",";
            list += one;
        }
        if (!before.empty()) {
            AppendLine(Split.Before, std::string(head) + before);
        }
        if (!after.empty()) {
            AppendLine(Split.After, std::string(head) + after);
        }
        return true;
    }

    const RuleSeries& Series;
    Seconds Original;
    Seconds Shift;
    SplitLines Split;
};

bool HasOccurrences(std::string_view lines) {
    while (!lines.empty()) {
        const std::string_view line = TakePart(lines, '\n');
        std::string_view name;
        std::string_view value;
        SplitLine(line, name, value);
        if (EqualsIgnoringCase(name, "RRULE") || EqualsIgnoringCase(name, "RDATE")) {
            return true;
        }
    }
    return false;
}

} // namespace

std::optional<SplitLines> SplitRuleLines(const RuleSeries& series, Seconds original, Seconds shift) {
    std::optional<SplitLines> split = Splitting(series, original, shift).Run();
    if (split && !HasOccurrences(split->After)) {
        split->After.clear();
    }
    return split;
}

} // namespace tavo::exchange
