// Reads folders, and tells when what was read can still be believed.
#include "host/files/folder_cache.h"

#include "host/files/device_path.h"
#include "host/locale/case_folding.h"
#include "host/locale/utf.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <optional>

#include <dirent.h>
#include <fcntl.h>

namespace tavo::files {

namespace {

// A stamp moves in steps: two changes within one step leave the same stamp. Linux moves it every 1 to 10 milliseconds,
// file systems that keep no fractions every second or two.
constexpr std::chrono::milliseconds kFineTick{20};
constexpr std::chrono::milliseconds kCoarseTick{2500};
constexpr std::time_t kClearlyOlder = 3; // seconds

enum class EntryKind { File, Folder, Other };

bool IsBelow(const std::string& path, const std::string& root) {
    return path.size() > root.size() && path.starts_with(root) && (path[root.size()] == '/' || root == "/");
}

EntryKind KindOf(const struct stat& state) {
    if (S_ISREG(state.st_mode)) {
        return EntryKind::File;
    }
    return S_ISDIR(state.st_mode) ? EntryKind::Folder : EntryKind::Other;
}

EntryKind KindOfLink(const std::string& path, const std::string& root, LinkRule links) {
    const std::unique_ptr<char, void (*)(void*)> target(realpath(path.c_str(), nullptr), std::free);

    struct stat state {};

    if (!target || (links == LinkRule::InsideOnly && !IsBelow(target.get(), root)) || stat(target.get(), &state) != 0) {
        return EntryKind::Other;
    }
    return KindOf(state);
}

EntryKind KindOfEntry(const dirent& entry, const std::string& folder, const std::string& root, LinkRule links) {
    if (entry.d_type == DT_REG) {
        return EntryKind::File;
    }
    if (entry.d_type == DT_DIR) {
        return EntryKind::Folder;
    }
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) {
        return EntryKind::Other;
    }
    const std::string path = folder + '/' + entry.d_name;

    struct stat state {};

    if (lstat(path.c_str(), &state) != 0) {
        return EntryKind::Other;
    }
    return S_ISLNK(state.st_mode) ? KindOfLink(path, root, links) : KindOf(state);
}

bool SameTime(const timespec& left, const timespec& right) {
    return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

} // namespace

FolderListing::const_iterator FindFromName(const FolderListing& listing, std::u16string_view folded) {
    return std::ranges::lower_bound(listing, folded, {},
                                    [](const FolderEntry& entry) { return std::u16string_view(entry.Folded); });
}

std::shared_ptr<const FolderListing> FolderCache::List(const std::string& folder) {
    struct stat state {};

    if (lstat(folder.c_str(), &state) != 0 || !S_ISDIR(state.st_mode)) {
        Folders.erase(folder);
        return nullptr;
    }
    const Moment now = std::chrono::steady_clock::now();
    const Stamp stamp{state.st_dev, state.st_ino, state.st_mtim, state.st_ctim};
    Folder& kept = Folders[folder];
    if (!kept.Listing || !SameStamp(kept.Seen, stamp)) {
        kept = {stamp, now, false, nullptr};
    }
    if (!kept.Trusted) {
        kept.Listing = Read(folder);
        // A change after this reading moves the stamp, unless it falls into the step in which the stamp was made. So it
        // is believed when the stamp is clearly older than the clock, or was already met a whole step before.
        kept.Trusted = IsOldEnough(stamp) || now - kept.FirstSeen >= TickOf(stamp);
    }
    return kept.Listing;
}

bool FolderCache::SameStamp(const Stamp& left, const Stamp& right) {
    return left.Device == right.Device && left.Inode == right.Inode && SameTime(left.Modified, right.Modified) &&
           SameTime(left.Changed, right.Changed);
}

bool FolderCache::IsOldEnough(const Stamp& stamp) {
    return std::max(stamp.Modified.tv_sec, stamp.Changed.tv_sec) < std::time(nullptr) - kClearlyOlder;
}

std::chrono::milliseconds FolderCache::TickOf(const Stamp& stamp) {
    return stamp.Modified.tv_nsec == 0 ? kCoarseTick : kFineTick;
}

std::shared_ptr<const FolderListing> FolderCache::Read(const std::string& folder) {
    ++Reads;
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
    if (!entries) {
        return nullptr;
    }
    auto listing = std::make_shared<FolderListing>();
    while (const dirent* entry = readdir(entries.get())) {
        std::optional<std::u16string> name = locale::ToUtf16Exactly(entry->d_name);
        if (!name || !IsDeviceName(*name)) {
            continue;
        }
        const EntryKind kind = KindOfEntry(*entry, folder, Root, Links);
        if (kind != EntryKind::Other) {
            listing->push_back({locale::FoldCase(*name), std::move(*name), kind == EntryKind::Folder});
        }
    }
    std::ranges::sort(*listing, [](const FolderEntry& left, const FolderEntry& right) {
        return left.Folded != right.Folded ? left.Folded < right.Folded : left.Name < right.Name;
    });
    return listing;
}

} // namespace tavo::files
