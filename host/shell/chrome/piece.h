// What the device's own chrome is drawn with. A host paints a part's pieces one after the other, and knows no more of
// it.
#pragma once

#include "host/shell/chrome/text_placement.h"

#include <variant>

namespace tavo::shell {

// 0xAARRGGBB, not premultiplied.
using Argb = std::uint32_t;

// The fonts of the chrome, all of the face kChromeFace.
enum class ChromeFont { Caption, Button, Plain, Small };

constexpr int kChromeFontCount = 4;
constexpr std::u16string_view kChromeFace = u"Arial";

struct ChromeFontSize {
    int Height = 0; // as in LogFont
    int Weight = 0;
};

// By the number of the font.
constexpr ChromeFontSize kChromeFontSizes[kChromeFontCount] = {{-14, 700}, {-13, 700}, {-13, 400}, {-11, 400}};

// The fonts as the host has them.
class IChromeFonts {
  public:
    virtual ~IChromeFonts() = default;
    virtual ITextFace& Find(ChromeFont font) = 0;
};

// Between the pixels: (3, 5) is the middle of that logical pixel.
struct Spot {
    double X = 0;
    double Y = 0;
    friend bool operator==(const Spot&, const Spot&) = default;
};

// With sharp edges: x lies at round(x * scale).
struct FillPiece {
    Rect Area;
    Argb Ink = 0;
    friend bool operator==(const FillPiece&, const FillPiece&) = default;
};

// All that follow are smooth. Lengths are logical.
struct RoundedFillPiece {
    Rect Area;
    double Radius = 0;
    Argb Ink = 0;
    friend bool operator==(const RoundedFillPiece&, const RoundedFillPiece&) = default;
};

// An edge of one logical pixel, in whole real ones, within the area.
struct FramePiece {
    Rect Area;
    double Radius = 0;
    Argb Ink = 0;
    friend bool operator==(const FramePiece&, const FramePiece&) = default;
};

// With round ends.
struct LinePiece {
    Spot From;
    Spot To;
    double Width = 1;
    Argb Ink = 0;
    friend bool operator==(const LinePiece&, const LinePiece&) = default;
};

// Filled, and its corners rounded by a line of this width.
struct PolygonPiece {
    std::vector<Spot> Corners;
    double Width = 1;
    Argb Ink = 0;
    friend bool operator==(const PolygonPiece&, const PolygonPiece&) = default;
};

// Cut at the area.
struct TextPiece {
    ChromeFont Font = ChromeFont::Plain;
    std::vector<PlacedLine> Lines;
    Rect Area;
    Argb Ink = 0;
    friend bool operator==(const TextPiece&, const TextPiece&) = default;
};

// The part `Source` of the picture with this resource number.
struct PicturePiece {
    int Bitmap = 0;
    Point At;
    Rect Source;
    double Opacity = 1;
    friend bool operator==(const PicturePiece&, const PicturePiece&) = default;
};

using Piece = std::variant<FillPiece, RoundedFillPiece, FramePiece, LinePiece, PolygonPiece, TextPiece, PicturePiece>;
using Pieces = std::vector<Piece>;

enum class TextAlign { Left, Centre };

// On one line, in the middle of the height.
TextPiece MakeLine(IChromeFonts& fonts, ChromeFont font, std::u16string_view text, const Rect& area, Argb ink,
                   TextAlign align);
// Whole words on as many lines as it takes.
TextPiece MakeParagraph(IChromeFonts& fonts, ChromeFont font, std::u16string_view text, const Rect& area, Argb ink);

} // namespace tavo::shell
