// Names of protocols and files, whose letters are those of ASCII.
#pragma once

#include <algorithm>
#include <cstddef>
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

// Without the blanks and tabs at both ends.
constexpr std::string_view TrimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

} // namespace tavo::locale
