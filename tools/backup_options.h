// What the commands about backups are asked for, and their help.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tavo::tools {

struct BackupOptions {
    std::string File;
    bool List = false; // the device's own, instead of making one
    bool Help = false;
};

extern const std::string_view kBackupHelp;
extern const std::string_view kRestoreHelp;

// Read the words after the command's name. Empty with a sentence in `error` when they make no sense.
std::optional<BackupOptions> ParseBackup(std::span<const std::string_view> words, std::string& error);
std::optional<BackupOptions> ParseRestore(std::span<const std::string_view> words, std::string& error);

} // namespace tavo::tools
