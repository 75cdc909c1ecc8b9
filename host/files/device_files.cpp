// Finds the real place of a device path and works there.
#include "host/files/device_files.h"

#include "host/files/deleted_memos.h"
#include "host/files/device_path.h"
#include "host/files/file_search.h"
#include "host/locale/case_folding.h"
#include "host/locale/utf.h"
#include "host/posix/replace_file.h"

#include <cerrno>
#include <cstdlib>
#include <exception>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace tavo::files {

namespace {

constexpr std::size_t kLargestFile = 256u << 20;
constexpr mode_t kPrivateFolder = 0700;

std::string RealPathOf(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
    return real ? std::string(real.get()) : std::string();
}

bool IsBelow(const std::string& path, const std::string& root) {
    return path.size() > root.size() && path.starts_with(root) && (path[root.size()] == '/' || root == "/");
}

// The program is built without exceptions, so nothing may leave by one.
template <class Action> ErrorCode Guard(Action action) {
    try {
        return action();
    } catch (const std::exception&) {
        return ErrorCode::CannotComplete;
    }
}

// The name as the folder spells it: exactly so if there is one, else the first that differs in case only.
std::optional<std::string> FindName(FolderCache& cache, const std::string& folder, const std::u16string& name) {
    std::string exact = locale::ToUtf8(name);

    struct stat state {};

    if (lstat((folder + '/' + exact).c_str(), &state) == 0) {
        return exact;
    }
    const std::shared_ptr<const FolderListing> listing = cache.List(folder);
    if (!listing) {
        return std::nullopt;
    }
    const std::u16string folded = locale::FoldCase(name);
    const auto found = FindFromName(*listing, folded);
    if (found == listing->end() || found->Folded != folded) {
        return std::nullopt;
    }
    return locale::ToUtf8(found->Name);
}

bool IsWindowsFolder(std::span<const std::u16string> parts) {
    return !parts.empty() && locale::EqualWithoutCase(parts.front(), u"Windows");
}

} // namespace

DeviceFiles::DeviceFiles(const DeviceFilesPlaces& places, WallClock now)
    : Root(RealPathOf(places.Root)),
      Installed(places.InstalledSounds.empty() ? std::string() : RealPathOf(places.InstalledSounds)),
      Now(std::move(now)), UserFolders(Root, LinkRule::InsideOnly), InstalledFolders(Installed, LinkRule::Anywhere) {}

ErrorCode DeviceFiles::CreateDirectoryW(std::u16string_view path) {
    return Guard([&] { return MakeFolder(path); });
}

