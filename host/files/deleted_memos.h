// Memos that were deleted or replaced, kept for a while in a folder beside them.
#pragma once

#include "host/disk/disk.h"

#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace tavo::files {

inline constexpr std::string_view kDeletedFolderName = "Deleted";
constexpr int kDaysDeletedMemosAreKept = 30;

// Whether a file of this folder is a memo to be kept: "*.pwi" in any case, and not in a Deleted folder itself.
bool IsKeptMemo(const std::string& folder, const std::string& name);

// Gives the memo a second name in the Deleted folder; it stays where it is.
ErrorCode KeepMemo(disk::IDisk& disk, const std::string& folder, const std::string& name, std::time_t now);

// Moves the memo to the Deleted folder; `kept` gets its name there.
ErrorCode MoveMemo(disk::IDisk& disk, const std::string& folder, const std::string& name, std::time_t now,
                   std::string& kept);

// Gives the file another path, on the same disk or not. AlreadyExists when something has that path.
ErrorCode MoveToFreePath(disk::IDisk& disk, const std::string& from, const std::string& to);

// Removes what was deleted more than 30 days ago. Files that were not named by us stay.
void PurgeDeletedMemos(disk::IDisk& disk, const std::string& folder, std::time_t now);

// "x.pwi" deleted at that moment: "x (deleted 20041117T214530Z).pwi", the next in the same second "... Z 2).pwi".
std::string NameOfDeleted(const std::string& name, std::time_t now, int number);
std::optional<std::time_t> TimeOfDeleted(std::string_view name);

} // namespace tavo::files
