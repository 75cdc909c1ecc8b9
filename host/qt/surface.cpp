// Turning what the program draws into steps, and finding those that change something.
#include "host/qt/surface.h"

#include "host/shell/straight_line.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tavo::qt {
namespace {

QRgb ToPixel(Color color) {
    return qRgb(color.Red(), color.Green(), color.Blue());
}

std::uint64_t TakeNextNumber() {
    static std::uint64_t last = 0;
    return ++last;
}

QRect Cover(const std::vector<DrawStep>& steps, std::size_t from, std::size_t to) {
    QRect covered;
    for (std::size_t i = from; i < to; ++i) {
        covered |= steps[i].Covers;
    }
    return covered;
}

// Outside of this rectangle the same steps leave their traces in the same order.
QRect FindDifference(const std::vector<DrawStep>& one, const std::vector<DrawStep>& other) {
    const std::size_t most = std::min(one.size(), other.size());
    std::size_t before = 0;
    while (before < most && one[before] == other[before]) {
        ++before;
    }
    std::size_t after = 0;
    while (after < most - before && one[one.size() - 1 - after] == other[other.size() - 1 - after]) {
        ++after;
    }
    return Cover(one, before, one.size() - after) | Cover(other, before, other.size() - after);
}

} // namespace

Surface::Surface(Size size, Scale scale, Fonts& fonts, Pictures& pictures)
    : LogicalSize(size), PixelScale(scale), OwnFonts(fonts), OwnPictures(pictures), OwnNumber(TakeNextNumber()),
      OwnCanvas({std::max(1, scale.Edge(size.Width)), std::max(1, scale.Edge(size.Height))}, scale, pictures),
      Changed(OwnCanvas.WholeArea()) {}

void Surface::Take(DrawStep step) {
    step.Covers &= OwnCanvas.WholeArea();
    if (step.Covers.isEmpty()) {
        return;
    }
    if (std::holds_alternative<FillStep>(step.What) && step.Covers == OwnCanvas.WholeArea()) {
        Awaited.clear(); // nobody will see them
        Awaited.push_back(std::move(step));
    } else if (!Awaited.empty()) {
        Awaited.push_back(std::move(step));
    } else {
        OwnCanvas.Draw(step, step.Covers);
        Changed |= step.Covers;
        Shown.clear();
    }
}

void Surface::Settle() const {
    if (Awaited.empty()) {
        return;
    }
    const QRect area = Shown.empty() ? OwnCanvas.WholeArea() : FindDifference(Shown, Awaited);
    if (OwnPictures.HasBegun()) {
        for (const DrawStep& step : Awaited) {
            Canvas::Prepare(step);
        }
    }
    for (const DrawStep& step : Awaited) {
        OwnCanvas.Draw(step, area);
    }
    Changed |= area;
    Shown = std::exchange(Awaited, {});
}

const QImage& Surface::Image() const {
    Settle();
    return OwnCanvas.Image();
}

QRect Surface::TakeChanged() const {
    Settle();
    return std::exchange(Changed, QRect());
}

void Surface::TakeFill(const QRect& pixels, Color color) {
    Take({pixels, FillStep{ToPixel(color)}});
}

void Surface::FillRect(const Rect& area, Color color) {
    TakeFill(PixelScale.Edges(area), color);
}

void Surface::DrawLine(Point from, Point to, const Pen& pen) {
    const int width = std::max(1, pen.Width);
    if (from == to) {
        return;
    }
    if (from.X == to.X || from.Y == to.Y) {
        QRect covered = PixelScale.Edges(shell::CoverStraightLine(from, to, width));
        if (width == 1) { // all lines of a grid are equally thick, wherever their edges would be rounded to
            const int thickness = std::max(1, PixelScale.Edge(1));
            from.Y == to.Y ? covered.setHeight(thickness) : covered.setWidth(thickness);
        }
        TakeFill(covered, pen.Ink);
        return;
    }
    const int reach = width + 2;
    const Rect touched{std::min(from.X, to.X) - reach, std::min(from.Y, to.Y) - reach, std::max(from.X, to.X) + reach,
                       std::max(from.Y, to.Y) + reach};
    Take({PixelScale.Edges(touched), LineStep{from, to, width, ToPixel(pen.Ink)}});
}

void Surface::DrawTextW(std::u16string_view text, const Rect& area, const TextStyle& style) {
    std::shared_ptr<Font> font = OwnFonts.Share(style.Font);
    if (font == nullptr || text.empty() || area.IsEmpty()) {
        return;
    }
    Take({PixelScale.Edges(area),
          TextStep{std::move(font), std::u16string(text), area, ToPixel(style.Ink), style.Format}});
}

void Surface::DrawBitmap(int bitmap, Point at, const Rect& source) {
    const QRect target = PixelScale.Edges(Rect::FromSize(at.X, at.Y, source.Width(), source.Height()));
    if (!OwnPictures.Has(bitmap)) {
        return;
    }
    if (!Awaited.empty()) {
        OwnPictures.Begin(bitmap, source, target.size()); // ready, or nearly, when all of the new picture is drawn
    }
    Take({target, PictureStep{bitmap, source, target}});
}

} // namespace tavo::qt
