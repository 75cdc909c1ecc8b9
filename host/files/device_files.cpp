// Finds the real place of a device path and works there.
#include "host/files/device_files.h"

#include "host/files/deleted_memos.h"
#include "host/files/device_path.h"
#include "host/files/file_search.h"
#include "host/locale/case_folding.h"
#include "host/locale/utf.h"

#include <exception>
#include <utility>

namespace tavo::files {

namespace {

using disk::EntryKind;
using disk::LastLink;

constexpr std::size_t kLargestFile = 256u << 20;

// The program is built without exceptions, so nothing may leave by one.
template <class Action> ErrorCode Guard(Action action) {
    try {
        return action();
    } catch (const std::exception&) {
        return ErrorCode::CannotComplete;
    }
}

// What cannot be looked at may well be there, and is never taken for missing: it would be made anew. A name that is too
// long for the disk is nobody's.
bool IsMissing(ErrorCode error) {
    return error == ErrorCode::FileNotFound || error == ErrorCode::PathNotFound || error == ErrorCode::InvalidName;
}

ErrorCode CodeOfFolder(ErrorCode error) {
    return IsMissing(error) ? ErrorCode::PathNotFound : error;
}

// The name as the folder spells it: exactly so if there is one, else the first that differs in case only.
// FileNotFound when there is none; then, as after any failure, `found` is the name as it was asked for.
ErrorCode FindName(disk::IDisk& disk, FolderCache& cache, const std::string& folder, const std::u16string& name,
                   std::string& found) {
    found = locale::ToUtf8(name);
    disk::Entry entry;
    const ErrorCode error = disk.Look(folder + '/' + found, LastLink::Keep, entry);
    if (error == ErrorCode::Success) {
        return error;
    }
    if (const std::shared_ptr<const FolderListing> listing = cache.List(folder)) {
        const std::u16string folded = locale::FoldCase(name);
        const auto place = FindFromName(*listing, folded);
        if (place != listing->end() && place->Folded == folded) {
            found = locale::ToUtf8(place->Name);
            return ErrorCode::Success;
        }
    }
    return IsMissing(error) ? ErrorCode::FileNotFound : error;
}

bool IsMovable(EntryKind kind) {
    return kind == EntryKind::File || kind == EntryKind::Link;
}

// A file that is protected against writing stays; of a link only the link goes.
ErrorCode CheckRemovable(disk::IDisk& disk, const std::string& path, EntryKind kind) {
    if (!IsMovable(kind)) {
        return ErrorCode::AccessDenied;
    }
    return kind == EntryKind::File ? disk.CheckWritable(path) : ErrorCode::Success;
}

bool IsWindowsFolder(std::span<const std::u16string> parts) {
    return !parts.empty() && locale::EqualWithoutCase(parts.front(), u"Windows");
}

} // namespace

DeviceFiles::DeviceFiles(disk::IDisk& disk, const DeviceFilesPlaces& places, WallClock now)
    : Disk(disk), Root(disk.Resolve(places.Root)),
      Installed(places.InstalledSounds.empty() ? std::string() : disk.Resolve(places.InstalledSounds)),
      Now(std::move(now)), UserFolders(disk, Root, LinkRule::InsideOnly),
      InstalledFolders(disk, Installed, LinkRule::Anywhere) {}

ErrorCode DeviceFiles::CreateDirectoryW(std::u16string_view path) {
    return Guard([&] { return MakeFolder(path); });
}

ErrorCode DeviceFiles::ReadWholeFile(std::u16string_view path, std::vector<std::uint8_t>& bytes) {
    bytes.clear();
    return Guard([&] {
        std::string realPath;
        const ErrorCode error = FindReadable(path, realPath);
        return error == ErrorCode::Success ? Disk.Read(realPath, kLargestFile, bytes) : error;
    });
}

ErrorCode DeviceFiles::WriteWholeFile(std::u16string_view path, std::span<const std::uint8_t> bytes) {
    return Guard([&] { return Write(path, bytes); });
}

ErrorCode DeviceFiles::DeleteFileW(std::u16string_view path) {
    return Guard([&] { return Delete(path); });
}

ErrorCode DeviceFiles::PutAwayMemo(std::u16string_view path, std::u16string& kept) {
    return Guard([&] { return PutAway(path, kept); });
}

ErrorCode DeviceFiles::MoveFileW(std::u16string_view from, std::u16string_view to) {
    return Guard([&] { return Move(from, to); });
}

std::unique_ptr<IFileSearch> DeviceFiles::FindFirstFileW(std::u16string_view pattern) {
    std::unique_ptr<FileSearch> search;
    const ErrorCode error = Guard([&] {
        const auto parts = ParseDevicePath(pattern, WildcardRule::AllowInLastPart);
        if (!parts || parts->empty()) {
            return ErrorCode::InvalidName;
        }
        const Parts folderParts(parts->data(), parts->size() - 1);
        const std::u16string folded = locale::FoldCase(parts->back());
        FolderMatches upper;
        FolderMatches lower;
        if (std::string folder; FindFolder(folderParts, folder) == ErrorCode::Success) {
            upper = FolderMatches(UserFolders.List(folder), folded);
        }
        if (const std::optional<std::string> folder = FindInstalled(folderParts)) {
            lower = FolderMatches(InstalledFolders.List(*folder), folded);
        }
        search = std::make_unique<FileSearch>(std::move(upper), std::move(lower));
        return search->HasFile() ? ErrorCode::Success : ErrorCode::FileNotFound;
    });
    if (error != ErrorCode::Success) {
        return nullptr;
    }
    return search;
}

std::optional<std::string> DeviceFiles::RealPathOfFile(std::u16string_view path) {
    std::string realPath;
    disk::Entry entry;
    const ErrorCode error = Guard([&] { return FindReadable(path, realPath); });
    if (error != ErrorCode::Success || Disk.Look(realPath, LastLink::Follow, entry) != ErrorCode::Success ||
        entry.Kind != EntryKind::File) {
        return std::nullopt;
    }
    return realPath;
}

void DeviceFiles::Purge() {
    const ErrorCode error = Guard([&] {
        Disk.RemoveUnfinished(Root);
        const std::u16string data[] = {u"My Documents", u"TavoCalendar"};
        std::string folder;
        if (const ErrorCode missing = FindFolder(data, folder); missing != ErrorCode::Success) {
            return missing;
        }
        Disk.RemoveUnfinished(folder);
        PurgeDeletedMemos(Disk, folder, Now());
        UserFolders.Forget(folder);
        return ErrorCode::Success;
    });
    static_cast<void>(error); // a device without the folder has nothing to purge
}

ErrorCode DeviceFiles::FindFolder(Parts parts, std::string& folder) {
    folder = Root;
    for (const std::u16string& part : parts) {
        std::string name;
        if (const ErrorCode error = FindName(Disk, UserFolders, folder, part, name); error != ErrorCode::Success) {
            return CodeOfFolder(error);
        }
        folder += '/' + name;
        EntryKind kind{};
        if (const ErrorCode error = FindKind(folder, kind); error != ErrorCode::Success) {
            return CodeOfFolder(error);
        }
        if (kind == EntryKind::Link) {
            folder = Disk.Resolve(folder);
            if (!IsBelow(folder, Root) || FindKind(folder, kind) != ErrorCode::Success) {
                return ErrorCode::AccessDenied;
            }
        }
        if (kind != EntryKind::Folder) {
            return ErrorCode::PathNotFound;
        }
    }
    return ErrorCode::Success;
}

ErrorCode DeviceFiles::FindPlace(std::u16string_view path, LastLink link, Place& place) {
    const auto parts = ParseDevicePath(path);
    if (!parts) {
        return ErrorCode::InvalidName;
    }
    if (parts->empty()) {
        return ErrorCode::AccessDenied;
    }
    if (const ErrorCode error = FindFolder(Parts(parts->data(), parts->size() - 1), place.Folder);
        error != ErrorCode::Success) {
        return error;
    }
    // One that is not found keeps its name: what is done with it tells why.
    static_cast<void>(FindName(Disk, UserFolders, place.Folder, parts->back(), place.Name));
    return link == LastLink::Follow ? FollowLink(place) : ErrorCode::Success;
}

// A link as the last part leads to its target, if that lies inside.
ErrorCode DeviceFiles::FollowLink(Place& place) const {
    EntryKind kind{};
    if (FindKind(place.Path(), kind) != ErrorCode::Success || kind != EntryKind::Link) {
        return ErrorCode::Success;
    }
    const std::string target = Disk.Resolve(place.Path());
    if (!IsBelow(target, Root)) {
        return ErrorCode::AccessDenied;
    }
    const std::size_t slash = target.rfind('/');
    place = {target.substr(0, slash), target.substr(slash + 1)};
    return ErrorCode::Success;
}

ErrorCode DeviceFiles::FindKind(const std::string& path, EntryKind& kind) const {
    disk::Entry entry;
    const ErrorCode error = Disk.Look(path, LastLink::Keep, entry);
    kind = entry.Kind;
    return error;
}

ErrorCode DeviceFiles::FindReadable(std::u16string_view path, std::string& realPath) {
    Place place;
    ErrorCode error = FindPlace(path, LastLink::Follow, place);
    if (error == ErrorCode::Success) {
        realPath = place.Path();
        EntryKind kind{};
        error = FindKind(realPath, kind);
        if (error == ErrorCode::Success) {
            return error;
        }
    }
    const auto parts = ParseDevicePath(path);
    const std::optional<std::string> installed = parts ? FindInstalled(*parts) : std::nullopt;
    if (!installed) {
        return error;
    }
    realPath = *installed;
    return ErrorCode::Success;
}

// What lies at this path in the installed folder under \Windows.
std::optional<std::string> DeviceFiles::FindInstalled(Parts parts) {
    if (Installed.empty() || !IsWindowsFolder(parts)) {
        return std::nullopt;
    }
    std::string found = Installed;
    for (const std::u16string& part : parts.subspan(1)) {
        std::string name;
        if (FindName(Disk, InstalledFolders, found, part, name) != ErrorCode::Success) {
            return std::nullopt;
        }
        found += '/' + name;
    }
    return found;
}

ErrorCode DeviceFiles::MakeFolder(std::u16string_view path) {
    if (const auto parts = ParseDevicePath(path); parts && parts->empty()) {
        return ErrorCode::AlreadyExists;
    }
    Place place;
    if (const ErrorCode error = FindPlace(path, LastLink::Follow, place); error != ErrorCode::Success) {
        return error;
    }
    if (const ErrorCode error = Disk.MakeFolder(place.Path()); error != ErrorCode::Success) {
        return error == ErrorCode::FileNotFound ? ErrorCode::PathNotFound : error;
    }
    UserFolders.Forget(place.Folder);
    return Disk.SyncFolder(place.Folder);
}

ErrorCode DeviceFiles::Write(std::u16string_view path, std::span<const std::uint8_t> bytes) {
    Place place;
    if (const ErrorCode error = FindPlace(path, LastLink::Follow, place); error != ErrorCode::Success) {
        return error;
    }
    const std::string realPath = place.Path();
    const ErrorCode error = Disk.Replace(realPath, bytes, [&] {
        disk::Entry before;
        const ErrorCode missing = IsKeptMemo(place.Folder, place.Name) ? Disk.Look(realPath, LastLink::Follow, before)
                                                                       : ErrorCode::FileNotFound;
        if (missing != ErrorCode::Success) {
            return missing == ErrorCode::FileNotFound ? ErrorCode::Success : missing;
        }
        return KeepMemo(Disk, place.Folder, place.Name, Now());
    });
    UserFolders.Forget(place.Folder);
    return error;
}

ErrorCode DeviceFiles::Delete(std::u16string_view path) {
    Place place;
    if (const ErrorCode error = FindPlace(path, LastLink::Keep, place); error != ErrorCode::Success) {
        return error;
    }
    const std::string realPath = place.Path();
    EntryKind kind{};
    if (const ErrorCode missing = FindKind(realPath, kind); missing != ErrorCode::Success) {
        const auto parts = ParseDevicePath(path);
        return parts && FindInstalled(*parts) ? ErrorCode::AccessDenied : missing; // what is installed stays
    }
    if (const ErrorCode error = CheckRemovable(Disk, realPath, kind); error != ErrorCode::Success) {
        return error;
    }
    UserFolders.Forget(place.Folder);
    if (kind == EntryKind::File && IsKeptMemo(place.Folder, place.Name)) {
        std::string kept;
        return MoveMemo(Disk, place.Folder, place.Name, Now(), kept);
    }
    // Of a link only the link goes; what it leads to stays.
    return Disk.Remove(realPath);
}

// A link goes there as a link.
ErrorCode DeviceFiles::PutAway(std::u16string_view path, std::u16string& kept) {
    Place place;
    if (const ErrorCode error = FindPlace(path, LastLink::Keep, place); error != ErrorCode::Success) {
        return error;
    }
    EntryKind kind{};
    if (const ErrorCode error = FindKind(place.Path(), kind); error != ErrorCode::Success) {
        return error;
    }
    if (!IsKeptMemo(place.Folder, place.Name)) {
        return ErrorCode::AccessDenied;
    }
    if (const ErrorCode error = CheckRemovable(Disk, place.Path(), kind); error != ErrorCode::Success) {
        return error;
    }
    UserFolders.Forget(place.Folder);
    std::string name;
    const ErrorCode error = MoveMemo(Disk, place.Folder, place.Name, Now(), name);
    kept = path.substr(0, path.rfind(u'\\'));
    kept.append(1, u'\\').append(locale::ToUtf16(kDeletedFolderName)).append(1, u'\\').append(locale::ToUtf16(name));
    return error;
}

// Looks for the new name exactly as it is spelled: reading the folder for each of many files would take too long.
ErrorCode DeviceFiles::Move(std::u16string_view from, std::u16string_view to) {
    Place source;
    if (const ErrorCode error = FindPlace(from, LastLink::Keep, source); error != ErrorCode::Success) {
        return error;
    }
    const auto parts = ParseDevicePath(to);
    if (!parts || parts->empty()) {
        return ErrorCode::InvalidName;
    }
    Place target;
    if (const ErrorCode error = FindFolder(Parts(parts->data(), parts->size() - 1), target.Folder);
        error != ErrorCode::Success) {
        return error;
    }
    target.Name = locale::ToUtf8(parts->back());
    EntryKind kind{};
    if (const ErrorCode error = FindKind(source.Path(), kind); error != ErrorCode::Success) {
        return error;
    }
    if (!IsMovable(kind)) {
        return ErrorCode::AccessDenied;
    }
    UserFolders.Forget(source.Folder);
    UserFolders.Forget(target.Folder);
    return MoveToFreePath(Disk, source.Path(), target.Path());
}

} // namespace tavo::files
