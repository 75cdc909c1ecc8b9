// Backups of a whole device, store, memos, lists and settings, as one file each.
#pragma once

#include "host/files/device_root.h"
#include "host/outlook/backup.h"

#include <functional>
#include <string>
#include <vector>

namespace tavo::backup {

// Makes or replaces the file at `path`, for the user alone; the old one stays until the new one is whole and was read
// again. Destroyed before that, it leaves no trace.
class DeviceBackup {
  public:
    DeviceBackup(const files::DeviceRoot& root, std::string path);
    ~DeviceBackup();
    DeviceBackup(const DeviceBackup&) = delete;
    DeviceBackup& operator=(const DeviceBackup&) = delete;

    // The next part. True while more remains; at the end the file is there, or Problem says why not.
    bool Step();

    int Progress() const; // of a thousand

    const std::string& Problem() const { return Reason; } // for people; empty while all is well

    // Of a file that is there.
    const outlook::BackupContents& Contents() { return Writer.Contents(); }

  private:
    bool Begin();
    void PutInPlace();

    files::DeviceRoot Root;
    std::string Path;
    std::string Draft;
    outlook::BackupWriter Writer;
    std::vector<outlook::KeptFile> Files;
    bool IsBegun = false;
    std::string Reason;
};

// The same in one go. `goOn` is told how many of a thousand parts are done; false stops it. False: `problem` says why,
// and is empty when it was stopped.
bool BackUp(const files::DeviceRoot& root, const std::string& path, const std::function<bool(int)>& goOn,
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
