// One recorded call on a surface.
#pragma once

#include "platform/drawing.h"

#include <string>
#include <vector>

namespace tavo::headless {

enum class DrawKind { Fill, Line, Text, Bitmap };

struct DrawCall {
    DrawKind Kind = DrawKind::Fill;
    Rect Area;           // of fills and texts; of bitmaps where it lies
    Point From;          // of lines
    Point To;            // of lines
    Color Ink;           // of all but bitmaps
    int PenWidth = 0;    // of lines
    std::u16string Text; // of texts
    std::string Font;    // of texts: "Arial -14 700", with a fourth number for a width of its own
    unsigned Format = 0; // of texts: DT_ bits
    int Bitmap = 0;      // of bitmaps
    Rect Source;         // of bitmaps: the part of the picture
    friend bool operator==(const DrawCall&, const DrawCall&) = default;
};

using Transcript = std::vector<DrawCall>;

// One line of text for goldens and failure messages, in UTF-8: "fill 0,0,240,267 #FFFFFF".
std::string ToText(const DrawCall& call);
std::string ToText(const Transcript& transcript);

} // namespace tavo::headless
