// Where the lines of a text go in a rectangle, by the device's DT_ bits. All in logical pixels.
#pragma once

#include "host/shell/chrome/text_face.h"
#include "platform/geometry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavo::shell {

struct PlacedLine {
    std::u16string Text;
    int Left = 0;
    int Baseline = 0;
    int Underlined = -1; // the character marked by "&", or -1
    friend bool operator==(const PlacedLine&, const PlacedLine&) = default;
};

// "Open" for "&Open".
std::u16string TakeMarksOut(std::u16string_view text);

std::vector<PlacedLine> PlaceText(ITextFace& font, std::u16string_view text, const Rect& area, std::uint32_t format);

} // namespace tavo::shell
