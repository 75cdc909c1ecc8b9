// A device root of its own for each test, gone with it.
#pragma once

#include "host/files/device_root.h"

#include <filesystem>
#include <string>

namespace tavo::qt {

class TemporaryRoot {
  public:
    TemporaryRoot();
    ~TemporaryRoot();
    TemporaryRoot(const TemporaryRoot&) = delete;
    TemporaryRoot& operator=(const TemporaryRoot&) = delete;

    files::DeviceRoot Open() const;

    const std::filesystem::path& Path() const { return Folder; }

  private:
    std::filesystem::path Folder;
};

} // namespace tavo::qt
