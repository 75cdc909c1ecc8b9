// Items and what became of a calendar file, as text that tests compare.
#include "tests/exchange/item_text.h"

#include "host/exchange/own_properties.h"
#include "host/locale/utf.h"
#include "host/posix/zone_database.h"
#include "host/rules/zones.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

namespace tavo::exchange {
namespace {

using rules::PatternEnd;
using rules::StoredException;
using rules::StoredItem;
using rules::StoredPattern;

// ASCII as it is, everything else by its number, so that a wrong letter shows.
std::string DescribeText(std::u16string_view text) {
    std::string result;
    for (const char16_t unit : text) {
        std::array<char, 16> escaped{};
        if (unit == u'\n') {
            result += "\\n";
        } else if (unit >= u' ' && unit < 0x7F) {
            result += static_cast<char>(unit);
        } else {
            std::snprintf(escaped.data(), escaped.size(), "\\u%04x", static_cast<unsigned>(unit));
            result += escaped.data();
        }
    }
    return result;
}

std::string DescribeDay(rules::DayNumber day) {
    return DescribeTime(rules::MidnightOf(day)).substr(0, 10);
}

void AddLine(std::string& text, std::string_view name, std::string_view value) {
    text += "  ";
    text += name;
    text += ": ";
    text += value;
    text += '\n';
}

// One for each line of several.
void AddLines(std::string& text, std::string_view name, std::string_view lines) {
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        AddLine(text, name, DescribeText(locale::ToUtf16(lines.substr(0, end))));
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
}

void AddText(std::string& text, std::string_view name, std::u16string_view value) {
    if (!value.empty()) {
        AddLine(text, name, DescribeText(value));
    }
}

void AddNumber(std::string& text, std::string_view name, std::int64_t value, std::int64_t usual) {
    if (value != usual) {
        AddLine(text, name, std::to_string(value));
    }
}

void AddPattern(std::string& text, const StoredPattern& pattern) {
    if (pattern.Type == kRecursOnce || pattern.Type == kRecursForeign) {
        return;
    }
    std::string line = "type " + std::to_string(pattern.Type) + " every " + std::to_string(pattern.Interval);
    line += pattern.DayOfWeekMask != 0 ? " mask " + std::to_string(pattern.DayOfWeekMask) : "";
    line += pattern.DayOfMonth != 0 ? " day " + std::to_string(pattern.DayOfMonth) : "";
    line += pattern.Instance != 0 ? " nth " + std::to_string(pattern.Instance) : "";
    line += pattern.MonthOfYear != 0 ? " month " + std::to_string(pattern.MonthOfYear) : "";
    line += pattern.End == PatternEnd::AfterCount ? " times " + std::to_string(pattern.Occurrences) : "";
    line += pattern.End == PatternEnd::OnDate ? " until " + DescribeDay(pattern.LastDay) : "";
    AddLine(text, "repeats", line);
}

std::string DescribeException(const StoredException& exception) {
    std::string line = DescribeTime(exception.Original);
    if (exception.Kind == rules::ExceptionKind::Cancelled) {
        return line + " cancelled";
    }
    line += " moved to " + DescribeTime(exception.Start) + " - " + DescribeTime(exception.End);
    line += exception.Subject ? ", subject " + DescribeText(*exception.Subject) : "";
    line += exception.Location ? ", location " + DescribeText(*exception.Location) : "";
    line += exception.Carried.empty() ? "" : ", carried " + DescribeText(locale::ToUtf16(exception.Carried));
    return line;
}

void AddTimes(std::string& text, const StoredItem& item) {
    const bool zoned = !item.Zone.empty();
    const std::string times =
        DescribeTime(zoned ? item.ZoneStart : item.Start) + " - " + DescribeTime(zoned ? item.ZoneEnd : item.End);
    AddLine(text, item.AllDay ? "days" : "time", zoned ? times + " " + item.Zone : times);
}

class DescribingSink final : public IEntrySink {
  public:
    bool OnItem(StoredItem item, const std::vector<TagList>& kinds, int line) override {
        Text += "item in line " + std::to_string(line) + "\n" + DescribeItem(item);
        for (const TagList kind : kinds) {
            AddLine(Text, "kind", NameKind(kind));
        }
        return true;
    }

