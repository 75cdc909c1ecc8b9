// An entry of the desktop's own kind, and the companion's lock to find it by.
#include "tools/login_start.h"

#include "host/files/device_processes.h"
#include "host/files/file_descriptor.h"
#include "host/files/replace_file.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <thread>
#include <vector>

namespace tavo::tools {

namespace {

constexpr std::chrono::seconds kPatience{10};
constexpr std::chrono::milliseconds kBetweenLooks{10};
constexpr const char* kEntryName = "tavocalendar-reminders.desktop";

std::filesystem::path EntryPath() {
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config != nullptr && *config == '/') {
        return std::filesystem::path(config) / "autostart" / kEntryName;
    }
    const char* home = std::getenv("HOME");
    return home == nullptr || *home == '\0' ? std::filesystem::path()
                                            : std::filesystem::path(home) / ".config" / "autostart" / kEntryName;
}

// As the desktop reads a command: in quotes, with what is special in them marked; per cent signs doubled.
std::string QuoteCommand(const std::string& path) {
    std::string quoted = "\"";
    for (const char letter : path) {
        if (letter == '"' || letter == '`' || letter == '$' || letter == '\\') {
            quoted += "\\\\";
        }
        quoted += letter;
        if (letter == '%') {
            quoted += '%';
        }
    }
    return quoted + '"';
}

// A session does not know where a terminal was told that the device is.
std::string WriteCommand(const files::DeviceRoot& root, const std::string& program) {
    const char* home = std::getenv("TAVO_HOME");
    const bool isElsewhere = home != nullptr && *home != '\0';
    return (isElsewhere ? "env " + QuoteCommand("TAVO_HOME=" + root.Path()) + ' ' : "") + QuoteCommand(program);
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

} // namespace

std::string StartAtLogin(const files::DeviceRoot& root) {
    const std::string program = files::RunningProgramFolder() + "/RSound";
    const std::filesystem::path entry = EntryPath();
    if (entry.empty()) {
        return "There is no home folder to put the entry into.";
    }
    std::error_code error;
    std::filesystem::create_directories(entry.parent_path(), error);
    const std::string text = "[Desktop Entry]\nType=Application\nName=Tavo Calendar Reminders\n"
                             "Comment=Shows the reminders of Tavo Calendar\nExec=" +
                             WriteCommand(root, program) +
                             "\nIcon=tavocalendar\nNoDisplay=true\nX-GNOME-Autostart-enabled=true\n";
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    if (files::ReplaceFile(entry, bytes) != ErrorCode::Success) {
        return "The entry " + entry.string() + " cannot be written.";
    }
    if (!files::StartDetached({program})) {
        return "The program " + program + " is not there.";
    }
    return WaitUntil([&] { return FindReminderService(root).has_value(); }) ? ""
                                                                            : "The reminder service did not start.";
}

std::string StopAtLogin(const files::DeviceRoot& root) {
    std::error_code error;
    std::filesystem::remove(EntryPath(), error);
    if (error) {
        return "The entry " + EntryPath().string() + " cannot be removed.";
    }
    const std::optional<pid_t> service = FindReminderService(root);
    if (service && !EndService(root, *service)) {
        return "The running reminder service cannot be ended.";
    }
    return "";
}

std::optional<pid_t> FindReminderService(const files::DeviceRoot& root) {
    const files::FileDescriptor lock(open((root.RunFolder() + "/RSound.lock").c_str(), O_RDWR | O_CLOEXEC));

    struct flock holder {};

    holder.l_type = F_WRLCK;
    holder.l_whence = SEEK_SET;
    const bool asked = lock && fcntl(lock.Get(), F_GETLK, &holder) == 0;
    return asked && holder.l_type != F_UNLCK && holder.l_pid > 0 ? std::optional(holder.l_pid) : std::nullopt;
}

} // namespace tavo::tools
