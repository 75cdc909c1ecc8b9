// Finding recovery files, and putting them away.
#include "host/ink/recovery_folder.h"

#include "host/locale/calendar_math.h"

#include <algorithm>
#include <utility>

namespace tavo::ink {
namespace {

constexpr std::string_view kEnding = ".ink";
constexpr std::size_t kMaxFileSize = 256U << 20;

// One that a device's clock can show.
bool IsMoment(const SYSTEMTIME& time) {
    constexpr int firstYear = 1601;
    return time.Year >= firstYear && locale::IsDate(time.Year, time.Month, time.Day) && time.Hour < 24 &&
           time.Minute < 60 && time.Second < 60;
}

} // namespace

std::vector<std::string> RecoveryFolder::Names() const {
    std::vector<std::string> names;
    const auto takeName = [&](std::string_view name, disk::EntryKind kind) {
        if (!name.ends_with(kEnding)) {
            return;
        }
        disk::Entry target{kind, {}};
        if (kind == disk::EntryKind::Link &&
            Disk.Look((OwnPath + "/").append(name), disk::LastLink::Follow, target) != ErrorCode::Success) {
            return;
        }
        if (target.Kind == disk::EntryKind::File) {
            names.emplace_back(name);
        }
    };
    static_cast<void>(Disk.List(OwnPath, takeName)); // without the folder there are none
    std::sort(names.begin(), names.end());           // names begin with their moment
    return names;
}

std::unique_ptr<RecoveryFile> RecoveryFolder::Begin(const SYSTEMTIME& now, std::vector<std::uint8_t> home) const {
    return std::make_unique<RecoveryFile>(Disk, OwnPath, now, std::move(home));
}

std::vector<RecoveredInk> RecoveryFolder::Find() const {
    std::vector<RecoveredInk> found;
    for (const std::string& name : Names()) {
        const std::string path = OwnPath + "/" + name;
        std::vector<std::uint8_t> bytes;
        if (Disk.IsHeld(path) || Disk.Read(path, kMaxFileSize, bytes) != ErrorCode::Success) {
            continue;
        }
        std::optional<RecoveryContents> contents = ReadRecovery(bytes);
        const bool isInk = contents.has_value() && !contents->Ink.empty();
        if (bytes.empty() || (contents.has_value() && !isInk)) {
            static_cast<void>(Disk.Remove(path)); // what cannot go is looked at again
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
    static_cast<void>(Disk.MakeFolder(folder)); // what is wrong with it shows when it is written to
    std::vector<std::uint8_t> bytes;
    if (Disk.Read(path, kMaxFileSize, bytes) != ErrorCode::Success) {
        return false;
    }
    const std::optional<RecoveryContents> contents = ReadRecovery(bytes);
    if (!contents.has_value()) {
        return Disk.Rename(path, folder + "/" + name) == ErrorCode::Success;
    }
    // A memo file: copied to the memos it is one.
    const std::string stem = name.substr(0, name.size() - kEnding.size());
    return Disk.Replace(folder + "/" + stem + ".pwi", contents->Ink, {}) == ErrorCode::Success &&
           Disk.Remove(path) == ErrorCode::Success;
}

void RecoveryFolder::End(std::u16string_view name, RecoveredInkEnd end) const {
    const std::vector<std::string> names = Names();
    const auto known = std::find(names.begin(), names.end(), std::string(name.begin(), name.end()));
    if (known == names.end() || Disk.IsHeld(OwnPath + "/" + *known)) {
        return;
    }
    if (end == RecoveredInkEnd::Kept) {
        static_cast<void>(Disk.Remove(OwnPath + "/" + *known)); // what cannot go is asked about again
    } else {
        Decline(*known);
    }
}

} // namespace tavo::ink
