// What the command line of `tavo` asks for.
#include "tools/arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

namespace tavo::tools {
namespace {

// Walks the words of a command: options with their values, then what is no option.
class WordReader {
  public:
    explicit WordReader(std::span<const std::string_view> words) : Words(words) {}

    bool HasMore() const { return Next < Words.size(); }

    // The next word; of --name=value only the name, whose value waits for TakeValue.
    std::string_view Take() {
        std::string_view word = Words[Next++];
        HasAttached = false;
        if (const std::size_t equals = word.find('='); IsOption(word) && equals != std::string_view::npos) {
            Attached = word.substr(equals + 1);
            HasAttached = true;
            word = word.substr(0, equals);
        }
        Option = word;
        if (!OptionsOver && word == "--") {
            OptionsOver = true;
            return HasMore() ? Take() : std::string_view();
        }
        return word;
    }

    bool IsOption(std::string_view word) const { return !OptionsOver && word.size() > 1 && word[0] == '-'; }

    bool TakeValue(std::string_view& value, std::string& error) {
        if (HasAttached) {
            value = Attached;
            HasAttached = false;
        } else if (HasMore()) {
            value = Words[Next++];
        } else {
            error = "The option " + std::string(Option) + " needs a value.";
            return false;
        }
        return true;
    }

    // A --flag=value where the flag takes none.
    bool RefuseValue(std::string& error) const {
        if (!HasAttached) {
            return true;
        }
        error = "The option " + std::string(Option) + " takes no value.";
        return false;
    }

  private:
    std::span<const std::string_view> Words;
    std::size_t Next = 0;
    std::string_view Option;
    std::string_view Attached; // what stood behind an option's equals sign
    bool HasAttached = false;
    bool OptionsOver = false;
};

bool IsHelp(std::string_view word) {
    return word == "--help" || word == "-h";
}

bool TakeDay(WordReader& reader, std::string_view option, std::optional<Day>& day, std::string& error) {
    std::string_view value;
    if (!reader.TakeValue(value, error)) {
        return false;
    }
    day = ParseDay(value);
    if (!day) {
        error = "\"" + std::string(value) + "\" is not a date for " + std::string(option) +
                ". Dates are written YYYY-MM-DD, like 2026-03-14.";
    }
    return day.has_value();
}

bool TakeTag(WordReader& reader, ImportTag& tag, std::string& error) {
    std::string_view value;
    if (!reader.TakeValue(value, error)) {
        return false;
    }
    if (value == "alarm") {
        tag = ImportTag::Alarm;
    } else if (value == "holiday") {
        tag = ImportTag::Holiday;
    } else if (value == "anniversary") {
        tag = ImportTag::Anniversary;
    } else {
        error = "\"" + std::string(value) + "\" is no kind for --as. The kinds are alarm, holiday and anniversary.";
        return false;
    }
    return true;
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
    if (!reader.TakeValue(value, error)) {
        return false;
    }
    std::int32_t item = 0;
    const auto [end, problem] = std::from_chars(value.data(), value.data() + value.size(), item);
    if (problem != std::errc() || end != value.data() + value.size() || item < 1) {
        error = "\"" + std::string(value) + "\" is no number of an item. `tavo agenda --tsv` tells them.";
        return false;
    }
    items.push_back(item);
    return true;
}

bool TakeFormat(WordReader& reader, std::string& format, std::string& error) {
    std::string_view value;
    if (!reader.TakeValue(value, error)) {
        return false;
    }
    format = value;
    if (value != "svg" && value != "png" && value != "pdf") {
        error = "\"" + format + "\" is no format. The formats are svg, png and pdf.";
        return false;
    }
    return true;
}

bool TakeFolder(WordReader& reader, std::string& folder, std::string& error) {
    std::string_view value;
    const bool taken = reader.TakeValue(value, error);
    folder = value;
    return taken;
}

// What is missing or too much; empty when all is well.
std::string FindMemoFault(const MemoOptions& options) {
    if (options.Help) {
        return {};
    }
    switch (options.Action) {
    case MemoAction::None:
        return "Say list or export.";
    case MemoAction::List:
        return options.Names.empty() && !options.All && options.Folder.empty() ? std::string()
                                                                               : "Of list only --date can be told.";
    case MemoAction::Export:
        break;
    }
    if (options.All != options.Names.empty()) {
        return "Say which memos to export: their names, or --all.";
    }
    return options.Folder.empty() ? "Say with --to which folder the memos go to." : std::string();
}

bool TakeCount(WordReader& reader, std::string_view option, int& count, std::string& error) {
    constexpr int most = 3660; // ten years
    std::string_view value;
    if (!reader.TakeValue(value, error)) {
        return false;
    }
    const auto [end, problem] = std::from_chars(value.data(), value.data() + value.size(), count);
    if (problem == std::errc() && end == value.data() + value.size() && count >= 1 && count <= most) {
        return true;
    }
    error = "\"" + std::string(value) + "\" is no number of days for " + std::string(option) + ": 1 to " +
            std::to_string(most) + ".";
    return false;
}

RemindersAction FindRemindersAction(std::string_view word) {
    if (word == "list") {
        return RemindersAction::List;
    }
    if (word == "log") {
        return RemindersAction::Log;
    }
    if (word == "on") {
        return RemindersAction::On;
    }
    return word == "off" ? RemindersAction::Off : RemindersAction::None;
}

std::string MakeUnknown(WordReader& reader, std::string_view word) {
    return reader.IsOption(word) ? "There is no option " + std::string(word) + "."
                                 : "\"" + std::string(word) + "\" is one word too many.";
}

} // namespace

std::optional<AgendaOptions> ParseAgenda(std::span<const std::string_view> words, std::string& error) {
    AgendaOptions options;
    WordReader reader(words);
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        bool good = true;
        if (word == "--from") {
            good = TakeDay(reader, word, options.From, error);
        } else if (word == "--to") {
            good = TakeDay(reader, word, options.To, error);
        } else if (word == "--tsv") {
            options.TabSeparated = true;
            good = reader.RefuseValue(error);
        } else if (IsHelp(word)) {
            options.Help = true;
        } else {
            error = MakeUnknown(reader, word);
            good = false;
        }
        if (!good) {
            return std::nullopt;
        }
    }
    if (options.From && options.To && *options.To < *options.From) {
        error = "The day of --to lies before the day of --from.";
        return std::nullopt;
    }
    return options;
}

