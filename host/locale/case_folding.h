// Comparing names without case.
#pragma once

#include <string>
#include <string_view>

namespace tavo::locale {

// Simple Unicode case folding, one unit to one unit, of the Latin, Greek, Cyrillic, Armenian and full-width letters.
char16_t FoldCase(char16_t unit);
std::u16string FoldCase(std::u16string_view text);
bool EqualWithoutCase(std::u16string_view left, std::u16string_view right);

} // namespace tavo::locale
