// An entry of the desktop's own kind, and the companion's lock to find it by.
#include "tools/login_start.h"

#include "host/files/device_processes.h"
#include "host/files/file_descriptor.h"
#include "host/files/replace_file.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <vector>

namespace tavo::tools {

namespace {

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

} // namespace

std::string StartAtLogin(const files::DeviceRoot&) {
    const std::string program = files::RunningProgramFolder() + "/RSound";
    const std::filesystem::path entry = EntryPath();
    if (entry.empty()) {
        return "There is no home folder to put the entry into.";
    }
    std::error_code error;
    std::filesystem::create_directories(entry.parent_path(), error);
    const std::string text = "[Desktop Entry]\nType=Application\nName=Tavo Calendar Reminders\n"
                             "Comment=Shows the reminders of Tavo Calendar\nExec=" +
                             QuoteCommand(program) +
                             "\nIcon=tavocalendar\nNoDisplay=true\nX-GNOME-Autostart-enabled=true\n";
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    if (files::ReplaceFile(entry, bytes) != ErrorCode::Success) {
        return "The entry " + entry.string() + " cannot be written.";
    }
    return files::StartDetached({program}) ? "" : "The program " + program + " is not there.";
}

std::string StopAtLogin(const files::DeviceRoot& root) {
    std::error_code error;
    std::filesystem::remove(EntryPath(), error);
    if (error) {
        return "The entry " + EntryPath().string() + " cannot be removed.";
    }
    const files::FileDescriptor lock(open((root.RunFolder() + "/RSound.lock").c_str(), O_RDWR | O_CLOEXEC));

    struct flock holder {};

    holder.l_type = F_WRLCK;
    holder.l_whence = SEEK_SET;
    if (lock && fcntl(lock.Get(), F_GETLK, &holder) == 0 && holder.l_type != F_UNLCK && holder.l_pid > 0 &&
        kill(holder.l_pid, SIGTERM) != 0 && errno != ESRCH) {
        return "The running reminder service cannot be ended.";
    }
    return "";
}

} // namespace tavo::tools
