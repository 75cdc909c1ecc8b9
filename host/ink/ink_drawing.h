// Ink as a picture of lines, for programs that know nothing of ink.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tavo::ink {

// An SVG document as large as what the ink covers; "" when the bytes cannot be read.
std::string DrawAsSvg(std::span<const std::uint8_t> bytes);

} // namespace tavo::ink
