// printf-style formatting of UTF-16 text.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tavo {

// One argument of FormatText: a text or an integer.
class FormatArgument {
  public:
    FormatArgument(std::u16string_view text) : Text(text) {}

    FormatArgument(const std::u16string& text) : Text(text) {}

    FormatArgument(const char16_t* text) : Text(text) {}

    FormatArgument(std::integral auto number) : Number(static_cast<std::int64_t>(number)) {}

    std::u16string_view Text;
    std::int64_t Number = 0;
};

std::u16string FormatArguments(std::u16string_view pattern, std::initializer_list<FormatArgument> arguments);

// Knows %s, %d, %ld, %u with an optional zero and width (%02d), and %%. A conversion without an argument left gives
// nothing; text arguments must outlive the call only.
template <class... Arguments> std::u16string FormatText(std::u16string_view pattern, const Arguments&... arguments) {
    return FormatArguments(pattern, {FormatArgument(arguments)...});
}

} // namespace tavo
