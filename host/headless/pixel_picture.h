// A small picture of plain fills and straight lines, with the texts and bitmaps that lie on it remembered by name.
#pragma once

#include "platform/drawing.h"

#include <optional>
#include <string>
#include <vector>

namespace tavo::headless {

// A text or bitmap that nothing was drawn over since.
struct Placed {
    Rect Area;
    std::u16string Text; // empty for bitmaps
    int Bitmap = 0;      // 0 for texts
    Rect Source;         // of bitmaps: which part
    Color Ink;           // of texts
    friend bool operator==(const Placed&, const Placed&) = default;
};

// Nothing is painted when it is made. Bitmaps and slanted lines leave the pixels as they are; what lies wholly within a
// later fill or bitmap is forgotten.
class PixelPicture {
  public:
    explicit PixelPicture(Size size);

    Size GetSize() const { return Extent; }

    // Nothing where no fill or straight line was, and outside.
    std::optional<Color> At(Point point) const;
    void Fill(const Rect& area, Color color);
    // A straight line of an odd width lies evenly around the pixels from `from` to before `to`; an even one reaches one
    // pixel further up and left.
    void Line(Point from, Point to, const Pen& pen);
    void Place(Placed placed);

    const std::vector<Placed>& Visible() const { return OnTop; }

  private:
    void Cover(const Rect& area);

    Size Extent;
    std::vector<std::optional<Color>> Pixels;
    std::vector<Placed> OnTop;
};

} // namespace tavo::headless
