// What the command line says of an item, and what of it cannot be together.
#include "host/locale/ascii.h"
#include "host/locale/harmless_text.h"
#include "tools/option_values.h"
#include "tools/repeat_words.h"

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

bool TakeRepeat(WordReader& reader, std::optional<RepeatRule>& rule, std::string& error) {
    std::string_view value;
    if (!reader.TakeValue(value, error)) {
        return false;
    }
    rule = ReadRepeat(value, GetNow(), error);
    return rule.has_value();
}

bool TakeLead(WordReader& reader, std::optional<int>& minutes, std::string& error) {
    std::optional<Length> length;
    if (!TakeLength(reader, length, error)) {
        return false;
    }
    minutes = length->Minutes;
    return true;
}

// The name of a file of the sound folder, whose ending may be left away.
bool TakeSound(WordReader& reader, std::optional<std::string>& sound, std::string& error) {
    constexpr std::string_view ending = ".wav";
    if (!TakeText(reader, sound, error)) {
        return false;
    }
    if (sound->find_first_of("/\\") != std::string::npos || !locale::IsHarmless(*sound)) {
        error = "\"" + *sound + "\" is no sound. A sound is told by its name, like Bell.";
        return false;
    }
    const bool isWhole = sound->size() < ending.size() ||
                         !locale::EqualsIgnoringCase(sound->substr(sound->size() - ending.size()), ending);
    *sound += isWhole && !sound->empty() ? ending : "";
    return true;
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
    if (word == "--no-repeat") {
        options.NoRepeat = true;
        return reader.RefuseValue(error);
    }
    if (word == "--no-remind") {
        options.NoRemind = true;
        return reader.RefuseValue(error);
    }
    if (word == "--repeat") {
        return TakeRepeat(reader, options.Rule, error);
    }
    if (word == "--remind") {
        return TakeLead(reader, options.Remind, error);
    }
    if (word == "--sound") {
        return TakeSound(reader, options.Sound, error);
    }
    if (word == "--kind") {
        return TakeKind(reader, options.Kind, error);
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

// What of a new item, or of a change, is against another thing that is said of it; empty when nothing is.
std::string FindFault(const ItemOptions& options) {
    if (options.Rule && options.NoRepeat) {
        return "Say --repeat or --no-repeat, not both.";
    }
    if (options.NoRemind && (options.Remind || options.Sound)) {
        return "Say --remind and --sound, or --no-remind, not both.";
    }
    return FindTimeFault(options);
}

// What belongs to a series as a whole.
bool ChangesSeries(const ItemOptions& options) {
    return options.AllDay || options.Rule || options.NoRepeat || options.Remind || options.NoRemind || options.Sound ||
           options.Kind || options.Note;
}

bool ChangesAnything(const ItemOptions& options) {
    return options.Subject || options.Start || options.End || options.For || options.Location || ChangesSeries(options);
}

bool TakeNumber(std::string_view word, std::int32_t& item, std::string& error) {
    std::vector<std::int32_t> items;
    if (!ReadItemNumber(word, items, error)) {
        return false;
    }
    item = items.front();
    return true;
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
        } else if (word.starts_with("--no-") || !TakeItemOption(reader, word, options, error)) {
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
    } else if (options.Sound && !options.Remind && options.Kind != ExportKind::Alarm) {
        error = "A sound is that of a reminder: say --remind too.";
    } else {
        error = FindFault(options);
    }
    return error.empty() ? std::optional(options) : std::nullopt;
}

std::optional<ItemOptions> ParseEdit(std::span<const std::string_view> words, std::string& error) {
    ItemOptions options;
    WordReader reader(words);
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        bool good = true;
        if (IsHelp(word)) {
            options.Help = true;
        } else if (!reader.IsOption(word) && options.Item == 0) {
            good = TakeNumber(word, options.Item, error);
        } else if (word == "--subject") {
            good = TakeText(reader, options.Subject, error);
        } else if (word == "--on") {
            good = TakeDay(reader, word, options.On, error);
        } else {
            good = TakeItemOption(reader, word, options, error);
        }
        if (!good) {
            error = error.empty() ? reader.DescribeUnknown(word) : error;
            return std::nullopt;
        }
    }
    if (options.Help) {
        return options;
    }
    if (options.Item == 0) {
        error = "Say which item: its number, as `tavo find` and `tavo agenda --tsv` tell it.";
    } else if (options.On && ChangesSeries(options)) {
        error = "One day of a series can have a subject, a place and times of its own; the rest is the whole series'.";
    } else {
        error = ChangesAnything(options) ? FindFault(options) : "Say what to change, as with --start or --subject.";
    }
    return error.empty() ? std::optional(options) : std::nullopt;
}

} // namespace tavo::tools
