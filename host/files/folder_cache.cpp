// Reads folders, and tells when what was read can still be believed.
#include "host/files/folder_cache.h"

#include "host/files/device_path.h"
#include "host/locale/case_folding.h"
#include "host/locale/utf.h"

#include <algorithm>
#include <ctime>
#include <optional>

namespace tavo::files {

namespace {

// A stamp moves in steps: two changes within one step leave the same stamp. Linux moves it every 1 to 10 milliseconds,
// file systems that keep no fractions every second or two.
constexpr std::chrono::milliseconds kFineTick{20};
constexpr std::chrono::milliseconds kCoarseTick{2500};
constexpr std::int64_t kClearlyOlder = 3; // seconds

} // namespace

bool IsBelow(const std::string& path, const std::string& root) {
    return path.size() > root.size() && path.starts_with(root) && (path[root.size()] == '/' || root == "/");
}

FolderListing::const_iterator FindFromName(const FolderListing& listing, std::u16string_view folded) {
    return std::ranges::lower_bound(listing, folded, {},
                                    [](const FolderEntry& entry) { return std::u16string_view(entry.Folded); });
}

std::shared_ptr<const FolderListing> FolderCache::List(const std::string& folder) {
    disk::Entry there;
    if (Disk.Look(folder, disk::LastLink::Keep, there) != ErrorCode::Success || there.Kind != disk::EntryKind::Folder) {
        Folders.erase(folder);
        return nullptr;
    }
    const Moment now = std::chrono::steady_clock::now();
    const disk::Stamp& stamp = there.Seen;
    Folder& kept = Folders[folder];
    if (!kept.Listing || kept.Seen != stamp) {
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

bool FolderCache::IsOldEnough(const disk::Stamp& stamp) {
    return std::max(stamp.Modified.Seconds, stamp.Changed.Seconds) < std::time(nullptr) - kClearlyOlder;
}

std::chrono::milliseconds FolderCache::TickOf(const disk::Stamp& stamp) {
    return stamp.Modified.Nanoseconds == 0 ? kCoarseTick : kFineTick;
}

std::shared_ptr<const FolderListing> FolderCache::Read(const std::string& folder) {
    ++Reads;
    auto listing = std::make_shared<FolderListing>();
    const ErrorCode error = Disk.List(folder, [&](std::string_view name, disk::EntryKind kind) {
        std::optional<std::u16string> said = locale::ToUtf16Exactly(name);
        if (!said || !IsDeviceName(*said)) {
            return;
        }
        if (kind == disk::EntryKind::Link) {
            kind = KindBehind((folder + '/').append(name));
        }
        if (kind == disk::EntryKind::File || kind == disk::EntryKind::Folder) {
            listing->push_back({locale::FoldCase(*said), std::move(*said), kind == disk::EntryKind::Folder});
        }
    });
    if (error != ErrorCode::Success) {
        return nullptr;
    }
    std::ranges::sort(*listing, [](const FolderEntry& left, const FolderEntry& right) {
        return left.Folded != right.Folded ? left.Folded < right.Folded : left.Name < right.Name;
    });
    return listing;
}

disk::EntryKind FolderCache::KindBehind(const std::string& link) {
    const std::string target = Disk.Resolve(link);
    disk::Entry there;
    if (target.empty() || (Links == LinkRule::InsideOnly && !IsBelow(target, Root)) ||
        Disk.Look(target, disk::LastLink::Follow, there) != ErrorCode::Success) {
        return disk::EntryKind::Other;
    }
    return there.Kind;
}

} // namespace tavo::files
