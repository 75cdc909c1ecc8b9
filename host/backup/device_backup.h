// Backups of a whole device, store, memos, lists and settings, as one file each.
#pragma once

#include "host/files/device_root.h"
#include "host/outlook/backup.h"

#include <string>

namespace tavo::backup {

// Makes or replaces the file at `path`, for the user alone; the old one stays until the new one is whole and was looked
// through. `contents` is what it holds. False: `problem` says why, for people; it is empty when `goOn` stopped it.
bool BackUp(const files::DeviceRoot& root, const std::string& path, const outlook::BackupProgress& goOn,
            outlook::BackupContents& contents, std::string& problem);

struct Restored {
    std::string Before; // the backup of what was there, which takes the restore back; "" when there was nothing
    outlook::BackupContents Contents;
    int Files = 0;           // memos and the like that are as they were again
    bool HasSettings = true; // false: a program that runs keeps its own
};

// Everything as the backup has it. Memos that it does not have stay, and those that it changes are kept in Deleted. The
// lists of the kinds are left to the caller, for they are the program's (Contents.Tags). False: `problem` says why, and
// the store is as it was.
bool Restore(const files::DeviceRoot& root, const std::string& path, Restored& restored, std::string& problem);

} // namespace tavo::backup
