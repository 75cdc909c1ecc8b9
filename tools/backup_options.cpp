// One file, and hardly an option.
#include "tools/backup_options.h"

#include "tools/file_word.h"

namespace tavo::tools {
namespace {

enum class ListOption { Taken, Unknown };

std::optional<BackupOptions> Parse(std::span<const std::string_view> words, ListOption list, std::string& error) {
    BackupOptions options;
    bool isAllFiles = false; // after "--"
    for (const std::string_view word : words) {
        if (!isAllFiles && (word == "--help" || word == "-h")) {
            options.Help = true;
        } else if (!isAllFiles && word == "--list" && list == ListOption::Taken) {
            options.List = true;
        } else if (!isAllFiles && word == "--") {
            isAllFiles = true;
        } else if (!isAllFiles && word.starts_with('-')) {
            error = "There is no option " + std::string(word) + ".";
            return std::nullopt;
        } else if (!options.File.empty()) {
            error = "Name one file only: " + options.File + " or " + std::string(word) + ".";
            return std::nullopt;
        } else {
            const std::optional<std::string> path = ReadPath(word, error);
            if (!path) {
                return std::nullopt;
            }
            options.File = *path;
        }
    }
    if (!options.Help && options.List != options.File.empty()) {
        error = options.List ? "--list takes no file." : "Name the file.";
        return std::nullopt;
    }
    return options;
}

} // namespace

const std::string_view kBackupHelp =
    R"(tavo backup - keep everything in one file

Usage: tavo backup FILE
       tavo backup --list

FILE holds the appointments, the memos, which entries are alarms, holidays and
anniversaries, and the settings, as they are at this moment; the calendar may be open.
It is looked through when it is made, takes the place of an older one in one step, and is
readable by you alone.

  --list   name the backups that the calendar makes by itself: one of each night, of
           which the last seven stay, and one of each month
  --help   show this text

Exit status: 0 it is made, 1 it is not, and the old file is as it was, 2 the command line
was not understood, 130 after Ctrl+C.
)";

const std::string_view kRestoreHelp =
    R"(tavo restore-backup - bring back what a backup holds

Usage: tavo restore-backup FILE

The appointments become those of the backup, also in a calendar that is open. Memos that
have changed since are kept in the folder Deleted, newer ones stay. What is there now is
backed up first, into a file that is named: restoring that takes this back.

  --help   show this text

Exit status: 0 all is restored, 1 something is not, 2 the command line was not understood.
)";

std::optional<BackupOptions> ParseBackup(std::span<const std::string_view> words, std::string& error) {
    return Parse(words, ListOption::Taken, error);
}

std::optional<BackupOptions> ParseRestore(std::span<const std::string_view> words, std::string& error) {
    return Parse(words, ListOption::Unknown, error);
}

} // namespace tavo::tools
