// Compares the zone file's stamps and makes the C library read it again.
#include "host/posix/zone_watch.h"

#include <cstdlib>
#include <ctime>

namespace tavo::posix {

namespace {

constexpr std::chrono::seconds kBetweenLooks{1};

// The library reads the file again only after TZ was seen to differ. Between the two calls another thread may read the
// environment: this happens only when somebody changes the machine's zone.
void ReadZoneAgain() {
    const char* set = std::getenv("TZ");
    const bool wasSet = set != nullptr;
    const std::string before = wasSet ? set : "";
    static_cast<void>(setenv("TZ", "UTC0", 1));
    tzset();
    if (wasSet) {
        static_cast<void>(setenv("TZ", before.c_str(), 1));
    } else {
        static_cast<void>(unsetenv("TZ"));
    }
    tzset();
}

} // namespace

ZoneWatch::ZoneWatch() : File(ZoneFile()), Seen(StateOf(File)) {
    tzset();
}

bool ZoneWatch::Refresh() {
    const auto now = std::chrono::steady_clock::now();
    if (File.empty() || now < NextLook) {
        return false;
    }
    NextLook = now + kBetweenLooks;
    const struct stat state = StateOf(File);
    if (state.st_ino == Seen.st_ino && state.st_dev == Seen.st_dev && state.st_mtim.tv_sec == Seen.st_mtim.tv_sec &&
        state.st_mtim.tv_nsec == Seen.st_mtim.tv_nsec) {
        return false;
    }
    Seen = state;
    ReadZoneAgain();
    return true;
}

std::string ZoneWatch::ZoneFile() {
    const char* variable = std::getenv("TZ");
    if (variable == nullptr) {
        return "/etc/localtime";
    }
    std::string file = variable;
    if (file.starts_with(':')) {
        file.erase(0, 1);
    }
    return file.starts_with('/') ? file : std::string();
}

// All zero when there is no such file.
struct stat ZoneWatch::StateOf(const std::string& file) {
    struct stat state {};

    if (stat(file.c_str(), &state) != 0) {
        state = {};
    }
    return state;
}

} // namespace tavo::posix
