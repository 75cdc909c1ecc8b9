// Walks the part of a listing that a pattern's beginning leaves.
#include "host/files/file_search.h"

#include "host/files/device_path.h"

#include <algorithm>
#include <utility>

namespace tavo::files {

FolderMatches::FolderMatches(std::shared_ptr<const FolderListing> listing, std::u16string pattern)
    : Listing(std::move(listing)), Pattern(std::move(pattern)) {
    if (!Listing) {
        return;
    }
    if (Pattern == u"*.*") {
        Pattern.resize(1); // on the device it also means names without a full stop
    }
    PrefixLength = std::min(Pattern.find_first_of(u"*?"), Pattern.size());
    const auto first = FindFromName(*Listing, std::u16string_view(Pattern).substr(0, PrefixLength));
    Next = static_cast<std::size_t>(first - Listing->begin());
    FindFromNext();
}

void FolderMatches::Advance() {
    ++Next;
    FindFromNext();
}

void FolderMatches::FindFromNext() {
    const std::u16string_view prefix = std::u16string_view(Pattern).substr(0, PrefixLength);
    for (Found = nullptr; Next < Listing->size(); ++Next) {
        const FolderEntry& entry = (*Listing)[Next];
        if (!entry.Folded.starts_with(prefix)) {
            return;
        }
        if (!entry.IsFolder && MatchesPattern(entry.Folded, Pattern)) {
            Found = &entry;
            return;
        }
    }
}

FileSearch::FileSearch(FolderMatches upper, FolderMatches lower) : Upper(std::move(upper)), Lower(std::move(lower)) {
    Choose();
}

bool FileSearch::FindNextFileW() {
    if (Current == nullptr) {
        return false;
    }
    if (Current == Upper.Current()) {
        Upper.Advance();
    } else {
        Lower.Advance();
    }
    Choose();
    return Current != nullptr;
}

void FileSearch::Choose() {
    const FolderEntry* upper = Upper.Current();
    while (upper != nullptr && Lower.Current() != nullptr && Lower.Current()->Folded == upper->Folded) {
        Lower.Advance();
    }
    const FolderEntry* lower = Lower.Current();
    const bool takesUpper = upper != nullptr && (lower == nullptr || upper->Folded < lower->Folded);
    Current = takesUpper ? upper : lower;
}

} // namespace tavo::files
