// Drawing on the off-screen picture.
#include "host/qt/surface.h"

#include "host/qt/text_placement.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tavo::qt {
namespace {

constexpr QRgb kWhitePixel = 0xFFFFFFFF;

QRgb ToPixel(Color color) {
    return qRgb(color.Red(), color.Green(), color.Blue());
}

std::uint64_t TakeNextNumber() {
    static std::uint64_t last = 0;
    return ++last;
}

// What a straight line covers, in logical pixels: without its end when it is thin, with square ends otherwise.
Rect CoverStraightLine(Point from, Point to, int width) {
    const int before = (width - 1) / 2;
    const int after = width - before;
    if (from == to) {
        return {};
    }
    int left = std::min(from.X, to.X);
    int top = std::min(from.Y, to.Y);
    int right = std::max(from.X, to.X);
    int bottom = std::max(from.Y, to.Y);
    if (width == 1) {
        const int shiftX = to.X < from.X ? 1 : 0;
        const int shiftY = to.Y < from.Y ? 1 : 0;
        return from.Y == to.Y ? Rect{left + shiftX, top, right + shiftX, top + 1}
                              : Rect{left, top + shiftY, left + 1, bottom + shiftY};
    }
    return {left - before, top - before, right + after, bottom + after};
}

} // namespace

Surface::Surface(Size size, Scale scale, Fonts& fonts, Pictures& pictures)
    : LogicalSize(size), PixelScale(scale), OwnFonts(fonts), OwnPictures(pictures),
      PixelSize(std::max(1, scale.Edge(size.Width)), std::max(1, scale.Edge(size.Height))), OwnNumber(TakeNextNumber()),
      Changed(WholeArea()) {}

const QImage& Surface::Image() const {
    if (OpenPainter.isActive()) {
        OpenPainter.end();
    }
    return Pixels;
}

// Before drawing: whoever keeps a copy of the picture keeps what it was.
void Surface::MakeOwn() {
    if (Pixels.isNull()) {
        Pixels = QImage(PixelSize, QImage::Format_RGB32);
        Pixels.fill(Qt::white);
    } else if (!OpenPainter.isActive()) {
        Pixels.detach();
    }
}

QPainter& Surface::Painter() {
    if (!OpenPainter.isActive()) {
        MakeOwn();
        OpenPainter.begin(&Pixels);
    }
    return OpenPainter;
}

void Surface::MarkChanged(const QRect& pixels) {
    Changed |= pixels & WholeArea();
}

QRect Surface::TakeChanged() const {
    return std::exchange(Changed, QRect());
}

void Surface::Fill(QRect pixels, std::uint32_t color) {
    pixels &= WholeArea();
    const bool isStillWhite = Pixels.isNull() && color == kWhitePixel;
    if (pixels.isEmpty() || isStillWhite) {
        return;
    }
    MakeOwn();
    // Asked for once: every call that hands out pixels to write on looks whether they are shared.
    const qsizetype stride = Pixels.bytesPerLine() / static_cast<qsizetype>(sizeof(std::uint32_t));
    std::uint32_t* row = reinterpret_cast<std::uint32_t*>(Pixels.bits()) + pixels.top() * stride + pixels.left();
    for (int y = pixels.top(); y <= pixels.bottom(); ++y, row += stride) {
        std::fill_n(row, pixels.width(), color);
    }
    MarkChanged(pixels);
}

void Surface::FillRect(const Rect& area, Color color) {
    Fill(PixelScale.Edges(area), ToPixel(color));
}

void Surface::DrawLine(Point from, Point to, const Pen& pen) {
    const int width = std::max(1, pen.Width);
    if (from.X == to.X || from.Y == to.Y) {
        QRect covered = PixelScale.Edges(CoverStraightLine(from, to, width));
        if (width == 1) { // all lines of a grid are equally thick, wherever their edges would be rounded to
            const int thickness = std::max(1, PixelScale.Edge(1));
            from.Y == to.Y ? covered.setHeight(thickness) : covered.setWidth(thickness);
        }
        Fill(from == to ? QRect() : covered, ToPixel(pen.Ink));
        return;
    }
    QPainter& painter = Painter();
    painter.setClipping(false);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(QColor(ToPixel(pen.Ink)), width * PixelScale.Factor, Qt::SolidLine, Qt::RoundCap));
    const QPointF start = QPointF(from.X + 0.5, from.Y + 0.5) * PixelScale.Factor;
    const QPointF end = QPointF(to.X + 0.5, to.Y + 0.5) * PixelScale.Factor;
    painter.drawLine(start, end);
    painter.setRenderHint(QPainter::Antialiasing, false);
    const int reach = static_cast<int>(width * PixelScale.Factor) + 2;
    MarkChanged(QRectF(start, end).normalized().toAlignedRect().adjusted(-reach, -reach, reach, reach));
}

void Surface::DrawTextW(std::u16string_view text, const Rect& area, const TextStyle& style) {
    Font* font = OwnFonts.Find(style.Font);
    if (font == nullptr || text.empty() || area.IsEmpty()) {
        return;
    }
    QPainter& painter = Painter();
    const QRect cut = PixelScale.Edges(area);
    painter.setClipRect(cut);
    painter.setPen(QColor(ToPixel(style.Ink)));
    for (const PlacedLine& line : PlaceText(*font, text, area, style.Format)) {
        const ShapedText& shaped = font->Shape(line.Text);
        font->Draw(painter, shaped, QPointF(PixelScale.Edge(line.Left), PixelScale.Edge(line.Baseline)), PixelScale);
        if (line.Underlined >= 0) {
            const auto marked = static_cast<std::size_t>(line.Underlined);
            const double start = marked == 0 ? 0.0 : shaped.Ends[marked - 1];
            const Rect under{line.Left + static_cast<int>(start), line.Baseline + 1,
                             line.Left + static_cast<int>(shaped.Ends[marked]), line.Baseline + 2};
            Fill(PixelScale.Edges(under) & cut, ToPixel(style.Ink));
        }
    }
    MarkChanged(cut);
}

void Surface::DrawBitmap(int bitmap, Point at, const Rect& source) {
    const QRect target = PixelScale.Edges(Rect::FromSize(at.X, at.Y, source.Width(), source.Height()));
    const QImage& picture = OwnPictures.Render(bitmap, source, target.size());
    if (picture.isNull()) {
        return;
    }
    QPainter& painter = Painter();
    painter.setClipping(false);
    painter.drawImage(target.topLeft(), picture);
    MarkChanged(target);
}

} // namespace tavo::qt
