// Making and removing the folder.
#include "host/headless/device_root_folder.h"

#include <cstdlib>
#include <string>
#include <system_error>

namespace tavo::headless {

DeviceRootFolder::DeviceRootFolder(const std::filesystem::path& existing)
    : Root(existing), IsTemporary(existing.empty()) {
    if (!IsTemporary) {
        return;
    }
    std::string pattern = (std::filesystem::temp_directory_path() / "tavo-device-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "no temporary folder for the device");
    }
    Root = pattern;
    for (const char* folder : {"My Documents", "Windows", "Run"}) {
        std::filesystem::create_directory(Root / folder);
    }
}

DeviceRootFolder::~DeviceRootFolder() {
    if (IsTemporary) {
        std::error_code ignored; // nobody is left to be told
        std::filesystem::remove_all(Root, ignored);
    }
}

} // namespace tavo::headless
