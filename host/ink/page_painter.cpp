// Stroke by stroke over the ruled paper.
#include "host/ink/page_painter.h"

#include "platform/ink.h"

#include <algorithm>
#include <cmath>

namespace tavo::ink {
namespace {

constexpr Pixel kWhite = ToPixel(Color::FromRgb(255, 255, 255));
constexpr Pixel kYellow = ToPixel(Color::FromRgb(255, 250, 205));
constexpr Pixel kRule = ToPixel(Color::FromRgb(200, 216, 236));
constexpr Pixel kSelectionMark = ToPixel(Color::FromRgb(168, 208, 255));
constexpr double kRuleDistance = 16 * kTicksPerPixel;
constexpr int kDotDistance = 4; // of a dotted line, in lines' thickness

class Ruler {
  public:
    Ruler(Picture& picture, const PixelBox& area, const PixelScale& scale)
        : Target(picture), Area(area), Scale(scale),
          Thickness(std::max(1, static_cast<int>(std::lround(kTicksPerPixel * Scale.PixelsPerTick * 0.6)))) {}

    void RuleAcross(bool dotted) const {
        ForEachLine(Scale.Top, Area.Top, Area.Bottom, [&](int y) {
            if (!dotted) {
                Fill({Area.Left, y, Area.Right, y + Thickness});
                return;
            }
            const int step = kDotDistance * Thickness;
            const int origin = static_cast<int>(std::lround(Scale.Left * Scale.PixelsPerTick));
            for (int x = (Area.Left + origin) / step * step - origin; x < Area.Right; x += step) {
                Fill({x, y, x + Thickness, y + Thickness});
            }
        });
    }

    void RuleDown() const {
        ForEachLine(Scale.Left, Area.Left, Area.Right, [&](int x) { Fill({x, Area.Top, x + Thickness, Area.Bottom}); });
    }

  private:
    template <class Draw> void ForEachLine(double corner, int from, int to, const Draw& draw) const {
        const double first = (corner + (from - Thickness) / Scale.PixelsPerTick) / kRuleDistance;
        for (auto line = std::max(1LL, std::llround(std::floor(first)));; ++line) {
            const double place = (static_cast<double>(line) * kRuleDistance - corner) * Scale.PixelsPerTick;
            if (place >= to) {
                return;
            }
            draw(static_cast<int>(std::lround(place)));
        }
    }

    void Fill(const PixelBox& box) const { Target.Fill(box.Cut(Area), kRule); }

    Picture& Target;
    PixelBox Area;
    PixelScale Scale;
    int Thickness;
};

} // namespace

void PagePainter::PaintPaper(Picture& picture, const PixelBox& area, int pageStyle, const PixelScale& scale) {
    const PixelBox inside = area.Cut(picture.Whole());
    if (inside.IsEmpty()) {
        return;
    }
    picture.Fill(inside, (pageStyle & kInkStyleYellow) != 0 ? kYellow : kWhite);
    const Ruler ruler(picture, inside, scale);
    if ((pageStyle & (kInkStyleRuled | kInkStyleGrid | kInkStyleDotted)) != 0) {
        ruler.RuleAcross((pageStyle & (kInkStyleRuled | kInkStyleGrid)) == 0);
    }
    if ((pageStyle & kInkStyleGrid) != 0) {
        ruler.RuleDown();
    }
}

void PagePainter::CoverLine(float wider, const PixelBox& area) {
    Nib before = Line.front();
    before.Radius += wider;
    for (Nib nib : Line) {
        nib.Radius += wider;
        Mask.AddLine(before, nib, area);
        before = nib;
    }
}

void PagePainter::PaintStroke(Picture& picture, const PixelBox& area, const PlacedStroke& stroke,
                              const PixelScale& scale) {
    const double reach = kSelectionReach * kTicksPerPixel * scale.PixelsPerTick;
    PixelBox box = PixelsOf(stroke.Bounds.Grown(stroke.Selected ? kSelectionReach * kTicksPerPixel : 0), scale);
    box = box.Cut(area).Cut(picture.Whole());
    if (box.IsEmpty()) {
        return;
    }
    ShapeStroke(stroke, scale, Line);
    if (stroke.Selected) {
        CoverLine(static_cast<float>(reach), box);
        picture.Blend(box, kSelectionMark, Mask);
        Mask.Clear(box);
    }
    CoverLine(0, box);
    picture.Blend(box, ToPixel(kPenColors[static_cast<std::size_t>(stroke.Body->Tool.Color)]), Mask);
    Mask.Clear(box);
}

void PagePainter::Paint(Picture& picture, const PixelBox& area, std::span<const PlacedStroke> strokes, int pageStyle,
                        const PixelScale& scale) {
    PaintPaper(picture, area, pageStyle, scale);
    for (const PlacedStroke& stroke : strokes) {
        PaintStroke(picture, area, stroke, scale);
    }
}

} // namespace tavo::ink
