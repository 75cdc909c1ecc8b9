// Addresses as file managers and browsers hand them over: file:///home/ann/my%20calendar.ics
#include "tools/file_word.h"

#include "host/locale/ascii.h"

namespace tavo::tools {
namespace {

constexpr std::string_view kScheme = "file://";
constexpr std::string_view kThisMachine = "localhost";

// 0 to 15; -1 for what is no digit.
int ReadDigit(char letter) {
    if (letter >= '0' && letter <= '9') {
        return letter - '0';
    }
    const char small = static_cast<char>(letter | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

bool Decode(std::string_view coded, std::string& path) {
    for (std::size_t place = 0; place < coded.size(); ++place) {
        if (coded[place] != '%') {
            path += coded[place];
            continue;
        }
        const int high = place + 2 < coded.size() ? ReadDigit(coded[place + 1]) : -1;
        const int low = place + 2 < coded.size() ? ReadDigit(coded[place + 2]) : -1;
        if (high < 0 || low < 0 || (high == 0 && low == 0)) {
            return false;
        }
        path += static_cast<char>(high * 16 + low);
        place += 2;
    }
    return true;
}

} // namespace

std::optional<std::string> ReadPath(std::string_view word, std::string& error) {
    if (!locale::EqualsIgnoringCase(word.substr(0, kScheme.size()), kScheme)) {
        return std::string(word);
    }
    std::string_view rest = word.substr(kScheme.size());
    if (locale::EqualsIgnoringCase(rest.substr(0, kThisMachine.size()), kThisMachine)) {
        rest.remove_prefix(kThisMachine.size());
    }
    std::string path;
    if (!rest.starts_with('/')) {
        error = "\"" + std::string(word) + "\" names a file of another machine.";
        return std::nullopt;
    }
    if (!Decode(rest, path)) {
        error = "\"" + std::string(word) + "\" is no address of a file: behind % stand two digits.";
        return std::nullopt;
    }
    return path;
}

} // namespace tavo::tools
