// A running search over what one or two folders held when it began.
#pragma once

#include "host/files/folder_cache.h"
#include "platform/files.h"

namespace tavo::files {

// The files of one folder that match a pattern, in the order of their folded names.
class FolderMatches {
  public:
    FolderMatches() = default;
    // `pattern` without case; a missing folder has no matches.
    FolderMatches(std::shared_ptr<const FolderListing> listing, std::u16string pattern);

    const FolderEntry* Current() const { return Found; } // null at the end

    void Advance();

  private:
    void FindFromNext();

    std::shared_ptr<const FolderListing> Listing;
    std::u16string Pattern;
    std::size_t PrefixLength = 0; // of the pattern before its first wildcard
    std::size_t Next = 0;
    const FolderEntry* Found = nullptr;
};

// Both folders as one; a name that both have is the upper one's and comes once.
class FileSearch final : public IFileSearch {
  public:
    FileSearch(FolderMatches upper, FolderMatches lower);

    bool HasFile() const { return Current != nullptr; }

    std::u16string FileName() const override { return Current == nullptr ? std::u16string() : Current->Name; }

    bool FindNextFileW() override;

  private:
    void Choose();

    FolderMatches Upper;
    FolderMatches Lower;
    const FolderEntry* Current = nullptr;
};

} // namespace tavo::files
