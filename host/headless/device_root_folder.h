// The folder that holds a scripted device's files.
#pragma once

#include <filesystem>

namespace tavo::headless {

class DeviceRootFolder {
  public:
    // An existing folder, which stays; or, when the path is empty, a temporary one that goes with this object.
    explicit DeviceRootFolder(const std::filesystem::path& existing);
    ~DeviceRootFolder();
    DeviceRootFolder(const DeviceRootFolder&) = delete;
    DeviceRootFolder& operator=(const DeviceRootFolder&) = delete;

    const std::filesystem::path& Path() const { return Root; }

  private:
    std::filesystem::path Root;
    bool IsTemporary = false;
};

} // namespace tavo::headless
