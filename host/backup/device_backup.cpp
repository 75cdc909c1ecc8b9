// What of the device's files goes into a backup, and back.
#include "host/backup/device_backup.h"

#include "host/backup/kept_backups.h"
#include "host/files/deleted_memos.h"
#include "host/posix/instance_lock.h"
#include "host/posix/posix_disk.h"
#include "host/posix/replace_file.h"
#include "host/posix/store_machine.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <system_error>
#include <vector>

namespace tavo::backup {
namespace {

namespace fs = std::filesystem;

using outlook::KeptFile;

constexpr std::size_t kLargestFile = std::size_t{64} * 1024 * 1024;
constexpr std::string_view kSettings = "Registry.txt";
constexpr std::string_view kListsOfKinds = "TavoCalendar.dat";

// Locks and requests are of the moment, the store has a way of its own, and backups hold no backups.
bool IsKept(const fs::path& name) {
    const std::string first = name.begin()->string();
    const bool isInFolder = std::distance(name.begin(), name.end()) > 1;
    return isInFolder ? first == "My Documents" || first == "Windows" : first == kSettings;
}

bool ReadFiles(const std::string& root, std::vector<KeptFile>& files, std::string& problem) {
    std::error_code error;
    fs::recursive_directory_iterator entry(root, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        const fs::path name = entry->path().lexically_relative(root);
        std::error_code ignored; // what cannot be looked at is no file
        if (!entry->is_regular_file(ignored) || entry->is_symlink(ignored) || !IsKept(name)) {
            continue;
        }
        KeptFile file{name.string(), {}};
        if (posix::ReadFile(entry->path().string(), kLargestFile, file.Bytes) != ErrorCode::Success) {
            problem = "the file " + file.Name + " cannot be read";
            return false;
        }
        files.push_back(std::move(file));
    }
    if (error) {
        problem = "the device's folder cannot be read: " + error.message();
    }
    return !error;
}

// Names come from a file that somebody else may have written.
bool IsSafe(const std::string& name) {
    const fs::path path(name);
    return path.is_relative() && path == path.lexically_normal() && IsKept(path) &&
           std::none_of(path.begin(), path.end(), [](const fs::path& part) { return part == ".."; });
}

// True when it is there now, and `changed` when it was not before.
bool PutFile(const std::string& root, const KeptFile& file, bool& changed) {
    const fs::path path = fs::path(root) / file.Name;
    std::vector<std::uint8_t> before;
    changed = posix::ReadFile(path.string(), kLargestFile, before) != ErrorCode::Success || before != file.Bytes;
    if (!changed) {
        return true;
    }
    std::error_code error;
    fs::create_directories(path.parent_path(), error); // when it cannot be made, the writing tells
    const std::string folder = path.parent_path().string();
    if (const std::string name = path.filename().string(); files::IsKeptMemo(folder, name) && fs::exists(path, error)) {
        posix::PosixDisk disk;
        if (files::KeepMemo(disk, folder, name, std::time(nullptr)) != ErrorCode::Success) {
            return false;
        }
    }
    return posix::ReplaceFile(path.string(), file.Bytes) == ErrorCode::Success;
}

// It may be a backup of this same second that is being restored.
std::string FindFreeName(const files::DeviceRoot& root) {
    auto moment = std::chrono::system_clock::now();
    std::string name = NameOfBackup(root, "before-restore", moment);
    std::error_code error; // what cannot be looked at is told by the writing
    while (fs::exists(name, error)) {
        moment += std::chrono::seconds(1);
        name = NameOfBackup(root, "before-restore", moment);
    }
    return name;
}

bool PutFiles(const files::DeviceRoot& root, Restored& restored, std::string& problem) {
    restored.HasSettings = !posix::InstanceLock::ProgramRuns(root.RunFolder());
    for (const KeptFile& file : restored.Contents.Files) {
        const bool isLists = fs::path(file.Name).filename() == kListsOfKinds;
        if (isLists || (file.Name == kSettings && !restored.HasSettings)) {
            continue;
        }
        bool changed = false;
        if (!IsSafe(file.Name) || !PutFile(root.Path(), file, changed)) {
            problem = "the file " + file.Name + " cannot be written";
            return false;
        }
        restored.Files += changed ? 1 : 0;
    }
    return true;
}

} // namespace

// The draft lies beside it, so that it can take its place in one step.
DeviceBackup::DeviceBackup(const files::DeviceRoot& root, std::string path)
    : Root(root), Path(std::move(path)), Draft(Path + ".unfinished"),
      Writer(posix::SystemMachine(), root.StorePath(), Draft) {}

DeviceBackup::~DeviceBackup() {
    if (IsBegun) {
        std::error_code error; // one that stays is in nobody's way
        fs::remove(Draft, error);
    }
}

int DeviceBackup::Progress() const {
    return Writer.Progress();
}

bool DeviceBackup::Begin() {
    IsBegun = true;
    std::error_code error; // what is left of one that was cut short; where it stays, the writing tells
    fs::remove(Draft, error);
    return ReadFiles(Root.Path(), Files, Reason);
}

bool DeviceBackup::Step() {
    if (!IsBegun) {
        return Begin();
    }
    const Status status = Writer.Step(Files);
    if (status == Status::Ok) {
        return true;
    }
    if (Failed(status)) {
        Reason = Writer.Problem();
    } else {
        PutInPlace();
    }
    return false;
}

void DeviceBackup::PutInPlace() {
    std::error_code error;
    fs::permissions(Draft, fs::perms::owner_read | fs::perms::owner_write, error);
    fs::rename(Draft, Path, error);
    const fs::path whole = error ? fs::path() : fs::absolute(Path, error);
    if (error || posix::SyncFolder(whole.parent_path().string()) != ErrorCode::Success) {
        Reason = "it cannot be put into its place";
    }
}

bool BackUp(const files::DeviceRoot& root, const std::string& path, const std::function<bool(int)>& goOn,
            outlook::BackupContents& contents, std::string& problem) {
    DeviceBackup backup(root, path);
    while (backup.Step()) {
        if (!goOn(backup.Progress())) {
            return false;
        }
    }
    contents = backup.Contents();
    problem = backup.Problem();
    return problem.empty();
}

bool Restore(const files::DeviceRoot& root, const std::string& path, Restored& restored, std::string& problem) {
    restored = {};
    if (Failed(
            outlook::ReadBackup(posix::SystemMachine(), path, outlook::CheckDepth::Full, restored.Contents, problem))) {
        return false;
    }
    const auto unsafe = std::find_if_not(restored.Contents.Files.begin(), restored.Contents.Files.end(),
                                         [](const KeptFile& file) { return IsSafe(file.Name); });
    if (unsafe != restored.Contents.Files.end()) {
        problem = "a file in it is none of the calendar's";
        return false;
    }
    outlook::BackupContents before;
    restored.Before = FindFreeName(root);
    if (!MakeBackupFolder(root) || !BackUp(
                                       root, restored.Before, [](int) { return true; }, before, problem)) {
        problem = "what is there now cannot be backed up first: " + problem;
        return false;
    }
    const std::string scratch = BackupFolder(root) + "/restoring.db";
    std::error_code error;
    fs::remove(scratch, error); // of a restore that was cut short
    if (Failed(outlook::RestoreStore(posix::SystemMachine(), path, scratch, root.StorePath(), problem))) {
        return false;
    }
    return PutFiles(root, restored, problem);
}

} // namespace tavo::backup
