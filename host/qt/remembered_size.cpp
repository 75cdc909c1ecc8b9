// One line of text: width and height in the toolkit's pixels.
#include "host/qt/remembered_size.h"

#include "host/posix/replace_file.h"

#include <sstream>
#include <vector>

namespace tavo::qt {
namespace {

constexpr std::size_t kLongestFile = 100;

std::string PathIn(const std::string& root) {
    return root + "/Window.txt";
}

} // namespace

QSize ReadRememberedSize(const std::string& root) {
    std::vector<std::uint8_t> bytes;
    if (posix::ReadFile(PathIn(root), kLongestFile, bytes) != ErrorCode::Success) {
        return {};
    }
    std::istringstream text(std::string(bytes.begin(), bytes.end()));
    int width = 0;
    int height = 0;
    return text >> width >> height ? QSize(width, height) : QSize();
}

void RememberSize(const std::string& root, QSize size) {
    if (size == ReadRememberedSize(root)) {
        return;
    }
    const std::string text = std::to_string(size.width()) + " " + std::to_string(size.height()) + "\n";
    const std::vector<std::uint8_t> bytes(text.begin(), text.end());
    static_cast<void>(posix::ReplaceFile(PathIn(root), bytes)); // the next start chooses a size by itself
}

} // namespace tavo::qt
