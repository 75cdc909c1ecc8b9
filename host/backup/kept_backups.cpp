// Names with their moment in them, so that their order is that of time.
#include "host/backup/kept_backups.h"

#include "host/backup/device_backup.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <set>
#include <system_error>

namespace tavo::backup {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEnding = ".tavo";
constexpr std::string_view kNight = "night ";
constexpr std::string_view kUnfinished = ".tavo.unfinished";
constexpr std::size_t kMonthSize = 7; // "2026-11"

// Of nights that were cut short.
void RemoveUnfinished(const files::DeviceRoot& root) {
    std::vector<fs::path> left;
    std::error_code error;
    fs::directory_iterator entry(BackupFolder(root), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (entry->path().filename().string().find(kUnfinished) != std::string::npos) {
            left.push_back(entry->path());
        }
    }
    for (const fs::path& path : left) {
        fs::remove(path, error); // another night takes it away
    }
}

} // namespace

std::string BackupFolder(const files::DeviceRoot& root) {
    return root.Path() + "/Backups";
}

bool MakeBackupFolder(const files::DeviceRoot& root) {
    std::error_code error;
    if (fs::create_directory(BackupFolder(root), error)) {
        fs::permissions(BackupFolder(root), fs::perms::owner_all, error);
    }
    return !error && fs::is_directory(BackupFolder(root), error);
}

std::string NameOfBackup(const files::DeviceRoot& root, const std::string& what,
                         std::chrono::system_clock::time_point when) {
    const auto day = std::chrono::floor<std::chrono::days>(when);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(std::chrono::floor<std::chrono::seconds>(when - day));
    char text[64];
    std::snprintf(text, sizeof text, " %04d-%02u-%02u %02d%02d%02d", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return (BackupFolder(root) + "/" + what).append(text).append(kEnding);
}

std::vector<std::string> ListBackups(const files::DeviceRoot& root) {
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(BackupFolder(root), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code ignored; // what cannot be looked at is no file
        const std::string name = entry->path().filename().string();
        if (name.ends_with(kEnding) && entry->is_regular_file(ignored)) {
            names.push_back(name);
        }
    }
    const auto moment = [](const std::string& name) { return name.substr(name.find(' ') + 1); };
    std::sort(names.begin(), names.end(), [&moment](const std::string& a, const std::string& b) {
        return std::pair(moment(a), a) < std::pair(moment(b), b);
    });
    return names;
}

std::vector<std::string> FindSpentBackups(const std::vector<std::string>& names) {
    std::vector<std::string> nights;
    std::copy_if(names.begin(), names.end(), std::back_inserter(nights),
                 [](const std::string& name) { return name.starts_with(kNight); });
    std::vector<std::string> spent;
    std::set<std::string> months;
    for (std::size_t index = 0; index < nights.size(); ++index) {
        const bool isFirstOfMonth = months.insert(nights[index].substr(kNight.size(), kMonthSize)).second;
        if (!isFirstOfMonth && index + kNightsKept < nights.size()) {
            spent.push_back(nights[index]);
        }
    }
    return spent;
}

bool KeepBackup(const files::DeviceRoot& root, std::string& problem) {
    outlook::BackupContents contents;
    if (!MakeBackupFolder(root)) {
        problem = "the folder " + BackupFolder(root) + " cannot be made";
        return false;
    }
    RemoveUnfinished(root);
    const std::string path = NameOfBackup(root, "night", std::chrono::system_clock::now());
    if (!BackUp(
            root, path, [](int) { return true; }, contents, problem)) {
        return false;
    }
    for (const std::string& name : FindSpentBackups(ListBackups(root))) {
        std::error_code error; // another night takes it away
        fs::remove(BackupFolder(root) + "/" + name, error);
    }
    return true;
}

} // namespace tavo::backup
