// Finding recovery files, and putting them away.
#include "host/ink/recovery_folder.h"

#include "host/ink/recovery_file.h"
#include "host/locale/calendar_math.h"
#include "host/posix/file_descriptor.h"
#include "host/posix/replace_file.h"

#include <algorithm>
#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace tavo::ink {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEnding = ".ink";
constexpr std::size_t kMaxFileSize = 256U << 20;

// The owner of an open editor keeps its file locked.
bool IsHeld(const std::string& path) {
    const posix::FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
    return file && flock(file.Get(), LOCK_EX | LOCK_NB) != 0;
}

// One that a device's clock can show.
bool IsMoment(const SYSTEMTIME& time) {
    constexpr int firstYear = 1601;
    return time.Year >= firstYear && locale::IsDate(time.Year, time.Month, time.Day) && time.Hour < 24 &&
           time.Minute < 60 && time.Second < 60;
}

std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.ends_with(kEnding) && entry->is_regular_file(error)) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end()); // names begin with their moment
    return names;
}

} // namespace

std::vector<RecoveredInk> RecoveryFolder::Find() const {
    std::vector<RecoveredInk> found;
    for (const std::string& name : NamesIn(OwnPath)) {
        const std::string path = OwnPath + "/" + name;
        std::vector<std::uint8_t> bytes;
        if (IsHeld(path) || posix::ReadFile(path, kMaxFileSize, bytes) != ErrorCode::Success) {
            continue;
        }
        std::optional<RecoveryContents> contents = ReadRecovery(bytes);
        const bool isInk = contents.has_value() && !contents->Ink.empty();
        if (bytes.empty() || (contents.has_value() && !isInk)) {
            unlink(path.c_str());
        } else if (!isInk || !IsMoment(contents->Begun)) {
            Decline(name); // there is no asking about it
        } else {
            found.push_back({std::u16string(name.begin(), name.end()), contents->Begun, std::move(contents->Ink),
                             std::move(contents->Home)});
        }
    }
    return found;
}

bool RecoveryFolder::Decline(const std::string& name) const {
    const std::string folder = DeclinedFolder();
    const std::string path = OwnPath + "/" + name;
    mkdir(folder.c_str(), S_IRWXU); // what is wrong with it shows when it is written to
    std::vector<std::uint8_t> bytes;
    if (posix::ReadFile(path, kMaxFileSize, bytes) != ErrorCode::Success) {
        return false;
    }
    const std::optional<RecoveryContents> contents = ReadRecovery(bytes);
    if (!contents.has_value()) {
        return rename(path.c_str(), (folder + "/" + name).c_str()) == 0;
    }
    // A memo file: copied to the memos it is one.
    const std::string stem = name.substr(0, name.size() - kEnding.size());
    return posix::ReplaceFile(folder + "/" + stem + ".pwi", contents->Ink) == ErrorCode::Success &&
           unlink(path.c_str()) == 0;
}

void RecoveryFolder::End(std::u16string_view name, RecoveredInkEnd end) const {
    const std::vector<std::string> names = NamesIn(OwnPath);
    const auto known = std::find(names.begin(), names.end(), std::string(name.begin(), name.end()));
    if (known == names.end() || IsHeld(OwnPath + "/" + *known)) {
        return;
    }
    if (end == RecoveredInkEnd::Kept) {
        unlink((OwnPath + "/" + *known).c_str());
    } else {
        Decline(*known);
    }
}

} // namespace tavo::ink
