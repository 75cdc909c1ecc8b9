// Runs the command `tavo` as a person would, on a device of its own.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tavo::tools {

struct CommandResult {
    int Status = -1; // the exit status; -1 when a signal ended it
    std::string Output;
    std::string Errors;
    long PeakKilobytes = 0; // of memory
    double Seconds = 0;     // of processor time
};

// A device in a temporary folder, gone with this object. The device's zone is Europe/Berlin.
class CommandDevice {
  public:
    CommandDevice();
    ~CommandDevice();
    CommandDevice(const CommandDevice&) = delete;
    CommandDevice& operator=(const CommandDevice&) = delete;

    CommandResult Run(const std::vector<std::string>& words) const;
    // Starts the command and does not wait: its process.
    int Start(const std::vector<std::string>& words) const;

    // Writes a calendar file of these events' lines, and gives its path.
    std::string WriteCalendar(const std::string& name, const std::string& events) const;
    std::string WriteFile(const std::string& name, const std::string& bytes) const;

    std::filesystem::path Home() const { return Folder / "home"; }

    std::filesystem::path StorePath() const { return Home() / "Outlook.db"; }

    std::filesystem::path TagPath() const { return Home() / "My Documents" / "TavoCalendar" / "TavoCalendar.dat"; }

    std::filesystem::path Place(const std::string& name) const { return Folder / name; }

    // The environment of the commands; an empty value takes the variable away.
    std::map<std::string, std::string> Environment;
    std::string Input = "/dev/null"; // what their standard input is

  private:
    std::filesystem::path Folder;
};

std::string ReadWhole(const std::filesystem::path& path);

} // namespace tavo::tools
