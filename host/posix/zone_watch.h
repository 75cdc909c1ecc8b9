// Notices that the machine's time zone was changed while the process runs.
#pragma once

#include <chrono>
#include <string>

#include <sys/stat.h>

namespace tavo::posix {

// Looks at the zone file at most once a second. The C library reads that file only once, so on a change it is made to
// read it again.
class ZoneWatch {
  public:
    ZoneWatch();
    // True once after each change; local time follows the new zone from then on.
    bool Refresh();

  private:
    static std::string ZoneFile(); // empty when TZ names a rule and no file
    static struct stat StateOf(const std::string& file);

    std::string File;
    struct stat Seen;
    std::chrono::steady_clock::time_point NextLook;
};

} // namespace tavo::posix
