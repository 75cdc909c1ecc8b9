// bin and lib/tavocalendar of a build; bin, libexec/tavocalendar and share/tavocalendar of a prefix.
#include "host/posix/installed_parts.h"

#include <unistd.h>

#include <array>
#include <span>

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

namespace {

// The first of the places below the folder where it can be had like that; empty when it is in none of them.
std::string FindIn(const std::string& folder, std::span<const char* const> places, const std::string& name, int mode) {
    for (const char* const place : places) {
        std::string path = folder;
        path.append(place).append(name);
        if (access(path.c_str(), mode) == 0) {
            return path;
        }
    }
    return {};
}

} // namespace

std::string FindProgram(const std::string& folder, const std::string& name) {
    constexpr std::array<const char*, 4> places = {"/", "/../libexec/tavocalendar/", "/../lib/tavocalendar/",
                                                   "/../../bin/"};
    std::string path = FindIn(folder, places, name, X_OK);
    return path.empty() ? folder + '/' + name : path;
}

std::string FindShared(const std::string& folder, const std::string& name) {
    constexpr std::array<const char*, 2> places = {"/../../share/tavocalendar/", "/../share/tavocalendar/"};
    std::string path = FindIn(folder, places, name, R_OK);
    return path.empty() ? folder + places.back() + name : path;
}

} // namespace tavo::posix
