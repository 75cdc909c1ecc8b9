// Making and removing the folder.
#include "tests/qt/temporary_root.h"

#include "host/posix/root_folder.h"

#include <cstdlib>
#include <stdexcept>

namespace tavo::qt {

TemporaryRoot::TemporaryRoot() {
    std::string name = (std::filesystem::temp_directory_path() / "tavo-qt-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    Folder = name;
}

TemporaryRoot::~TemporaryRoot() {
    std::error_code ignored; // what is left is in the temporary folder
    std::filesystem::remove_all(Folder, ignored);
}

files::DeviceRoot TemporaryRoot::Open() const {
    posix::RootEnvironment environment;
    environment.TavoHome = Folder.string();
    return posix::OpenDeviceRoot(environment).Root.value();
}

} // namespace tavo::qt
