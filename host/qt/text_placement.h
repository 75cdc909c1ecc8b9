// Where the lines of a text go in a rectangle, by the device's DT_ bits. All in logical pixels.
#pragma once

#include "host/qt/font.h"
#include "platform/drawing.h"

#include <string>
#include <vector>

namespace tavo::qt {

struct PlacedLine {
    std::u16string Text;
    int Left = 0;
    int Baseline = 0;
    int Underlined = -1; // the character marked by "&", or -1
};

std::vector<PlacedLine> PlaceText(Font& font, std::u16string_view text, const Rect& area, std::uint32_t format);

} // namespace tavo::qt
