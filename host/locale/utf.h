// Conversion between UTF-8, which files and other programs speak, and the program's UTF-16.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavo::locale {

// What cannot be said in the other form (half a surrogate pair, malformed bytes) becomes U+FFFD, one for each fault.
std::string ToUtf8(std::u16string_view text);
std::u16string ToUtf16(std::string_view bytes);

// The character at `at`, which moves behind it; U+FFFD for each fault. There must be one.
char32_t TakeCharacter(std::string_view bytes, std::size_t& at);
void AppendCharacter(std::string& bytes, char32_t point);

// Nothing unless the way back gives the very same text.
std::optional<std::string> ToUtf8Exactly(std::u16string_view text);
std::optional<std::u16string> ToUtf16Exactly(std::string_view bytes);

} // namespace tavo::locale
