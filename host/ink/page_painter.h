// Paints paper and ink into a picture.
#pragma once

#include "host/ink/page.h"
#include "host/ink/picture.h"
#include "host/ink/stroke_shape.h"

#include <span>
#include <vector>

namespace tavo::ink {

// How far the mark around a selected stroke reaches beyond the ink, in pixels of zoom 100.
constexpr int kSelectionReach = 2;

class PagePainter {
  public:
    // The picture's size.
    void Resize(int width, int height) { Mask.Resize(width, height); }

    // White or yellow, with the lines that the page style asks for.
    static void PaintPaper(Picture& picture, const PixelBox& area, int pageStyle, const PixelScale& scale);
    void PaintStroke(Picture& picture, const PixelBox& area, const PlacedStroke& stroke, const PixelScale& scale);
    // Both; of the strokes those that meet the area.
    void Paint(Picture& picture, const PixelBox& area, std::span<const PlacedStroke> strokes, int pageStyle,
               const PixelScale& scale);

  private:
    void CoverLine(float wider, const PixelBox& area);

    CoverageMask Mask; // empty between strokes
    std::vector<Nib> Line;
};

} // namespace tavo::ink
