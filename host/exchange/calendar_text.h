// Text of a calendar file as the store keeps it.
#pragma once

#include <string>
#include <string_view>

namespace tavo::exchange {

// UTF-8 to UTF-16, line ends as line feeds. Text that is not UTF-8 is old and read as Latin-1, so no letter is lost.
std::u16string DecodeText(std::string_view text);

} // namespace tavo::exchange
