// Replacing a file of this machine whole or not at all.
#pragma once

#include "host/posix/file_descriptor.h"
#include "platform/status.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace tavo::posix {

// The device's code for an `errno`.
ErrorCode ErrorCodeOf(int errnoValue);

// All bytes, from where the file stands. After a failure some of them may be there.
ErrorCode WriteAll(const FileDescriptor& file, std::span<const std::uint8_t> bytes);

// A file that is written piece by piece beside the one it replaces. What is not finished leaves no trace.
class FileReplacement {
  public:
    FileReplacement() = default;
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();

    // Only a regular file that we may read and write is replaced. Each after a success of the one before.
    ErrorCode Begin(const std::string& path);
    ErrorCode Write(std::span<const std::uint8_t> bytes);
    // `beforeRename` runs when the new bytes are safe on disk and may still stop the replacement.
    ErrorCode Finish(const std::function<ErrorCode()>& beforeRename = {});

  private:
    FileDescriptor Folder;
    FileDescriptor File;
    std::string Name;
    std::string Unfinished; // "" once nothing is left of it
};

// Writes beside, synchronises, renames, synchronises the folder: whatever happens, the path names the old bytes or the
// new ones. 0600. Only a regular file that we may read and write is replaced. `beforeRename` runs when the new bytes
// are safe on disk and may still stop the replacement.
ErrorCode ReplaceFile(const std::string& path, std::span<const std::uint8_t> bytes,
                      const std::function<ErrorCode()>& beforeRename = {});

// A regular file of at most `limit` bytes, whole; anything else is a failure and leaves `bytes` empty.
ErrorCode ReadFile(const std::string& path, std::size_t limit, std::vector<std::uint8_t>& bytes);

// Brings the names in a folder to the disk.
ErrorCode SyncFolder(const std::string& folder);

// What a crash left of replacements in the folder; younger ones may still be at work.
void RemoveUnfinished(const std::string& folder);

} // namespace tavo::posix
