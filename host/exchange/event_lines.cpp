// Sorts lines to where they belong, and tries those whose meaning may not be guessed.
#include "host/exchange/event_lines.h"

#include "host/rules/calendar_value.h"
#include "host/rules/rule_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace tavo::exchange {
namespace {

using rules::ContentLine;

bool IsTime(std::string_view value) {
    return rules::ReadCalendarTime(value).has_value();
}

bool IsDuration(std::string_view value) {
    return rules::ReadDuration(value).has_value();
}

bool IsTimeOrDuration(std::string_view value) {
    return IsTime(value) || IsDuration(value);
}

// One that cannot be kept is refused later, by itself.
bool IsRule(std::string_view value) {
    rules::RuleText text;
    std::string fault;
    return rules::ReadRuleText(value, text, fault) || !fault.empty();
}

bool IsTimeOrPeriod(std::string_view value) {
    const std::size_t slash = value.find('/');
    return IsTime(value.substr(0, slash)) &&
           (slash == std::string_view::npos || IsTimeOrDuration(value.substr(slash + 1)));
}

template <bool (*IsOne)(std::string_view)> bool AreAll(std::string_view values) {
    while (true) {
        const std::size_t comma = values.find(',');
        if (!IsOne(values.substr(0, comma))) {
            return false;
        }
        if (comma == std::string_view::npos) {
            return true;
        }
        values.remove_prefix(comma + 1);
    }
}

struct StrictName {
    std::string_view Name;
    bool (*IsReadable)(std::string_view value);
};

// Lines whose meaning may not be guessed: if one of them cannot be read, the file is broken.
constexpr std::array<StrictName, 9> kStrictNames{{{"DTSTART", IsTime},
                                                  {"DTEND", IsTime},
                                                  {"DURATION", IsDuration},
                                                  {"RRULE", IsRule},
                                                  {"EXRULE", IsRule},
                                                  {"RDATE", AreAll<IsTimeOrPeriod>},
                                                  {"EXDATE", AreAll<IsTime>},
                                                  {"TRIGGER", IsTimeOrDuration},
                                                  {"RECURRENCE-ID", IsTime}}};

// `line` is nothing where the text cannot be split.
bool IsReadable(std::string_view name, const std::optional<ContentLine>& line) {
    const auto* const strict = std::find_if(kStrictNames.begin(), kStrictNames.end(), [name](const StrictName& other) {
        return EqualsIgnoringCase(other.Name, name);
    });
    return strict == kStrictNames.end() || (line && strict->IsReadable(line->Value));
}

} // namespace

const ContentLine* LineList::FindFirst(std::string_view upperName) const {
    const auto found = std::find_if(Lines.begin(), Lines.end(),
                                    [upperName](const ContentLine& line) { return line.Name == upperName; });
    return found == Lines.end() ? nullptr : &*found;
}

std::vector<const ContentLine*> LineList::FindAll(std::string_view upperName) const {
    std::vector<const ContentLine*> found;
    for (const ContentLine& line : Lines) {
        if (line.Name == upperName) {
            found.push_back(&line);
        }
    }
    return found;
}

bool ReadEventLines(const CalendarPiece& piece, EventLines& lines, FileFault& fault) {
    std::vector<bool> isAlarm; // of the components that are open, the event first
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string_view name;
        std::string_view value;
        if (!piece.Lines[index].IsRead || !SplitLine(piece.GetLine(index), name, value)) {
            continue;
        }
        std::optional<ContentLine> line = rules::ReadContentLine(piece.GetLine(index));
        if (!IsReadable(name, line)) {
            fault = {piece.Lines[index].Number, "the value of " + MakeUpper(name) + " cannot be read: \"" +
                                                    std::string(value.substr(0, 60)) + "\""};
            return false;
        }
        if (!line) {
            continue;
        }
        if (line->Name == "BEGIN") {
            isAlarm.push_back(isAlarm.size() == 1 && EqualsIgnoringCase(locale::TrimBlanks(line->Value), "VALARM"));
            if (isAlarm.back()) {
                lines.Alarms.emplace_back();
            }
        } else if (line->Name == "END" && !isAlarm.empty()) {
            isAlarm.pop_back();
        } else if (isAlarm.size() == 1) {
            lines.Own.Add(std::move(*line));
        } else if (isAlarm.size() == 2 && isAlarm.back()) {
            lines.Alarms.back().Add(std::move(*line));
        }
    }
    return true;
}

int FindLine(const CalendarPiece& piece, std::string_view name) {
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string_view found;
        std::string_view value;
        if (SplitLine(piece.GetLine(index), found, value) && EqualsIgnoringCase(found, name)) {
            return piece.Lines[index].Number;
        }
    }
    return piece.Line;
}

} // namespace tavo::exchange
