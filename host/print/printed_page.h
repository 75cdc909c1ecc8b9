// A page as it is to be drawn on paper: what lies where. In points, 72 to the inch, from the upper left corner.
#pragma once

#include "host/ink/stroke.h"
#include "platform/geometry.h"

#include <string>
#include <vector>

namespace tavo::print {

struct Box {
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;

    double Right() const { return Left + Width; }

    double Bottom() const { return Top + Height; }
};

enum class Alignment { Left, Center, Right };

// One line, shortened with dots where it is wider than its box, in whose middle it stands.
struct PrintedText {
    Box Place;
    std::u16string Text;
    int Size = 10; // of the letters, in points
    bool IsBold = false;
    Color Ink = Color::FromRgb(0, 0, 0);
    Alignment Align = Alignment::Left;
};

// Filled, without a rim; of lines too.
struct PrintedArea {
    Box Place;
    Color Ink = Color::FromRgb(0, 0, 0);
};

// As large as its box lets it be.
struct PrintedInk {
    Box Place;
    std::vector<ink::PlacedStroke> Strokes;
};

struct PrintedPage {
    std::vector<PrintedArea> Areas; // below the rest
    std::vector<PrintedText> Texts;
    std::vector<PrintedInk> Inks;
};

} // namespace tavo::print
