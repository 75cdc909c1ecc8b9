// Characters as people see them: a letter with its marks, a joined emoji.
#pragma once

#include <cstddef>
#include <string_view>

namespace tavo::bare {

// Where the character that begins at `start`, which lies within the text, ends; in UTF-16 units.
std::size_t FindCharacterEnd(std::u16string_view text, std::size_t start);

} // namespace tavo::bare
