// Reading digits.
#include "edit/leading_number.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace tavo {

namespace {

constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kEnough = -kLowest; // further digits change nothing

bool IsDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

} // namespace

std::int32_t LeadingNumber(std::u16string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(u" \t"), text.size()));
    const bool negative = !text.empty() && text.front() == u'-';
    if (negative || (!text.empty() && text.front() == u'+')) {
        text.remove_prefix(1);
    }
    std::int64_t number = 0;
    for (std::size_t index = 0; index < text.size() && IsDigit(text[index]); ++index) {
        number = std::min(number * 10 + (text[index] - u'0'), kEnough);
    }
    return static_cast<std::int32_t>(std::clamp(negative ? -number : number, kLowest, kHighest));
}

std::optional<std::int32_t> WholeNumber(std::u16string_view text, std::int32_t minimum, std::int32_t maximum) {
    if (text.empty() || !std::all_of(text.begin(), text.end(), IsDigit)) {
        return std::nullopt;
    }
    const std::int32_t number = LeadingNumber(text);
    if (number < minimum || number > maximum) {
        return std::nullopt;
    }
    return number;
}

} // namespace tavo
