// Texts are UTF-16 towards the program and UTF-8 in the store file; lone surrogates survive the round trip.
#pragma once

#include <string>
#include <string_view>

namespace tavo::outlook {

std::string ToUtf8(std::u16string_view text);
std::u16string ToUtf16(std::string_view text);

} // namespace tavo::outlook
