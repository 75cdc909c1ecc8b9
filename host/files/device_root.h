// Where the device's folders lie on this machine.
#pragma once

#include <optional>
#include <string>
#include <utility>

namespace tavo::files {

// The variables that decide about the place; an empty one counts as not set.
struct RootEnvironment {
    std::string TavoHome;    // TAVO_HOME: the root itself
    std::string XdgDataHome; // XDG_DATA_HOME: the root is "tavocalendar" in it; passed over unless absolute
    std::string Home;        // HOME: the root is ".local/share/tavocalendar" in it

    static RootEnvironment OfProcess();
};

// The device's root: an existing folder, by its absolute path without symbolic links.
class DeviceRoot {
  public:
    const std::string& Path() const { return RootPath; }

    std::string StorePath() const { return RootPath + "/Outlook.db"; }

    std::string RegistryPath() const { return RootPath + "/Registry.txt"; }

    std::string RunFolder() const { return RootPath + "/Run"; } // locks and requests between processes

    std::string DocumentsFolder() const { return RootPath + "/My Documents"; }

    std::string WindowsFolder() const { return RootPath + "/Windows"; }

  private:
    friend struct RootResult OpenDeviceRoot(const RootEnvironment& environment);

    explicit DeviceRoot(std::string path) : RootPath(std::move(path)) {}

    std::string RootPath;
};

struct RootResult {
    std::optional<DeviceRoot> Root;
    std::string Problem; // without a root: one sentence for a person, saying what is wrong and what helps
};

// Finds the root and makes what is missing of it and its folders, for the user alone (0700).
RootResult OpenDeviceRoot(const RootEnvironment& environment);

} // namespace tavo::files
