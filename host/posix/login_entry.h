// What the desktop starts at login for the reminders: an entry of its own kind in the person's settings.
#pragma once

#include <filesystem>
#include <string>

namespace tavo::posix {

class LoginEntry {
  public:
    // Of this process's environment.
    LoginEntry();

    // Empty without a home folder.
    const std::filesystem::path& Path() const { return Place; }

    // Whether somebody has decided already: switched on or off, here or with the desktop's own means.
    bool IsDecided() const;
    // Whether an entry can name this path: it is text without control characters.
    static bool CanName(const std::string& path);
    // The program is started for the device's root; an empty one is the ordinary root. False when it cannot be written,
    // and nothing is written when it cannot name both.
    bool SwitchOn(const std::string& program, const std::string& root);
    // Stays as an entry that says so: the next start of the calendar must not switch it on again.
    bool SwitchOff();

  private:
    bool Write(const std::string& lines);

    std::filesystem::path Place;
};

} // namespace tavo::posix
