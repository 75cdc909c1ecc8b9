// Numbers out of typed text.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavo {

// The decimal number at the beginning of the text, after blanks and a sign; 0 when there is none. A number beyond 32
// bits becomes the nearest one that fits.
std::int32_t LeadingNumber(std::u16string_view text);

// The text as a whole, when it is nothing but digits and its number lies within the bounds.
std::optional<std::int32_t> WholeNumber(std::u16string_view text, std::int32_t minimum, std::int32_t maximum);

} // namespace tavo