    bool OnLoneOccurrence(const LoneOccurrence& occurrence, int line) override {
        Text += "occurrence of " + occurrence.Uid + " in line " + std::to_string(line) + "\n";
        AddLine(Text, "exception", DescribeException(occurrence.Exception));
        Text += " alone\n" + DescribeItem(occurrence.Alone);
        return true;
    }

    bool OnRefused(int line, const std::string& reason) override {
        Text += "refused in line " + std::to_string(line) + ": " + reason + "\n";
        return true;
    }

    void OnMended(int line, const std::string& what) override {
        Text += "mended in line " + std::to_string(line) + ": " + what + "\n";
    }

    bool OnPassedOver(PassedOver what, int line, const std::string& reason) override {
        constexpr std::array<const char*, 3> words = {"older version", "cancelled", "of another kind"};
        Text += std::string(words[static_cast<std::size_t>(what)]) + " passed over in line " + std::to_string(line);
        Text += reason.empty() ? "\n" : ": " + reason + "\n";
        return true;
    }

    bool OnProgress(std::int64_t /*offset*/) override { return true; }

    std::unique_ptr<rules::ZoneRules> LoadZone(const std::string& name) override {
        return rules::LoadZone(posix::SystemZones(), name);
    }

    bool DefineZone(const std::string& name, const std::string& component) override {
        Text += "zone " + name + ", " + std::to_string(component.size()) + " bytes\n";
        return true;
    }

    std::string Text;
};

} // namespace

std::string DescribeTime(rules::Seconds time) {
    const rules::CivilDate date = rules::CivilFromDay(rules::DayOf(time));
    const auto seconds = static_cast<int>(rules::TimeOfDay(time));
    std::array<char, 48> text{};
    const int length = std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d", date.Year, date.Month,
                                     date.Day, seconds / 3600, seconds / 60 % 60);
    if (seconds % 60 != 0) {
        std::snprintf(text.data() + length, text.size() - static_cast<std::size_t>(length), ":%02d", seconds % 60);
    }
    return text.data();
}

std::string DescribeItem(const StoredItem& item) {
    std::string text;
    AddLine(text, "uid", item.Uid);
    AddText(text, "subject", item.Subject);
    AddText(text, "location", item.Location);
    AddText(text, "categories", item.Categories);
    AddText(text, "body", item.Body);
    AddTimes(text, item);
    AddNumber(text, "busy", item.BusyStatus, kBusyBusy);
    AddNumber(text, "sensitivity", item.Sensitivity, kSensitivityNormal);
    if (item.ReminderSet) {
        AddLine(text, "reminder",
                std::to_string(item.ReminderMinutes) + " minutes, options " + std::to_string(item.ReminderOptions));
    }
    AddPattern(text, item.Pattern);
    AddLines(text, "rule", item.ForeignRule);
    AddLines(text, "carried", item.Carried);
    for (const StoredException& exception : item.Exceptions) {
        AddLine(text, "exception", DescribeException(exception));
    }
    return text;
}

std::string DescribeFile(IByteSource& source, Manner manner) {
    DescribingSink sink;
    FileFault fault;
    switch (ReadCalendarFile(source, sink, manner, fault)) {
    case FileOutcome::Read:
        return sink.Text + "read\n";
    case FileOutcome::Stopped:
        return sink.Text + "stopped\n";
    case FileOutcome::Broken:
        break;
    }
    return sink.Text + "broken in line " + std::to_string(fault.Line) + ": " + fault.Reason + "\n";
}

} // namespace tavo::exchange
