// The words of commands that list, find, and name items by their numbers.
#include "tools/option_values.h"

#include <charconv>
#include <system_error>

namespace tavo::tools {
namespace {

enum class NumbersFor { Listing, Deletion, Restoring };

std::optional<NumbersOptions> ParseNumbers(std::span<const std::string_view> words, NumbersFor purpose,
                                           std::string& error) {
    NumbersOptions options;
    WordReader reader(words);
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        bool good = true;
        if (IsHelp(word)) {
            options.Help = true;
        } else if (!reader.IsOption(word)) {
            good = ReadItemNumber(word, options.Items, error);
        } else if (word == "--on" && purpose == NumbersFor::Deletion) {
            good = TakeDay(reader, word, options.On, error);
        } else {
            good = purpose == NumbersFor::Listing && TakeFormat(reader, word, options.Format, error);
        }
        if (!good) {
            error = error.empty() ? reader.DescribeUnknown(word) : error;
            return std::nullopt;
        }
    }
    if (options.Items.empty() && !options.Help) {
        error = "Say which items: their numbers, as `tavo find` and `tavo agenda --tsv` tell them.";
        return std::nullopt;
    }
    return options;
}

// A day may be named, and a format.
std::optional<AgendaOptions> ParseAround(std::span<const std::string_view> words, std::string_view command,
                                         std::string& error) {
    AgendaOptions options;
    WordReader reader(words);
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        bool good = true;
        if (IsHelp(word)) {
            options.Help = true;
        } else if (!reader.IsOption(word) && !options.From) {
            options.From = ReadDay(word, command, error);
            good = options.From.has_value();
        } else {
            good = TakeFormat(reader, word, options.Format, error);
        }
        if (!good) {
            error = error.empty() ? reader.DescribeUnknown(word) : error;
            return std::nullopt;
        }
    }
    options.From = options.From.value_or(GetToday());
    options.To = options.From;
    return options;
}

bool TakeSteps(WordReader& reader, int& steps, std::string& error) {
    constexpr int most = 10'000;
    std::string_view value;
    if (!reader.TakeValue(value, error)) {
        return false;
    }
    const auto [end, problem] = std::from_chars(value.data(), value.data() + value.size(), steps);
    if (problem == std::errc() && end == value.data() + value.size() && steps >= 1 && steps <= most) {
        return true;
    }
    error = "\"" + std::string(value) + "\" is no number of steps: 1 to " + std::to_string(most) + ".";
    return false;
}

} // namespace

std::optional<NumbersOptions> ParseShow(std::span<const std::string_view> words, std::string& error) {
    return ParseNumbers(words, NumbersFor::Listing, error);
}

std::optional<NumbersOptions> ParseDelete(std::span<const std::string_view> words, std::string& error) {
    return ParseNumbers(words, NumbersFor::Deletion, error);
}

std::optional<NumbersOptions> ParseRestoreItems(std::span<const std::string_view> words, std::string& error) {
    return ParseNumbers(words, NumbersFor::Restoring, error);
}

std::optional<FindOptions> ParseFind(std::span<const std::string_view> words, std::string& error) {
    FindOptions options;
    WordReader reader(words);
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        if (IsHelp(word)) {
            options.Help = true;
        } else if (!reader.IsOption(word)) {
            options.Text += (options.Text.empty() ? "" : " ") + std::string(word);
        } else if (!TakeFormat(reader, word, options.Format, error)) {
            error = error.empty() ? reader.DescribeUnknown(word) : error;
            return std::nullopt;
        }
    }
    if (options.Text.find_first_not_of(' ') == std::string::npos && !options.Help) {
        error = "Say what to find: one word or more.";
        return std::nullopt;
    }
    return options;
}

std::optional<HistoryOptions> ParseHistory(std::span<const std::string_view> words, std::string& error) {
    HistoryOptions options;
    WordReader reader(words);
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        bool good = true;
        if (IsHelp(word)) {
            options.Help = true;
        } else if (word == "--steps") {
            good = TakeSteps(reader, options.Steps, error);
        } else {
            good = TakeFormat(reader, word, options.Format, error);
        }
        if (!good) {
            error = error.empty() ? reader.DescribeUnknown(word) : error;
            return std::nullopt;
        }
    }
    return options;
}

std::optional<CheckOptions> ParseUndo(std::span<const std::string_view> words, std::string& error) {
    return ParseCheck(words, error);
}

std::optional<AgendaOptions> ParseToday(std::span<const std::string_view> words, std::string& error) {
    std::optional<AgendaOptions> options = ParseAround(words, "today", error);
    if (options && *options->From != GetToday()) {
        error = "Today is today: `tavo agenda --from DATE --to DATE` lists other days.";
        return std::nullopt;
    }
    return options;
}

std::optional<AgendaOptions> ParseWeek(std::span<const std::string_view> words, std::string& error) {
    std::optional<AgendaOptions> options = ParseAround(words, "week", error);
    if (options) {
        const auto sinceMonday = std::chrono::weekday(*options->From) - std::chrono::Monday;
        options->From = *options->From - sinceMonday;
        options->To = *options->From + std::chrono::days(6);
    }
    return options;
}

std::optional<AgendaOptions> ParseMonth(std::span<const std::string_view> words, std::string& error) {
    std::optional<AgendaOptions> options = ParseAround(words, "month", error);
    if (options) {
        const std::chrono::year_month_day day(*options->From);
        options->From = std::chrono::sys_days(day.year() / day.month() / std::chrono::day(1));
        options->To = std::chrono::sys_days(day.year() / day.month() / std::chrono::last);
    }
    return options;
}

} // namespace tavo::tools
