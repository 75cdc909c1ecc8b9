// Holds the place of the one companion of a root folder; the file names its process.
#pragma once

#include "host/posix/file_descriptor.h"

#include <string>

namespace tavo::companion {

class CompanionLock {
  public:
    explicit CompanionLock(const std::string& runFolder);

    bool IsHeld() const { return static_cast<bool>(File); }

  private:
    posix::FileDescriptor File;
};

} // namespace tavo::companion
