// Replacing a file of this machine whole or not at all.
#pragma once

#include "platform/status.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace tavo::files {

// The device's code for an `errno`.
ErrorCode ErrorCodeOf(int errnoValue);

// Writes beside, synchronises, renames, synchronises the folder: whatever happens, the path names the old bytes or the
// new ones. 0600. A file that we may not read and write is not replaced. `beforeRename` runs when the new bytes are
// safe on disk and may still stop the replacement.
ErrorCode ReplaceFile(const std::string& path, std::span<const std::uint8_t> bytes,
                      const std::function<ErrorCode()>& beforeRename = {});

// A regular file of at most `limit` bytes, whole; anything else is a failure and leaves `bytes` empty.
ErrorCode ReadFile(const std::string& path, std::size_t limit, std::vector<std::uint8_t>& bytes);

} // namespace tavo::files
