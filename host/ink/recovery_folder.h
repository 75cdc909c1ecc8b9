// The folder of what crashes left.
#pragma once

#include "host/disk/disk.h"
#include "host/ink/recovery_file.h"
#include "platform/ink.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::ink {

class RecoveryFolder {
  public:
    RecoveryFolder(disk::IDisk& disk, std::string path) : Disk(disk), OwnPath(std::move(path)) {}

    // For ink that is begun now. It makes its file with what is first written to it.
    std::unique_ptr<RecoveryFile> Begin(const SYSTEMTIME& now, std::vector<std::uint8_t> home) const;

    // Files that nobody holds any more and that hold ink, oldest first. Those without any are removed; those that
    // cannot be read, or say an impossible time, are put to the declined ones.
    std::vector<RecoveredInk> Find() const;
    void End(std::u16string_view name, RecoveredInkEnd end) const;

  private:
    std::string DeclinedFolder() const { return OwnPath + "/Declined"; }

    std::vector<std::string> Names() const; // of the recovery files, oldest first
    bool Decline(const std::string& name) const;

    disk::IDisk& Disk;
    std::string OwnPath;
};

} // namespace tavo::ink
