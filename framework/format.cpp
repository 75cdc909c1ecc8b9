// The formatting itself: one conversion at a time.
#include "framework/format.h"

#include <algorithm>
#include <cstddef>

namespace tavo {

namespace {

struct Conversion {
    bool PadWithZeros = false;
    std::size_t Width = 0;
    char16_t Type = 0; // 0 when the pattern ends within the conversion
};

// Takes what follows a percent sign from the front of the pattern.
Conversion TakeConversion(std::u16string_view& pattern) {
    Conversion conversion;
    if (pattern.starts_with(u'0')) {
        conversion.PadWithZeros = true;
    }
    while (!pattern.empty() && pattern.front() >= u'0' && pattern.front() <= u'9') {
        conversion.Width = conversion.Width * 10 + static_cast<std::size_t>(pattern.front() - u'0');
        pattern.remove_prefix(1);
    }
    while (pattern.starts_with(u'l')) {
        pattern.remove_prefix(1);
    }
    if (!pattern.empty()) {
        conversion.Type = pattern.front();
        pattern.remove_prefix(1);
    }
    return conversion;
}

std::u16string NumberText(std::int64_t number, const Conversion& conversion) {
    const bool isNegative = number < 0;
    std::uint64_t magnitude = static_cast<std::uint64_t>(number);
    if (isNegative) {
        magnitude = 0 - magnitude; // as unsigned, so that the lowest number has a magnitude too
    }
    std::u16string digits;
    do {
        digits.insert(digits.begin(), static_cast<char16_t>(u'0' + magnitude % 10));
        magnitude /= 10;
    } while (magnitude != 0);
    const std::u16string sign = isNegative ? u"-" : u"";
    const std::size_t length = sign.size() + digits.size();
    const std::size_t padding = std::max(conversion.Width, length) - length;
    if (conversion.PadWithZeros) {
        return sign + std::u16string(padding, u'0') + digits;
    }
    return std::u16string(padding, u' ') + sign + digits;
}

} // namespace

std::u16string FormatArguments(std::u16string_view pattern, std::initializer_list<FormatArgument> arguments) {
    std::u16string result;
    auto argument = arguments.begin();
    while (!pattern.empty()) {
        const char16_t character = pattern.front();
        pattern.remove_prefix(1);
        if (character != u'%') {
            result += character;
            continue;
        }
        const Conversion conversion = TakeConversion(pattern);
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
