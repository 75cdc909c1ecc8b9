// The values that options of several commands take.
#include "tools/option_values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

namespace tavo::tools {

std::optional<Day> ReadDay(std::string_view text, std::string_view whatFor, std::string& error) {
    if (const std::optional<Day> day = ParseDay(text); day) {
        return day;
    }
    const std::optional<When> when = ReadWhen(text, GetNow(), error);
    if (when && when->Date && !when->Minute) {
        return when->Date;
    }
    const std::string reason =
        when ? "\"" + std::string(text) + "\" is a time. Write a day like today, fri, \"1 dec\" or 2026-03-14." : error;
    error = std::string(whatFor) + ": " + reason;
    return std::nullopt;
}

bool TakeDay(WordReader& reader, std::string_view option, std::optional<Day>& day, std::string& error) {
    std::string_view value;
    if (!reader.TakeValue(value, error)) {
        return false;
    }
    day = ReadDay(value, option, error);
    return day.has_value();
}

bool TakeFormat(WordReader& reader, std::string_view option, ListFormat& format, std::string& error) {
    if (option != "--tsv" && option != "--json") {
        return false;
    }
    const ListFormat wanted = option == "--json" ? ListFormat::Json : ListFormat::Tabbed;
    if (format != ListFormat::People && format != wanted) {
        error = "Say --tsv or --json, not both.";
        return false;
    }
    format = wanted;
    return reader.RefuseValue(error);
}

bool TakeKind(WordReader& reader, std::optional<ExportKind>& kind, std::string& error) {
    constexpr std::array<std::string_view, 4> names = {"alarm", "holiday", "anniversary", "appointment"};
    std::string_view value;
    if (!reader.TakeValue(value, error)) {
        return false;
    }
    const auto found = std::find(names.begin(), names.end(), value);
    if (found == names.end()) {
        error = "\"" + std::string(value) +
                "\" is no kind for --kind. The kinds are alarm, holiday, anniversary and appointment.";
        return false;
    }
    kind = static_cast<ExportKind>(found - names.begin());
    return true;
}

bool TakeItem(WordReader& reader, std::vector<std::int32_t>& items, std::string& error) {
    std::string_view value;
    return reader.TakeValue(value, error) && ReadItemNumber(value, items, error);
}

bool ReadItemNumber(std::string_view value, std::vector<std::int32_t>& items, std::string& error) {
    std::int32_t item = 0;
    const auto [end, problem] = std::from_chars(value.data(), value.data() + value.size(), item);
    if (problem != std::errc() || end != value.data() + value.size() || item < 1) {
        error = "\"" + std::string(value) + "\" is no number of an item. `tavo agenda --tsv` tells them.";
        return false;
    }
    items.push_back(item);
    return true;
}

bool TakeWhen(WordReader& reader, std::optional<When>& when, std::string& error) {
    std::string_view value;
    if (!reader.TakeValue(value, error)) {
        return false;
    }
    when = ReadWhen(value, GetNow(), error);
    return when.has_value();
}

bool TakeText(WordReader& reader, std::optional<std::string>& text, std::string& error) {
    std::string_view value;
    const bool taken = reader.TakeValue(value, error);
    text = value;
    return taken;
}

} // namespace tavo::tools
