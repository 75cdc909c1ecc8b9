// The formatting itself: one conversion at a time.
#include "framework/format.h"

#include <cstddef>

namespace tavo {

namespace {

struct Conversion {
    bool PadWithZeros = false;
    std::size_t Width = 0;
    char16_t Type = 0; // 0 when the pattern ends within the conversion
};

// Reads from just behind the percent sign and moves `position` behind the conversion.
Conversion ReadConversion(std::u16string_view pattern, std::size_t& position) {
    Conversion conversion;
    if (position < pattern.size() && pattern[position] == u'0') {
        conversion.PadWithZeros = true;
        ++position;
    }
    while (position < pattern.size() && pattern[position] >= u'0' && pattern[position] <= u'9') {
        conversion.Width = conversion.Width * 10 + static_cast<std::size_t>(pattern[position] - u'0');
        ++position;
    }
    while (position < pattern.size() && pattern[position] == u'l') {
        ++position;
    }
    if (position < pattern.size()) {
        conversion.Type = pattern[position];
        ++position;
    }
    return conversion;
}

std::u16string NumberText(std::int64_t number, const Conversion& conversion) {
    // Negated as unsigned, so that the lowest number has a magnitude too.
    std::uint64_t magnitude = number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
    std::u16string digits;
    do {
        digits.insert(digits.begin(), static_cast<char16_t>(u'0' + magnitude % 10));
        magnitude /= 10;
    } while (magnitude != 0);
    const std::size_t signLength = number < 0 ? 1 : 0;
    const std::size_t length = digits.size() + signLength;
    const std::size_t padding = conversion.Width > length ? conversion.Width - length : 0;
    const std::u16string sign(signLength, u'-');
    if (conversion.PadWithZeros) {
        return sign + std::u16string(padding, u'0') + digits;
    }
    return std::u16string(padding, u' ') + sign + digits;
}

} // namespace

std::u16string FormatArguments(std::u16string_view pattern, std::initializer_list<FormatArgument> arguments) {
    std::u16string result;
    auto argument = arguments.begin();
    std::size_t position = 0;
    while (position < pattern.size()) {
        const char16_t character = pattern[position];
        ++position;
        if (character != u'%') {
            result += character;
            continue;
        }
        const Conversion conversion = ReadConversion(pattern, position);
        if (conversion.Type == u'%') {
            result += u'%';
        } else if (argument != arguments.end()) {
            result +=
                conversion.Type == u's' ? std::u16string(argument->Text) : NumberText(argument->Number, conversion);
            ++argument;
        }
    }
    return result;
}

} // namespace tavo
