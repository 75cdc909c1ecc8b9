// Finds and makes the device's root folder.
#include "host/posix/root_folder.h"

#include "host/posix/private_file.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace tavo::posix {

namespace {

constexpr mode_t kPrivateFolder = 0700;

std::string VariableOf(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

std::string ChoosePath(const RootEnvironment& environment) {
    if (!environment.TavoHome.empty()) {
        std::error_code error;
        const std::filesystem::path whole = std::filesystem::absolute(environment.TavoHome, error);
        return error ? environment.TavoHome : whole.lexically_normal().string();
    }
    if (environment.XdgDataHome.starts_with('/')) {
        return environment.XdgDataHome + "/tavocalendar";
    }
    if (!environment.Home.empty()) {
        return environment.Home + "/.local/share/tavocalendar";
    }
    return {};
}

bool IsFolder(const std::string& path) {
    struct stat state {};

    return stat(path.c_str(), &state) == 0 && S_ISDIR(state.st_mode);
}

// Makes the folder and those above it. 0 or an errno, and then the folder that could not be made.
int MakeFolders(const std::string& path, std::string& failed) {
    if (IsFolder(path)) {
        return 0; // as at every start but the first
    }
    for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
        const std::string folder = path.substr(0, end);
        if (mkdir(folder.c_str(), kPrivateFolder) != 0) {
            const int error = errno;
            // On a read-only disk or in a folder that is not ours the answer is not "it exists" even when it does.
            if (!IsFolder(folder)) {
                failed = folder;
                return error;
            }
        }
        if (end == std::string::npos) {
            return 0;
        }
    }
}

std::string DescribeFailure(const std::string& folder, int error) {
    const std::string place = "The folder " + folder;
    constexpr const char* kHelp = "; set TAVO_HOME to a folder of your own.";
    switch (error) {
    case EACCES:
    case EPERM:
        return place + " cannot be used because you have no permission to write there" + kHelp;
    case EROFS:
        return place + " cannot be used because its disk is read-only" + kHelp;
    case ENOSPC:
    case EDQUOT:
        return place + " cannot be made because the disk is full; free some space and start again.";
    case ENOTDIR:
    case EEXIST:
        return place + " cannot be used because it, or a folder above it, is a file; move that file away" + kHelp;
    default:
        return place + " cannot be used (" + std::strerror(error) + ")" + kHelp;
    }
}

// In single quotes, so that it can be pasted into a shell.
std::string QuoteForShell(const std::string& text) {
    std::string quoted = "'";
    for (const char letter : text) {
        quoted += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    }
    return quoted + "'";
}

// What is wrong with a folder into which others could put files; "" when they cannot.
std::string DescribeExposure(const std::string& folder) {
    constexpr const char* kElse = ", or set TAVO_HOME to a folder of your own.";
    switch (LookAtFolder(folder)) {
    case FolderKeeping::OfSomebodyElse:
        return "The folder " + folder + " belongs to someone else; have it given to you (chown)" + kElse;
    case FolderKeeping::OpenToOthers:
        return "Others may write to the folder " + folder + "; close it to them with: chmod go-w " +
               QuoteForShell(folder) + kElse;
    default:
        return {};
    }
}

RootResult Refuse(const std::string& problem) {
    return {std::nullopt, problem};
}

} // namespace

RootEnvironment RootEnvironment::OfProcess() {
    return {VariableOf("TAVO_HOME"), VariableOf("XDG_DATA_HOME"), VariableOf("HOME")};
}

RootResult OpenDeviceRoot(const RootEnvironment& environment) {
    const std::string path = ChoosePath(environment);
    if (path.empty()) {
        return Refuse(
            "There is no home folder to keep the calendar in; set HOME, or TAVO_HOME to a folder of your own.");
    }
    std::string failed;
    if (const int error = MakeFolders(path, failed); error != 0) {
        return Refuse(DescribeFailure(failed, error));
    }
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
    if (!real) {
        return Refuse(DescribeFailure(path, errno));
    }
    files::DeviceRoot root(real.get());
    // A folder that can be read only is no reason to refuse: the store tells what it cannot do.
    if (access(real.get(), R_OK | X_OK) != 0) {
        return Refuse(DescribeFailure(path, errno));
    }
    // Before anything is made in it.
    if (const std::string exposure = DescribeExposure(root.Path()); !exposure.empty()) {
        return Refuse(exposure);
    }
    for (const std::string& folder : {root.DocumentsFolder(), root.WindowsFolder(), root.RunFolder()}) {
        if (const int error = MakeFolders(folder, failed); error != 0) {
            return Refuse(DescribeFailure(failed, error));
        }
    }
    if (const std::string exposure = DescribeExposure(root.RunFolder()); !exposure.empty()) {
        return Refuse(exposure);
    }
    return {std::move(root), {}};
}

} // namespace tavo::posix
