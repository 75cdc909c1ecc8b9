// Where the device's folders lie in its root.
#pragma once

#include <string>
#include <utility>

namespace tavo::files {

// The device's root: an existing folder, by its absolute path without symbolic links.
class DeviceRoot {
  public:
    explicit DeviceRoot(std::string path) : RootPath(std::move(path)) {}

    const std::string& Path() const { return RootPath; }

    std::string StorePath() const { return RootPath + "/Outlook.db"; }

    std::string RegistryPath() const { return RootPath + "/Registry.txt"; }

    std::string RunFolder() const { return RootPath + "/Run"; } // locks and requests between processes

    std::string DocumentsFolder() const { return RootPath + "/My Documents"; }

    std::string WindowsFolder() const { return RootPath + "/Windows"; }

  private:
    std::string RootPath;
};

} // namespace tavo::files
