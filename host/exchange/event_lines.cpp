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

using IsReadable = bool (*)(std::string_view value);

bool IsTime(std::string_view value) {
    return rules::ReadCalendarTime(value).has_value();
}

bool IsRealTime(std::string_view value) {
    const std::optional<rules::CalendarTime> time = rules::ReadCalendarTime(value);
    return time && time->IsReal();
}

bool IsDuration(std::string_view value) {
    return rules::ReadDuration(value).has_value();
}

bool IsTimeOrDuration(std::string_view value) {
    return IsTime(value) || IsDuration(value);
}

// One that cannot be walked is read later, by itself.
bool IsRule(std::string_view value) {
    rules::RuleText text;
    std::string fault;
    return rules::ReadRuleText(value, text, fault) || !fault.empty();
}

bool IsTimeOrPeriod(std::string_view value) {
    const std::size_t slash = value.find('/');
    return IsRealTime(value.substr(0, slash)) &&
           (slash == std::string_view::npos || IsTimeOrDuration(value.substr(slash + 1)));
}

// A line that would mean something if it could be read.
struct MeaningfulName {
    std::string_view Name;
    IsReadable IsOne;   // of the values, if there are several
    const char* Remedy; // null: without it there is no entry
    bool HasSeveralValues = false;
};

constexpr std::array<MeaningfulName, 9> kMeaningfulNames{{{"DTSTART", IsTime, nullptr},
                                                          {"RECURRENCE-ID", IsTime, nullptr},
                                                          {"DTEND", IsTime, "the entry has no length"},
                                                          {"DURATION", IsDuration, "it was left out"},
                                                          {"RRULE", IsRule, "it was left out"},
                                                          {"EXRULE", IsRule, "it was left out"},
                                                          {"RDATE", IsTimeOrPeriod, "it was left out", true},
                                                          {"EXDATE", IsRealTime, "it was left out", true},
                                                          {"TRIGGER", IsTimeOrDuration, "the reminder was left out"}}};

const MeaningfulName* FindMeaningful(std::string_view name) {
    const auto* const found =
        std::find_if(kMeaningfulNames.begin(), kMeaningfulNames.end(),
                     [name](const MeaningfulName& other) { return EqualsIgnoringCase(other.Name, name); });
    return found == kMeaningfulNames.end() ? nullptr : found;
}

std::string_view TakeValue(std::string_view& values) {
    const std::size_t comma = values.find(',');
    const std::string_view value = values.substr(0, comma);
    values.remove_prefix(comma == std::string_view::npos ? values.size() : comma + 1);
    return value;
}

bool AreReadable(std::string_view values, const MeaningfulName& name) {
    if (!name.HasSeveralValues || values.empty()) {
        return name.IsOne(values);
    }
    while (!values.empty()) {
        if (!name.IsOne(TakeValue(values))) {
            return false;
        }
    }
    return true;
}

std::string DescribeUnreadable(const MeaningfulName& name, std::string_view value) {
    return "the value of " + std::string(name.Name) + " cannot be read: \"" + std::string(value.substr(0, 60)) + "\"";
}

// Takes the values that cannot be read out of the line where it lies. False when none is left.
bool KeepReadable(CalendarPiece& piece, std::size_t index, std::string_view values, const MeaningfulName& name,
                  FaultTeller& faults) {
    std::string readable;
    std::string_view rest = values;
    do {
        if (const std::string_view value = TakeValue(rest); name.IsOne(value)) {
            readable.append(readable.empty() ? "" : ",").append(value);
        } else {
            faults.Tell(piece.Lines[index].Number, DescribeUnreadable(name, value), name.Remedy);
        }
    } while (!rest.empty());
    // Shorter than it was, so that the lines behind it stay where they are.
    const std::string_view line = piece.GetLine(index);
    const std::size_t begin = piece.Lines[index].Begin + static_cast<std::size_t>(values.data() - line.data());
    std::copy(readable.begin(), readable.end(), piece.Text.begin() + static_cast<std::ptrdiff_t>(begin));
    piece.Text[begin + readable.size()] = '\0';
    return !readable.empty();
}

enum class LineResult { Read, LeftOut, NoEntry };

// Tries a line whose meaning may not be guessed, and mends it in the piece. `line` is nothing where it cannot be split.
LineResult TryLine(CalendarPiece& piece, std::size_t index, bool isOwn, std::optional<ContentLine>& line,
                   FaultTeller& faults, FileFault& fault) {
    std::string_view name;
    std::string_view value;
    SplitLine(piece.GetLine(index), name, value);
    const MeaningfulName* meaning = FindMeaningful(name);
    if (meaning == nullptr) {
        return line ? LineResult::Read : LineResult::LeftOut;
    }
    if (line && AreReadable(line->Value, *meaning)) {
        return LineResult::Read;
    }
    const int number = piece.Lines[index].Number;
    if (meaning->Remedy == nullptr && isOwn) {
        fault = {number, DescribeUnreadable(*meaning, value)};
        return LineResult::NoEntry;
    }
    if (!line || !meaning->HasSeveralValues) {
        faults.Tell(number, DescribeUnreadable(*meaning, value),
                    meaning->Remedy == nullptr ? "it was left out" : meaning->Remedy);
    } else if (KeepReadable(piece, index, line->Value, *meaning, faults)) {
        line = rules::ReadContentLine(piece.GetLine(index));
        return LineResult::Read;
    }
    piece.Lines[index].IsRead = false;
    return LineResult::LeftOut;
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

bool ReadEventLines(CalendarPiece& piece, EventLines& lines, FaultTeller& faults, FileFault& fault) {
    std::vector<bool> isAlarm; // of the components that are open, the event first
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        if (!piece.Lines[index].IsRead) {
            continue;
        }
        std::optional<ContentLine> line = rules::ReadContentLine(piece.GetLine(index));
        switch (TryLine(piece, index, isAlarm.size() == 1, line, faults, fault)) {
        case LineResult::NoEntry:
            return false;
        case LineResult::LeftOut:
            continue;
        case LineResult::Read:
            break;
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
