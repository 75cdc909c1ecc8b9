// The folder of what crashes left.
#pragma once

#include "platform/ink.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavo::ink {

class RecoveryFolder {
  public:
    explicit RecoveryFolder(std::string path) : OwnPath(std::move(path)) {}

    const std::string& Path() const { return OwnPath; }

    // Files that nobody holds any more and that hold ink, oldest first. Those without any are removed; those that
    // cannot be read, or say an impossible time, are put to the declined ones.
    std::vector<RecoveredInk> Find() const;
    void End(std::u16string_view name, RecoveredInkEnd end) const;

  private:
    std::string DeclinedFolder() const { return OwnPath + "/Declined"; }

    bool Decline(const std::string& name) const;

    std::string OwnPath;
};

} // namespace tavo::ink
