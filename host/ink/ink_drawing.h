// Ink as a picture of lines, for programs that know nothing of ink.
#pragma once

#include "host/ink/stroke.h"

#include <cstdint>
#include <span>
#include <string>

namespace tavo::ink {

// An SVG document as large as what the strokes cover. Without strokes an empty one.
std::string DrawAsSvg(std::span<const PlacedStroke> strokes);
// Likewise, of the bytes of ink; "" when they cannot be read.
std::string DrawAsSvg(std::span<const std::uint8_t> bytes);

} // namespace tavo::ink
