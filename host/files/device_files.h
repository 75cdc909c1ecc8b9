// The device's files as files of a disk, below the device's root.
#pragma once

#include "host/disk/disk.h"
#include "host/files/folder_cache.h"
#include "platform/files.h"

#include <ctime>
#include <functional>
#include <optional>
#include <string>

namespace tavo::files {

struct DeviceFilesPlaces {
    std::string Root;                 // the device's root, an existing folder
    std::string InstalledSounds = {}; // lies under \Windows, only to be read; empty for none
};

class DeviceFiles final : public IFiles {
  public:
    using WallClock = std::function<std::time_t()>;

    DeviceFiles(
        disk::IDisk& disk, const DeviceFilesPlaces& places, WallClock now = [] { return std::time(nullptr); });

    ErrorCode CreateDirectoryW(std::u16string_view path) override;
    ErrorCode ReadWholeFile(std::u16string_view path, std::vector<std::uint8_t>& bytes) override;
    ErrorCode WriteWholeFile(std::u16string_view path, std::span<const std::uint8_t> bytes) override;
    ErrorCode DeleteFileW(std::u16string_view path) override;
    ErrorCode PutAwayMemo(std::u16string_view path, std::u16string& kept) override;
    ErrorCode MoveFileW(std::u16string_view from, std::u16string_view to) override;
    std::unique_ptr<IFileSearch> FindFirstFileW(std::u16string_view pattern) override;

    // Where an existing file of the device really lies (for sound players); nothing when there is none.
    std::optional<std::string> RealPathOfFile(std::u16string_view path);

    // At start-up: removes memos of \My Documents\TavoCalendar that were deleted more than 30 days ago, and what a
    // crash left unfinished.
    void Purge();

    // How often a folder was read rather than remembered.
    std::size_t FolderReads() const { return UserFolders.ReadCount() + InstalledFolders.ReadCount(); }

  private:
    using Parts = std::span<const std::u16string>;

    // A file's real place. Its folder exists, the file itself perhaps not.
    struct Place {
        std::string Folder;
        std::string Name;

        std::string Path() const { return Folder + '/' + Name; }
    };

    ErrorCode FindFolder(Parts parts, std::string& folder);
    ErrorCode FindPlace(std::u16string_view path, disk::LastLink link, Place& place);
    ErrorCode FollowLink(Place& place) const;
    ErrorCode FindReadable(std::u16string_view path, std::string& realPath);
    std::optional<std::string> FindInstalled(Parts parts);
    ErrorCode MakeFolder(std::u16string_view path);
    ErrorCode Write(std::u16string_view path, std::span<const std::uint8_t> bytes);
    ErrorCode Delete(std::u16string_view path);
    ErrorCode PutAway(std::u16string_view path, std::u16string& kept);
    ErrorCode Move(std::u16string_view from, std::u16string_view to);

    // Whether there is one; links are not followed.
    ErrorCode FindKind(const std::string& path, disk::EntryKind& kind) const;

    disk::IDisk& Disk;
    std::string Root;      // both without symbolic links
    std::string Installed; // empty: none
    WallClock Now;
    FolderCache UserFolders;
    FolderCache InstalledFolders;
};

} // namespace tavo::files
