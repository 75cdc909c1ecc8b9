// How long something lasts.
#include "tools/length.h"

#include "tools/written_words.h"

#include <algorithm>

namespace tavo::tools {
namespace {

constexpr int kMinutesPerHour = 60;
constexpr int kMinutesPerDay = 24 * kMinutesPerHour;
constexpr int kMinutesPerWeek = 7 * kMinutesPerDay;
constexpr int kLongest = 366 * kMinutesPerDay;

// How many minutes it has; "m" is a minute, as no length is told in months. 0 is no unit.
int MinutesOf(std::string_view name) {
    if (name == "m") {
        return 1;
    }
    const std::optional<Unit> unit = FindUnit(name);
    if (!unit) {
        return 0;
    }
    switch (*unit) {
    case Unit::Minute:
        return 1;
    case Unit::Hour:
        return kMinutesPerHour;
    case Unit::Day:
        return kMinutesPerDay;
    case Unit::Week:
        return kMinutesPerWeek;
    default:
        return 0;
    }
}

// The text in small letters and without blanks, but for those between two numbers.
std::string Join(std::string_view text) {
    std::string joined;
    for (const std::string& word : SplitWords(text)) {
        const bool followsNumber = !joined.empty() && CountDigits(joined.substr(joined.size() - 1)) == 1;
        joined += followsNumber && CountDigits(word) > 0 ? " " : "";
        joined += word;
    }
    return joined;
}

std::optional<Length> ReadJoined(std::string_view rest) {
    Length length{0, true};
    int smallest = kLongest;
    while (!rest.empty()) {
        const std::size_t digits = CountDigits(rest);
        const std::optional<int> number = ReadWholeNumber(rest.substr(0, digits));
        rest.remove_prefix(digits);
        const std::size_t nameEnd = std::min(rest.find_first_of("0123456789"), rest.size());
        std::string_view name = rest.substr(0, nameEnd);
        rest.remove_prefix(nameEnd);
        const bool isClock = name == ":" && !rest.empty();
        const bool isBare = name.empty() && (smallest == kLongest || smallest == kMinutesPerHour);
        const int minutes = isClock ? kMinutesPerHour : (isBare ? 1 : MinutesOf(name));
        // From great to small, each once.
        if (!number || *number > kLongest || minutes == 0 || minutes >= smallest) {
            return std::nullopt;
        }
        const long long sum = length.Minutes + static_cast<long long>(*number) * minutes;
        if (sum > kLongest) {
            return std::nullopt;
        }
        length.Minutes = static_cast<int>(sum);
        length.IsDays = length.IsDays && minutes >= kMinutesPerDay;
        smallest = minutes;
    }
    return smallest == kLongest ? std::nullopt : std::optional(length);
}

} // namespace

std::optional<Length> ReadLength(std::string_view text, std::string& error) {
    const std::optional<Length> length = ReadJoined(Join(text));
    if (!length) {
        error = "\"" + std::string(text) + "\" is no length. Write it like 45, 1h30, \"2 hours\" or \"3 days\".";
    }
    return length;
}

} // namespace tavo::tools