ErrorCode DeviceFiles::ReadWholeFile(std::u16string_view path, std::vector<std::uint8_t>& bytes) {
    bytes.clear();
    return Guard([&] {
        std::string realPath;
        const ErrorCode error = FindReadable(path, realPath);
        return error == ErrorCode::Success ? posix::ReadFile(realPath, kLargestFile, bytes) : error;
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

    struct stat state {};

    const ErrorCode error = Guard([&] { return FindReadable(path, realPath); });
    if (error != ErrorCode::Success || stat(realPath.c_str(), &state) != 0 || !S_ISREG(state.st_mode)) {
        return std::nullopt;
    }
    return realPath;
}

void DeviceFiles::Purge() {
    const ErrorCode error = Guard([&] {
        posix::RemoveUnfinished(Root);
        const std::u16string data[] = {u"My Documents", u"TavoCalendar"};
        std::string folder;
        if (const ErrorCode missing = FindFolder(data, folder); missing != ErrorCode::Success) {
            return missing;
        }
        posix::RemoveUnfinished(folder);
        PurgeDeletedMemos(folder, Now());
        UserFolders.Forget(folder);
        return ErrorCode::Success;
    });
    static_cast<void>(error); // a device without the folder has nothing to purge
}

ErrorCode DeviceFiles::FindFolder(Parts parts, std::string& folder) {
    folder = Root;
    for (const std::u16string& part : parts) {
        const std::optional<std::string> name = FindName(UserFolders, folder, part);
        if (!name) {
            return ErrorCode::PathNotFound;
        }
        folder += '/' + *name;

        struct stat state {};

        if (lstat(folder.c_str(), &state) != 0) {
            return ErrorCode::PathNotFound;
        }
        if (S_ISLNK(state.st_mode)) {
            folder = RealPathOf(folder);
            if (!IsBelow(folder, Root) || lstat(folder.c_str(), &state) != 0) {
                return ErrorCode::AccessDenied;
            }
        }
        if (!S_ISDIR(state.st_mode)) {
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
    place.Name = FindName(UserFolders, place.Folder, parts->back()).value_or(locale::ToUtf8(parts->back()));
    return link == LastLink::Follow ? FollowLink(place) : ErrorCode::Success;
}

// A link as the last part leads to its target, if that lies inside.
ErrorCode DeviceFiles::FollowLink(Place& place) const {
    struct stat state {};

    if (lstat(place.Path().c_str(), &state) != 0 || !S_ISLNK(state.st_mode)) {
        return ErrorCode::Success;
    }
    const std::string target = RealPathOf(place.Path());
    if (!IsBelow(target, Root)) {
        return ErrorCode::AccessDenied;
    }
    const std::size_t slash = target.rfind('/');
    place = {target.substr(0, slash), target.substr(slash + 1)};
    return ErrorCode::Success;
}

ErrorCode DeviceFiles::FindReadable(std::u16string_view path, std::string& realPath) {
    Place place;

    struct stat state {};

    ErrorCode error = FindPlace(path, LastLink::Follow, place);
    if (error == ErrorCode::Success) {
        realPath = place.Path();
        if (lstat(realPath.c_str(), &state) == 0) {
            return ErrorCode::Success;
        }
        error = posix::ErrorCodeOf(errno);
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
        const std::optional<std::string> name = FindName(InstalledFolders, found, part);
        if (!name) {
            return std::nullopt;
        }
        found += '/' + *name;
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
    if (mkdir(place.Path().c_str(), kPrivateFolder) != 0) {
        return errno == ENOENT ? ErrorCode::PathNotFound : posix::ErrorCodeOf(errno);
    }
    UserFolders.Forget(place.Folder);
    return posix::SyncFolder(place.Folder);
}

ErrorCode DeviceFiles::Write(std::u16string_view path, std::span<const std::uint8_t> bytes) {
    Place place;
    if (const ErrorCode error = FindPlace(path, LastLink::Follow, place); error != ErrorCode::Success) {
        return error;
    }
    const std::string realPath = place.Path();
    const ErrorCode error = posix::ReplaceFile(realPath, bytes, [&] {
        if (!IsKeptMemo(place.Folder, place.Name) || access(realPath.c_str(), F_OK) != 0) {
            return ErrorCode::Success;
        }
        return KeepMemo(place.Folder, place.Name, Now());
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

    struct stat state {};

    if (lstat(realPath.c_str(), &state) != 0) {
        const ErrorCode missing = posix::ErrorCodeOf(errno);
        const auto parts = ParseDevicePath(path);
        return parts && FindInstalled(*parts) ? ErrorCode::AccessDenied : missing; // what is installed stays
    }
    if (!S_ISREG(state.st_mode) && !S_ISLNK(state.st_mode)) {
        return ErrorCode::AccessDenied;
    }
    if (S_ISREG(state.st_mode) && access(realPath.c_str(), W_OK) != 0) {
        return posix::ErrorCodeOf(errno);
    }
    UserFolders.Forget(place.Folder);
    if (S_ISREG(state.st_mode) && IsKeptMemo(place.Folder, place.Name)) {
        std::string kept;
        return MoveMemo(place.Folder, place.Name, Now(), kept);
    }
    // Of a link only the link goes; what it leads to stays.
    return unlink(realPath.c_str()) == 0 ? ErrorCode::Success : posix::ErrorCodeOf(errno);
}

// A link goes there as a link.
ErrorCode DeviceFiles::PutAway(std::u16string_view path, std::u16string& kept) {
    Place place;
    if (const ErrorCode error = FindPlace(path, LastLink::Keep, place); error != ErrorCode::Success) {
        return error;
    }

    struct stat state {};

    if (lstat(place.Path().c_str(), &state) != 0) {
        return posix::ErrorCodeOf(errno);
    }
    if (!IsKeptMemo(place.Folder, place.Name) || (!S_ISREG(state.st_mode) && !S_ISLNK(state.st_mode))) {
        return ErrorCode::AccessDenied;
    }
    if (S_ISREG(state.st_mode) && access(place.Path().c_str(), W_OK) != 0) {
        return posix::ErrorCodeOf(errno);
    }
    UserFolders.Forget(place.Folder);
    std::string name;
    const ErrorCode error = MoveMemo(place.Folder, place.Name, Now(), name);
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

    struct stat state {};

    if (lstat(source.Path().c_str(), &state) != 0) {
        return posix::ErrorCodeOf(errno);
    }
    if (!S_ISREG(state.st_mode) && !S_ISLNK(state.st_mode)) {
        return ErrorCode::AccessDenied;
    }
    UserFolders.Forget(source.Folder);
    UserFolders.Forget(target.Folder);
    return MoveToFreePath(source.Path(), target.Path());
}

} // namespace tavo::files
