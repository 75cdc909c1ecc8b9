// The device's files. Paths begin with "\", names are compared without case, and no path leaves the device's root.
#pragma once

#include "platform/status.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

// A running file search, on a found file. Ends when it is destroyed.
class IFileSearch {
  public:
    virtual ~IFileSearch() = default;
    virtual std::u16string FileName() const = 0; // name and extension, no folder
    virtual bool FindNextFileW() = 0;            // false: no more; the name is then empty
};

class IFiles {
  public:
    virtual ~IFiles() = default;
    virtual ErrorCode CreateDirectoryW(std::u16string_view path) = 0; // AlreadyExists when it is there
    // The whole file; on failure `bytes` is empty.
    virtual ErrorCode ReadWholeFile(std::u16string_view path, std::vector<std::uint8_t>& bytes) = 0;
    // Creates or replaces the file, whole or not at all. A replaced memo goes to the Deleted folder.
    virtual ErrorCode WriteWholeFile(std::u16string_view path, std::span<const std::uint8_t> bytes) = 0;
    virtual ErrorCode DeleteFileW(std::u16string_view path) = 0; // a deleted memo goes to the Deleted folder
    // Deletes a memo like DeleteFileW; `kept` gets the path at which it lies in the Deleted folder.
    virtual ErrorCode PutAwayMemo(std::u16string_view path, std::u16string& kept) = 0;
    // Gives a file another path. AlreadyExists when a file is there whose name is spelled exactly so.
    virtual ErrorCode MoveFileW(std::u16string_view from, std::u16string_view to) = 0;
    // The files that match a pattern with "*" and "?" in its last part; null when there are none.
    virtual std::unique_ptr<IFileSearch> FindFirstFileW(std::u16string_view pattern) = 0;
};

} // namespace tavo
