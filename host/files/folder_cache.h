// The names in a folder, kept sorted between searches, so that a search costs one look at the folder's stamps.
#pragma once

#include "host/disk/disk.h"

#include <chrono>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::files {

struct FolderEntry {
    std::u16string Folded; // the name without case: what is searched and sorted by
    std::u16string Name;
    bool IsFolder = false;
};

// What a folder held at one moment, in the order of folded names. Names that no device path can say are left out.
using FolderListing = std::vector<FolderEntry>;

// The first entry whose folded name is not below `folded`.
FolderListing::const_iterator FindFromName(const FolderListing& listing, std::u16string_view folded);

// Both real paths without symbolic links.
bool IsBelow(const std::string& path, const std::string& root);

enum class LinkRule {
    InsideOnly, // symbolic links count only when they lead to something below the root
    Anywhere,
};

class FolderCache {
  public:
    FolderCache(disk::IDisk& disk, std::string root, LinkRule links)
        : Disk(disk), Root(std::move(root)), Links(links) {}

    // Null when the folder cannot be read. `folder` is a real path without symbolic links.
    std::shared_ptr<const FolderListing> List(const std::string& folder);

    void Forget(const std::string& folder) { Folders.erase(folder); } // after a change of our own

    std::size_t ReadCount() const { return Reads; } // how often a folder was read, for tests

  private:
    using Moment = std::chrono::steady_clock::time_point;

    struct Folder {
        disk::Stamp Seen;
        Moment FirstSeen; // when this stamp was met first
        bool Trusted = false;
        std::shared_ptr<const FolderListing> Listing;
    };

    static bool IsOldEnough(const disk::Stamp& stamp);
    static std::chrono::milliseconds TickOf(const disk::Stamp& stamp);
    std::shared_ptr<const FolderListing> Read(const std::string& folder);
    disk::EntryKind KindBehind(const std::string& link);

    disk::IDisk& Disk;
    std::string Root;
    LinkRule Links;
    std::map<std::string, Folder, std::less<>> Folders;
    std::size_t Reads = 0;
};

} // namespace tavo::files
