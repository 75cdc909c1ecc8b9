// The entry as desktops read it.
#include "host/posix/login_entry.h"

#include "host/locale/harmless_text.h"
#include "host/posix/replace_file.h"

#include <cstdlib>
#include <vector>

namespace tavo::posix {

namespace {

constexpr const char* kFolder = "autostart";
constexpr const char* kName = "tavocalendar-reminders.desktop";

std::filesystem::path FindPlace() {
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config != nullptr && *config == '/') {
        return std::filesystem::path(config) / kFolder / kName;
    }
    const char* home = std::getenv("HOME");
    return home == nullptr || *home == '\0' ? std::filesystem::path()
                                            : std::filesystem::path(home) / ".config" / kFolder / kName;
}

// As the desktop reads a command: in quotes, with what is special in them marked by a backslash; per cent signs
// doubled. Every backslash stands twice, since the file's own reading comes first.
std::string QuoteCommand(const std::string& path) {
    std::string quoted = "\"";
    for (const char letter : path) {
        if (letter == '"' || letter == '`' || letter == '$' || letter == '\\') {
            quoted += "\\\\";
        }
        quoted += letter;
        if (letter == '%' || letter == '\\') {
            quoted += letter;
        }
    }
    return quoted + '"';
}

} // namespace

LoginEntry::LoginEntry() : Place(FindPlace()) {}

bool LoginEntry::IsDecided() const {
    std::error_code error;
    return Place.empty() || std::filesystem::exists(Place, error) || error;
}

bool LoginEntry::CanName(const std::string& path) {
    return locale::IsHarmless(path);
}

bool LoginEntry::SwitchOn(const std::string& program, const std::string& root) {
    if (!CanName(program) || !CanName(root)) {
        return false;
    }
    const std::string device = root.empty() ? "" : "env " + QuoteCommand("TAVO_HOME=" + root) + ' ';
    return Write("Exec=" + device + QuoteCommand(program) + "\nX-GNOME-Autostart-enabled=true\n");
}

bool LoginEntry::SwitchOff() {
    return Write("Hidden=true\n");
}

bool LoginEntry::Write(const std::string& lines) {
    if (Place.empty()) {
        return false;
    }
    std::error_code error;
    std::filesystem::create_directories(Place.parent_path(), error); // without it, writing fails
    const std::string text = "[Desktop Entry]\nType=Application\nName=Tavo Calendar Reminders\n"
                             "Comment=Shows the reminders of Tavo Calendar\nIcon=tavocalendar\nNoDisplay=true\n" +
                             lines;
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    return ReplaceFile(Place.string(), bytes) == ErrorCode::Success;
}

} // namespace tavo::posix
