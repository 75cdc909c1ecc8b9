// One file, one choice of days, and the paper.
#include "tools/print_options.h"

#include "tools/file_word.h"
#include "tools/option_values.h"

#include <array>
#include <utility>

namespace tavo::tools {
namespace {

constexpr std::chrono::days kLongestList{3660};

struct Chosen {
    std::array<std::pair<PrintWhat, std::optional<Day>>, 3> Around{
        {{PrintWhat::Month, {}}, {PrintWhat::Week, {}}, {PrintWhat::Day, {}}}};
    std::optional<Day> From;
    std::optional<Day> To;
};

bool TakePaper(WordReader& reader, std::string& paper, std::string& error) {
    std::string_view value;
    if (!reader.TakeValue(value, error)) {
        return false;
    }
    paper = value;
    if (paper != "a4" && paper != "letter") {
        error = "Papers are a4 and letter, not \"" + paper + "\".";
        return false;
    }
    return true;
}

bool TakeOption(WordReader& reader, std::string_view word, Chosen& chosen, PrintOptions& options, std::string& error) {
    constexpr std::array<std::string_view, 3> names{"--month", "--week", "--day"};
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (word == names[index]) {
            return TakeDay(reader, word, chosen.Around[index].second, error);
        }
    }
    if (word == "--from") {
        return TakeDay(reader, word, chosen.From, error);
    }
    if (word == "--to") {
        return TakeDay(reader, word, chosen.To, error);
    }
    if (word == "--paper") {
        return TakePaper(reader, options.Paper, error);
    }
    error = reader.DescribeUnknown(word);
    return false;
}

bool Choose(const Chosen& chosen, PrintOptions& options, std::string& error) {
    int choices = chosen.From || chosen.To ? 1 : 0;
    options.First = GetToday();
    for (const auto& [what, day] : chosen.Around) {
        if (day) {
            options.What = what;
            options.First = *day;
            ++choices;
        }
    }
    options.Last = options.First;
    if (chosen.From || chosen.To) {
        options.What = PrintWhat::List;
        options.First = chosen.From.value_or(GetToday());
        options.Last = chosen.To.value_or(options.First + std::chrono::days(30));
    }
    if (choices > 1) {
        error = "Name one of --month, --week, --day, and --from with --to.";
    } else if (options.Last < options.First) {
        error = "The day of --to lies before the day of --from.";
    } else if (options.Last - options.First > kLongestList) {
        error = "A list may have ten years at most.";
    }
    return error.empty();
}

} // namespace

std::optional<PrintOptions> ParsePrint(std::span<const std::string_view> words, std::string& error) {
    PrintOptions options;
    Chosen chosen;
    WordReader reader(words);
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        if (IsHelp(word)) {
            options.Help = true;
        } else if (reader.IsOption(word)) {
            if (!TakeOption(reader, word, chosen, options, error)) {
                return std::nullopt;
            }
        } else if (!options.File.empty()) {
            error = "Name one file only: " + options.File + " or " + std::string(word) + ".";
            return std::nullopt;
        } else if (const std::optional<std::string> path = ReadPath(word, error); path) {
            options.File = *path;
        } else {
            return std::nullopt;
        }
    }
    if (options.Help) {
        return options;
    }
    if (options.File.empty()) {
        error = "Name the file, such as month.pdf.";
        return std::nullopt;
    }
    return Choose(chosen, options, error) ? std::optional(options) : std::nullopt;
}

const std::string_view kPrintHelp =
    R"(tavo print - draw a month, a week, a day or a list into a PDF file

Usage: tavo print FILE [--month DAY | --week DAY | --day DAY | --from DAY --to DAY]
                  [--paper a4|letter]

Without a choice of days it is the month of today. DAY is written as in `tavo add`:
2026-12-01, tomorrow, fri, "1 dec". FILE takes the place of an older one in one step.

  --month DAY     the month in which the day lies, with subjects in its cells
  --week DAY      the week of the day, day by day, with times and places
  --day DAY       the day, with its handwritten memos
  --from DAY      a list from this day on; without --to of a month
  --to DAY        a list up to this day; without --from from today on
  --paper PAPER   a4 or letter; without it what is usual where you live
  --help          show this text

Exit status: 0 it is written, 1 it is not, 2 the command line was not understood.
)";

} // namespace tavo::tools
