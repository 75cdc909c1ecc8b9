// Text of a calendar file as the store keeps it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavo::exchange {

// UTF-8 to UTF-16, line ends as line feeds. Text that is not UTF-8 is old and read as Latin-1, so no letter is lost.
std::u16string DecodeText(std::string_view text);

// A text as it was before the file's escapes: "\\n" is a line end, and before "\\", ";", "," and a quotation mark the
// sign says that they are meant. Before anything else it stands for itself.
std::string RemoveEscapes(std::string_view text);

// The texts of a list, still with their escapes: an escaped comma parts nothing.
std::vector<std::string_view> SplitTexts(std::string_view list);

} // namespace tavo::exchange
