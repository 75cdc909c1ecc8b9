// The short way for texts that are ASCII, as most are, in any conversion between UTF-8 and UTF-16.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace tavo::locale {

// Makes `taken` of what the text begins with as long as it is ASCII, with room for as many units as the text has; says
// how many it took.
template <class From, class To> std::size_t TakePlain(std::basic_string_view<From> text, std::basic_string<To>& taken) {
    const auto end = std::find_if(text.begin(), text.end(), [](From unit) { return (unit & ~0x7F) != 0; });
    taken.reserve(text.size());
    taken.resize(static_cast<std::size_t>(end - text.begin()));
    std::transform(text.begin(), end, taken.begin(), [](From unit) { return static_cast<To>(unit); });
    return taken.size();
}

} // namespace tavo::locale
