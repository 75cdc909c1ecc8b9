// The desktop's entry, and the companion's lock to find it by.
#include "tools/login_start.h"

#include "host/posix/device_processes.h"
#include "host/posix/file_descriptor.h"
#include "host/posix/installed_parts.h"
#include "host/posix/login_entry.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <thread>

namespace tavo::tools {

namespace {

constexpr std::chrono::seconds kPatience{10};
constexpr std::chrono::milliseconds kBetweenLooks{10};

// A session does not know where a terminal was told that the device is.
std::string FindNamedRoot(const files::DeviceRoot& root) {
    const char* home = std::getenv("TAVO_HOME");
    return home != nullptr && *home != '\0' ? root.Path() : "";
}

// False when it does not become so within a while.
bool WaitUntil(const std::function<bool()>& isSo) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!isSo()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(kBetweenLooks);
    }
    return true;
}

// One that is started next must find the place free.
bool EndService(const files::DeviceRoot& root, pid_t service) {
    if (kill(service, SIGTERM) != 0) {
        return errno == ESRCH;
    }
    return WaitUntil([&] { return FindReminderService(root) != service; });
}

std::string WhyNotWritten(const posix::LoginEntry& entry) {
    return entry.Path().empty() ? "There is no home folder to put the entry into."
                                : "The entry " + entry.Path().string() + " cannot be written.";
}

} // namespace

std::string StartAtLogin(const files::DeviceRoot& root) {
    const std::string program = posix::FindProgram(posix::RunningProgramFolder(), "RSound");
    const std::string device = FindNamedRoot(root);
    for (const std::string& path : {program, device}) {
        if (!posix::LoginEntry::CanName(path)) {
            return "What is started at login cannot be told the name " + path +
                   ": it has characters that are no text. Give the folder another name.";
        }
    }
    posix::LoginEntry entry;
    if (!entry.SwitchOn(program, device)) {
        return WhyNotWritten(entry);
    }
    // One more, still on its way, would take the place of this one as soon as it is ended.
    if (FindReminderService(root)) {
        return "";
    }
    if (!posix::StartDetached({program})) {
        return "The program " + program + " is not there.";
    }
    return WaitUntil([&] { return FindReminderService(root).has_value(); }) ? ""
                                                                            : "The reminder service did not start.";
}

std::string StopAtLogin(const files::DeviceRoot& root) {
    posix::LoginEntry entry;
    if (!entry.SwitchOff()) {
        return WhyNotWritten(entry);
    }
    const std::optional<pid_t> service = FindReminderService(root);
    if (service && !EndService(root, *service)) {
        return "The running reminder service cannot be ended.";
    }
    return "";
}

std::optional<pid_t> FindReminderService(const files::DeviceRoot& root) {
    const posix::FileDescriptor lock(open((root.RunFolder() + "/RSound.lock").c_str(), O_RDWR | O_CLOEXEC));

    struct flock holder {};

    holder.l_type = F_WRLCK;
    holder.l_whence = SEEK_SET;
    const bool asked = lock && fcntl(lock.Get(), F_GETLK, &holder) == 0;
    return asked && holder.l_type != F_UNLCK && holder.l_pid > 0 ? std::optional(holder.l_pid) : std::nullopt;
}

} // namespace tavo::tools
