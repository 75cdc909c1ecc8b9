// bin and lib/tavocalendar of a build; bin, libexec/tavocalendar and share/tavocalendar of a prefix.
#include "host/posix/installed_parts.h"

#include <unistd.h>

namespace tavo::posix {

std::string RunningProgramFolder() {
    std::string path(4096, '\0');
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    if (length <= 0) {
        return {};
    }
    path.resize(static_cast<std::size_t>(length));
    return path.substr(0, path.rfind('/'));
}

std::string FindProgram(const std::string& folder, const std::string& name) {
    for (const char* const place : {"/", "/../libexec/tavocalendar/", "/../lib/tavocalendar/", "/../../bin/"}) {
        if (const std::string path = folder + place + name; access(path.c_str(), X_OK) == 0) {
            return path;
        }
    }
    return folder + '/' + name;
}

std::string FindShared(const std::string& folder, const std::string& name) {
    for (const char* const place : {"/../../share/tavocalendar/", "/../share/tavocalendar/"}) {
        if (const std::string path = folder + place + name; access(path.c_str(), R_OK) == 0) {
            return path;
        }
    }
    return folder + "/../share/tavocalendar/" + name;
}

} // namespace tavo::posix
