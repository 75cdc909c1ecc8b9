// Lines of our own: written by an export, read by an import.
#include "host/exchange/own_properties.h"

#include "host/exchange/calendar_text.h"
#include "host/locale/utf.h"
#include "host/rules/recurrence.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>

namespace tavo::exchange {
namespace {

constexpr std::array<std::string_view, 3> kKindNames = {"Alarm", "Holiday", "Anniversary"};

std::uint32_t HashOf(std::string_view start, std::string_view value) {
    std::uint32_t hash = 2166136261U; // FNV-1a
    for (const std::string_view text : {start, std::string_view("|"), value}) {
        for (const char character : text) {
            hash = (hash ^ static_cast<unsigned char>(character)) * 16777619U;
        }
    }
    return hash;
}

// As many numbers as `numbers` has room for, parted by commas. False for anything else.
bool ReadNumbers(std::string_view text, std::span<std::int64_t> numbers) {
    for (std::size_t index = 0; index < numbers.size(); ++index) {
        const std::size_t end = std::min(text.find(','), text.size());
        const auto [stop, problem] = std::from_chars(text.data(), text.data() + end, numbers[index]);
        if (problem != std::errc() || stop != text.data() + end) {
            return false;
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return text.empty();
}

std::optional<std::int32_t> ReadNumber(const LineList& event, std::string_view name) {
    std::array<std::int64_t, 1> number{};
    const rules::ContentLine* line = event.FindFirst(name);
    return line != nullptr && ReadNumbers(line->Value, number) ? std::optional(static_cast<std::int32_t>(number[0]))
                                                               : std::nullopt;
}

std::string_view ValueOf(const LineList& event, std::string_view name) {
    const rules::ContentLine* line = event.FindFirst(name);
    return line == nullptr ? std::string_view() : std::string_view(line->Value);
}

} // namespace

void AppendBase64(std::string_view text, std::vector<std::uint8_t>& bytes) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::array<int, 256> values{};
    values.fill(-1);
    for (std::size_t index = 0; index < digits.size(); ++index) {
        values[static_cast<unsigned char>(digits[index])] = static_cast<int>(index);
    }
    bytes.reserve(bytes.size() + text.size() / 4 * 3);
    std::uint32_t bits = 0;
    int count = 0;
    for (const char character : text) {
        const int value = values[static_cast<unsigned char>(character)];
        if (value < 0) {
            break; // the signs that fill up the end
        }
        bits = bits << 6 | static_cast<std::uint32_t>(value);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes.push_back(static_cast<std::uint8_t>(bits >> count));
        }
    }
}

std::string WriteOwnRule(const OwnRule& rule, std::string_view start, std::string_view value) {
    const rules::StoredPattern& pattern = rule.Pattern;
    std::string text;
    for (const std::int64_t number :
         {std::int64_t{pattern.Type}, std::int64_t{pattern.Interval}, std::int64_t{pattern.DayOfWeekMask},
          std::int64_t{pattern.DayOfMonth}, std::int64_t{pattern.Instance}, std::int64_t{pattern.MonthOfYear},
          static_cast<std::int64_t>(pattern.End), std::int64_t{pattern.Occurrences}, pattern.LastDay, rule.Start}) {
        text += std::to_string(number) + ",";
    }
    return text + std::to_string(HashOf(start, value));
}

std::optional<OwnRule> ReadOwnRule(const LineList& event) {
    std::array<std::int64_t, 11> numbers{};
    const rules::ContentLine* line = event.FindFirst(kOwnRule);
    if (line == nullptr || !ReadNumbers(line->Value, numbers) ||
        numbers[10] != HashOf(ValueOf(event, "DTSTART"), ValueOf(event, "RRULE")) || numbers[6] < 0 ||
        numbers[6] > static_cast<std::int64_t>(rules::PatternEnd::AfterCount)) {
        return std::nullopt;
    }
    OwnRule own;
    own.Pattern.Type = static_cast<std::int32_t>(numbers[0]);
    own.Pattern.Interval = static_cast<std::int32_t>(numbers[1]);
    own.Pattern.DayOfWeekMask = static_cast<std::int32_t>(numbers[2]);
    own.Pattern.DayOfMonth = static_cast<std::int32_t>(numbers[3]);
    own.Pattern.Instance = static_cast<std::int32_t>(numbers[4]);
    own.Pattern.MonthOfYear = static_cast<std::int32_t>(numbers[5]);
    own.Pattern.End = static_cast<rules::PatternEnd>(numbers[6]);
    own.Pattern.Occurrences = static_cast<std::int32_t>(numbers[7]);
    own.Pattern.LastDay = numbers[8];
    own.Start = numbers[9];
    const bool isOurs = rules::FindPatternFault(own.Pattern) == rules::PatternFault::None &&
                        own.Start >= rules::kFirstStoredDay && own.Start <= rules::kLastStoredDay;
    return isOurs ? std::optional(own) : std::nullopt;
}

std::string WriteOwnReminder(const rules::StoredItem& item) {
    return std::string(item.ReminderSet ? "1," : "0,") + std::to_string(item.ReminderMinutes) + "," +
           std::to_string(item.ReminderOptions);
}

std::optional<OwnReminder> ReadOwnReminder(const LineList& event) {
    std::array<std::int64_t, 3> numbers{};
    const rules::ContentLine* line = event.FindFirst(kOwnReminder);
    if (line == nullptr || !ReadNumbers(line->Value, numbers)) {
        return std::nullopt;
    }
    return OwnReminder{numbers[0] != 0, static_cast<std::int32_t>(numbers[1]), static_cast<std::int32_t>(numbers[2])};
}

void ReadOwnTexts(const LineList& event, rules::StoredItem& item) {
    if (const rules::ContentLine* sound = event.FindFirst(kOwnSound); sound != nullptr) {
        item.ReminderSound = DecodeText(RemoveEscapes(sound->Value));
    }
    item.Sensitivity = ReadNumber(event, kOwnSensitivity).value_or(item.Sensitivity);
    item.BusyStatus = ReadNumber(event, kOwnBusy).value_or(item.BusyStatus);
    item.AllDay = item.AllDay || event.FindFirst(kOwnAllDay) != nullptr;
    for (const rules::ContentLine* ink : event.FindAll(kOwnInk)) {
        AppendBase64(ink->Value, item.Ink);
    }
}

std::string_view NameKind(TagList kind) {
    return kKindNames[static_cast<std::size_t>(kind)];
}

std::optional<TagList> ReadOwnKind(const rules::ContentLine& line) {
    const std::string* kind = line.FindParameter(kOwnKind);
    for (std::size_t index = 0; kind != nullptr && index < kKindNames.size(); ++index) {
        if (EqualsIgnoringCase(*kind, kKindNames[index])) {
            return static_cast<TagList>(index);
        }
    }
    return std::nullopt;
}

} // namespace tavo::exchange
