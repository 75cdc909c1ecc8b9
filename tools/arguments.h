// What the command line of `tavo` asks for.
#pragma once

#include "tools/length.h"
#include "tools/repeat_rule.h"
#include "tools/when.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::tools {

// What the shell is told. Everything else that went wrong is kExitFailure.
constexpr int kExitSuccess = 0;
constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;
constexpr int kExitInterrupted = 130; // as shells report an interrupt

enum class ImportTag { None, Alarm, Holiday, Anniversary };

enum class ExportKind { Alarm, Holiday, Anniversary, Appointment };

enum class ListFormat { People, Tabbed, Json };

// What is said of an item. What is not given stays as it is, or as it commonly is.
struct ItemOptions {
    std::int32_t Item = 0; // its number; 0: a new one
    std::optional<Day> On; // of a series only the occurrence of this day
    std::optional<std::string> Subject;
    std::optional<When> Start;
    std::optional<When> End;
    std::optional<Length> For;
    bool AllDay = false;
    std::optional<RepeatRule> Rule;
    bool NoRepeat = false;
    std::optional<int> Remind; // minutes before the start
    bool NoRemind = false;
    std::optional<std::string> Sound;
    std::optional<ExportKind> Kind;
    std::optional<std::string> Location;
    std::optional<std::string> Note;
    bool Help = false;
};

struct AgendaOptions {
    std::optional<Day> From;
    std::optional<Day> To;
    ListFormat Format = ListFormat::People;
    bool Help = false;
};

struct ImportOptions {
    std::vector<std::string> Paths;
    ImportTag Tag = ImportTag::None;
    bool Strict = false; // a file with any fault is refused whole
    bool Help = false;
};

struct ExportOptions {
    std::string File;        // "": standard output
    std::optional<Day> From; // of the days that an item has to touch
    std::optional<Day> To;
    std::optional<ExportKind> Kind;
    std::vector<std::int32_t> Items; // numbers; none: all
    bool Help = false;
};

// Of commands about items by their numbers.
struct NumbersOptions {
    std::vector<std::int32_t> Items;
    std::optional<Day> On; // as in ItemOptions
    ListFormat Format = ListFormat::People;
    bool Help = false;
};

struct FindOptions {
    std::string Text;
    ListFormat Format = ListFormat::People;
    bool Help = false;
};

struct HistoryOptions {
    int Steps = 20; // to list
    ListFormat Format = ListFormat::People;
    bool Help = false;
};

struct CheckOptions {
    bool Help = false;
};

enum class MemoAction { None, List, Export };

struct MemoOptions {
    MemoAction Action = MemoAction::None;
    std::optional<Day> Date; // of those to be listed
    std::vector<std::string> Names;
    bool All = false;
    std::string Folder;
    std::string Format = "svg"; // or png or pdf
    bool Help = false;
};

enum class RemindersAction { None, List, Log, On, Off };

struct RemindersOptions {
    RemindersAction Action = RemindersAction::None;
    int Days = 7; // to list
    bool Help = false;
};

// Each reads the words after the command's name. Empty with a sentence in `error` when they make no sense.
std::optional<ItemOptions> ParseAdd(std::span<const std::string_view> words, std::string& error);
std::optional<ItemOptions> ParseEdit(std::span<const std::string_view> words, std::string& error);
std::optional<NumbersOptions> ParseShow(std::span<const std::string_view> words, std::string& error);
std::optional<NumbersOptions> ParseDelete(std::span<const std::string_view> words, std::string& error);
std::optional<NumbersOptions> ParseRestoreItems(std::span<const std::string_view> words, std::string& error);
std::optional<FindOptions> ParseFind(std::span<const std::string_view> words, std::string& error);
std::optional<HistoryOptions> ParseHistory(std::span<const std::string_view> words, std::string& error);
std::optional<CheckOptions> ParseUndo(std::span<const std::string_view> words, std::string& error);
// Today, the week of a day, and the month of a day, as days of an agenda.
std::optional<AgendaOptions> ParseToday(std::span<const std::string_view> words, std::string& error);
std::optional<AgendaOptions> ParseWeek(std::span<const std::string_view> words, std::string& error);
std::optional<AgendaOptions> ParseMonth(std::span<const std::string_view> words, std::string& error);
std::optional<AgendaOptions> ParseAgenda(std::span<const std::string_view> words, std::string& error);
std::optional<ImportOptions> ParseImport(std::span<const std::string_view> words, std::string& error);
std::optional<ExportOptions> ParseExport(std::span<const std::string_view> words, std::string& error);
std::optional<CheckOptions> ParseCheck(std::span<const std::string_view> words, std::string& error);
std::optional<RemindersOptions> ParseReminders(std::span<const std::string_view> words, std::string& error);
std::optional<MemoOptions> ParseMemo(std::span<const std::string_view> words, std::string& error);

} // namespace tavo::tools
