// What the command line says of an item, and what of it cannot be together.
#include "tools/option_values.h"

namespace tavo::tools {
namespace {

bool TakeLength(WordReader& reader, std::optional<Length>& length, std::string& error) {
    std::string_view value;
    if (!reader.TakeValue(value, error)) {
        return false;
    }
    length = ReadLength(value, error);
    return length.has_value();
}

// Of an option about the item. False without a sentence when the word is none.
bool TakeItemOption(WordReader& reader, std::string_view word, ItemOptions& options, std::string& error) {
    if (word == "--start") {
        return TakeWhen(reader, options.Start, error);
    }
    if (word == "--end") {
        return TakeWhen(reader, options.End, error);
    }
    if (word == "--for") {
        return TakeLength(reader, options.For, error);
    }
    if (word == "--all-day") {
        options.AllDay = true;
        return reader.RefuseValue(error);
    }
    if (word == "--location") {
        return TakeText(reader, options.Location, error);
    }
    if (word == "--note") {
        return TakeText(reader, options.Note, error);
    }
    return false;
}

// What of the times cannot be together; empty when all can.
std::string FindTimeFault(const ItemOptions& options) {
    if (options.End && options.For) {
        return "Say --end or --for, not both.";
    }
    const bool hasTime = (options.Start && options.Start->Minute) || (options.End && options.End->Minute);
    if (options.AllDay && hasTime) {
        return "What lasts all day has no time: leave --all-day or the time away.";
    }
    return {};
}

} // namespace

std::optional<ItemOptions> ParseAdd(std::span<const std::string_view> words, std::string& error) {
    ItemOptions options;
    WordReader reader(words);
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        if (IsHelp(word)) {
            options.Help = true;
        } else if (!reader.IsOption(word) && !options.Subject) {
            options.Subject = word;
        } else if (!TakeItemOption(reader, word, options, error)) {
            error = error.empty() ? reader.DescribeUnknown(word) : error;
            return std::nullopt;
        }
    }
    if (options.Help) {
        return options;
    }
    if (!options.Subject || options.Subject->empty()) {
        error = "Say what it is: its subject.";
    } else if (!options.Start) {
        error = "Say with --start when it is.";
    } else {
        error = FindTimeFault(options);
    }
    return error.empty() ? std::optional(options) : std::nullopt;
}

} // namespace tavo::tools
