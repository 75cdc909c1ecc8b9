// Fills and straight lines, pixel by pixel.
#include "host/headless/pixel_picture.h"

#include "host/shell/straight_line.h"

#include <algorithm>
#include <utility>

namespace tavo::headless {

namespace {

bool LiesWithin(const Rect& inner, const Rect& outer) {
    return inner.Left >= outer.Left && inner.Top >= outer.Top && inner.Right <= outer.Right &&
           inner.Bottom <= outer.Bottom;
}

} // namespace

PixelPicture::PixelPicture(Size size)
    : Extent{std::max(size.Width, 0), std::max(size.Height, 0)},
      Pixels(static_cast<std::size_t>(Extent.Width) * static_cast<std::size_t>(Extent.Height)) {}

std::optional<Color> PixelPicture::At(Point point) const {
    if (!Rect::FromSize(0, 0, Extent.Width, Extent.Height).Contains(point)) {
        return std::nullopt;
    }
    return Pixels[static_cast<std::size_t>(point.Y) * static_cast<std::size_t>(Extent.Width) +
                  static_cast<std::size_t>(point.X)];
}

void PixelPicture::Fill(const Rect& area, Color color) {
    const Rect cut{std::max(area.Left, 0), std::max(area.Top, 0), std::min(area.Right, Extent.Width),
                   std::min(area.Bottom, Extent.Height)};
    for (int y = cut.Top; y < cut.Bottom; ++y) {
        for (int x = cut.Left; x < cut.Right; ++x) {
            Pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(Extent.Width) + static_cast<std::size_t>(x)] =
                color;
        }
    }
    Cover(area);
}

void PixelPicture::Line(Point from, Point to, const Pen& pen) {
    if (from != to && (from.X == to.X || from.Y == to.Y)) {
        Fill(shell::CoverStraightLine(from, to, std::max(pen.Width, 1)), pen.Ink);
    }
}

void PixelPicture::Place(Placed placed) {
    if (placed.Bitmap != 0) {
        Cover(placed.Area);
    }
    OnTop.push_back(std::move(placed));
}

void PixelPicture::Cover(const Rect& area) {
    std::erase_if(OnTop, [&](const Placed& placed) { return LiesWithin(placed.Area, area); });
}

} // namespace tavo::headless
