// Text from outside for a small screen.
#pragma once

#include <cstddef>
#include <string>

namespace tavo::exchange {

constexpr std::size_t kLongestName = 48; // of a file

// One harmless line of at most so many units, and "..." where that is not all.
std::u16string ShortenForPeople(const std::string& text, std::size_t longest);

} // namespace tavo::exchange
