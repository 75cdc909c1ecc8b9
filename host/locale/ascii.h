// Names of protocols and files, whose letters are those of ASCII.
#pragma once

#include <algorithm>
#include <string_view>

namespace tavo::locale {

constexpr char ToUpperAscii(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

// All other characters have no case.
constexpr bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin(),
                                                     [](char a, char b) { return ToUpperAscii(a) == ToUpperAscii(b); });
}

} // namespace tavo::locale
