// What the command line of `tavo` asks for.
#include "tools/arguments.h"

#include "tools/file_word.h"
#include "tools/option_values.h"

#include <charconv>
#include <system_error>

namespace tavo::tools {
namespace {

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
    const std::optional<std::string> path = reader.TakeValue(value, error) ? ReadPath(value, error) : std::nullopt;
    folder = path.value_or("");
    return path.has_value();
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
        } else if (IsHelp(word)) {
            options.Help = true;
        } else if (!TakeFormat(reader, word, options.Format, error)) {
            error = error.empty() ? reader.DescribeUnknown(word) : error;
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
            const std::optional<std::string> path = ReadPath(word, error);
            if (!path) {
                return std::nullopt;
            }
            if (!path->empty()) {
                options.Paths.push_back(*path);
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
            error = reader.DescribeUnknown(word);
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
            error = reader.DescribeUnknown(word);
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
            error = reader.DescribeUnknown(word);
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
            const std::optional<std::string> path = ReadPath(word == "-" ? std::string_view() : word, error);
            options.File = path.value_or("");
            good = path.has_value();
            hasFile = true;
        } else {
            error = reader.DescribeUnknown(word);
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
            error = reader.DescribeUnknown(word);
            return std::nullopt;
        }
        options.Help = true;
    }
    return options;
}

} // namespace tavo::tools