std::optional<ImportOptions> ParseImport(std::span<const std::string_view> words, std::string& error) {
    ImportOptions options;
    WordReader reader(words);
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        if (!reader.IsOption(word)) {
            if (!word.empty()) {
                options.Paths.emplace_back(word);
            }
        } else if (word == "--as") {
            if (!TakeTag(reader, options.Tag, error)) {
                return std::nullopt;
            }
        } else if (word == "--strict") {
            options.Strict = true;
        } else if (IsHelp(word)) {
            options.Help = true;
        } else {
            error = MakeUnknown(reader, word);
            return std::nullopt;
        }
    }
    if (options.Paths.empty() && !options.Help) {
        error = "Say which files or folders to import.";
        return std::nullopt;
    }
    return options;
}

std::optional<MemoOptions> ParseMemo(std::span<const std::string_view> words, std::string& error) {
    MemoOptions options;
    WordReader reader(words);
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        bool good = true;
        if (options.Action == MemoAction::None && (word == "list" || word == "export")) {
            options.Action = word == "list" ? MemoAction::List : MemoAction::Export;
        } else if (IsHelp(word)) {
            options.Help = true;
        } else if (word == "--date" && options.Action == MemoAction::List) {
            good = TakeDay(reader, word, options.Date, error);
        } else if (word == "--all") {
            options.All = true;
            good = reader.RefuseValue(error);
        } else if (word == "--to") {
            good = TakeFolder(reader, options.Folder, error);
        } else if (word == "--format") {
            good = TakeFormat(reader, options.Format, error);
        } else if (!reader.IsOption(word) && options.Action == MemoAction::Export) {
            options.Names.emplace_back(word);
        } else {
            error = MakeUnknown(reader, word);
            good = false;
        }
        if (!good) {
            return std::nullopt;
        }
    }
    error = FindMemoFault(options);
    return error.empty() ? std::optional(options) : std::nullopt;
}

std::optional<RemindersOptions> ParseReminders(std::span<const std::string_view> words, std::string& error) {
    RemindersOptions options;
    WordReader reader(words);
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        bool good = true;
        if (word == "--days") {
            good = TakeCount(reader, word, options.Days, error);
        } else if (IsHelp(word)) {
            options.Help = true;
        } else if (const RemindersAction action = FindRemindersAction(word);
                   action != RemindersAction::None && options.Action == RemindersAction::None) {
            options.Action = action;
        } else {
            error = MakeUnknown(reader, word);
            good = false;
        }
        if (!good) {
            return std::nullopt;
        }
    }
    if (options.Action == RemindersAction::None && !options.Help) {
        error = "Say list, log, on or off.";
        return std::nullopt;
    }
    return options;
}

std::optional<ExportOptions> ParseExport(std::span<const std::string_view> words, std::string& error) {
    ExportOptions options;
    WordReader reader(words);
    bool hasFile = false;
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        bool good = true;
        if (word == "--from") {
            good = TakeDay(reader, word, options.From, error);
        } else if (word == "--to") {
            good = TakeDay(reader, word, options.To, error);
        } else if (word == "--kind") {
            good = TakeKind(reader, options.Kind, error);
        } else if (word == "--item") {
            good = TakeItem(reader, options.Items, error);
        } else if (IsHelp(word)) {
            options.Help = true;
        } else if (!reader.IsOption(word) && !hasFile) {
            options.File = word == "-" ? std::string_view() : word;
            hasFile = true;
        } else {
            error = MakeUnknown(reader, word);
            good = false;
        }
        if (!good) {
            return std::nullopt;
        }
    }
    if (options.From && options.To && *options.To < *options.From) {
        error = "The day of --to lies before the day of --from.";
        return std::nullopt;
    }
    return options;
}

std::optional<CheckOptions> ParseCheck(std::span<const std::string_view> words, std::string& error) {
    CheckOptions options;
    WordReader reader(words);
    while (reader.HasMore()) {
        const std::string_view word = reader.Take();
        if (!IsHelp(word)) {
            error = MakeUnknown(reader, word);
            return std::nullopt;
        }
        options.Help = true;
    }
    return options;
}

} // namespace tavo::tools
