// Words, numbers, names and units as people write them.
#include "tools/written_words.h"

#include "tools/calendar_day.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace tavo::tools {
namespace {

constexpr std::size_t kShortestName = 3;
constexpr std::size_t kMostDigits = 8;

char ToLower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

// Whether it is the name in small letters, or what that begins with.
bool IsStartOf(std::string_view start, std::string_view name) {
    return start.size() >= kShortestName && start.size() <= name.size() &&
           std::equal(start.begin(), start.end(), name.begin(), [](char a, char b) { return a == ToLower(b); });
}

struct UnitName {
    std::string_view Name;
    Unit Meaning;
};

constexpr std::array<UnitName, 22> kUnits{
    {{"min", Unit::Minute}, {"mins", Unit::Minute}, {"minute", Unit::Minute}, {"minutes", Unit::Minute},
     {"h", Unit::Hour},     {"hr", Unit::Hour},     {"hrs", Unit::Hour},      {"hour", Unit::Hour},
     {"hours", Unit::Hour}, {"d", Unit::Day},       {"day", Unit::Day},       {"days", Unit::Day},
     {"w", Unit::Week},     {"wk", Unit::Week},     {"week", Unit::Week},     {"weeks", Unit::Week},
     {"m", Unit::Month},    {"month", Unit::Month}, {"months", Unit::Month},  {"y", Unit::Year},
     {"year", Unit::Year},  {"years", Unit::Year}}};

// How many letters have to be put in, taken out, changed or swapped with the next.
std::size_t CountSlips(std::string_view from, std::string_view to) {
    std::vector<std::vector<std::size_t>> counts(from.size() + 1, std::vector<std::size_t>(to.size() + 1));
    std::iota(counts[0].begin(), counts[0].end(), std::size_t{0});
    for (std::size_t row = 1; row <= from.size(); ++row) {
        counts[row][0] = row;
        for (std::size_t column = 1; column <= to.size(); ++column) {
            const std::size_t changed = from[row - 1] == to[column - 1] ? 0 : 1;
            std::size_t least = std::min(
                {counts[row - 1][column] + 1, counts[row][column - 1] + 1, counts[row - 1][column - 1] + changed});
            if (row > 1 && column > 1 && from[row - 1] == to[column - 2] && from[row - 2] == to[column - 1]) {
                least = std::min(least, counts[row - 2][column - 2] + 1);
            }
            counts[row][column] = least;
        }
    }
    return counts[from.size()][to.size()];
}

} // namespace

std::vector<std::string> SplitWords(std::string_view text) {
    constexpr std::string_view between = " \t\n,";
    std::vector<std::string> words;
    for (std::size_t begin = text.find_first_not_of(between); begin != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(between, begin), text.size());
        std::string word(text.substr(begin, end - begin));
        while (!word.empty() && word.back() == '.') {
            word.pop_back();
        }
        std::transform(word.begin(), word.end(), word.begin(), ToLower);
        if (!word.empty()) {
            words.push_back(std::move(word));
        }
        begin = text.find_first_not_of(between, end);
    }
    return words;
}

std::size_t CountDigits(std::string_view text) {
    return std::min(text.find_first_not_of("0123456789"), text.size());
}

std::optional<int> ReadWholeNumber(std::string_view text) {
    if (text.empty() || text.size() > kMostDigits || CountDigits(text) != text.size()) {
        return std::nullopt;
    }
    return std::accumulate(text.begin(), text.end(), 0,
                           [](int number, char digit) { return number * 10 + (digit - '0'); });
}

int FindWeekday(std::string_view name) {
    constexpr unsigned count = 7;
    for (unsigned weekday = 0; weekday < count; ++weekday) {
        if (IsStartOf(name, NameWeekday(weekday))) {
            return static_cast<int>(weekday);
        }
    }
    return -1;
}

int FindMonth(std::string_view name) {
    constexpr unsigned count = 12;
    for (unsigned month = 1; month <= count; ++month) {
        if (IsStartOf(name, NameMonth(month))) {
            return static_cast<int>(month);
        }
    }
    return 0;
}

std::optional<Unit> FindUnit(std::string_view name) {
    const auto found =
        std::find_if(kUnits.begin(), kUnits.end(), [name](const UnitName& unit) { return unit.Name == name; });
    return found == kUnits.end() ? std::nullopt : std::optional(found->Meaning);
}

std::string_view FindNearest(std::string_view mistyped, std::span<const std::string_view> known) {
    std::string_view nearest;
    // A third of the letters may be wrong: of short names one.
    std::size_t least = std::max<std::size_t>(1, mistyped.size() / 3) + 1;
    for (const std::string_view name : known) {
        const std::size_t slips = CountSlips(mistyped, name);
        if (slips < least) {
            least = slips;
            nearest = name;
        }
    }
    return nearest;
}

} // namespace tavo::tools
