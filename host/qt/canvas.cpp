// Carrying out drawing steps, pixel by pixel or by the toolkit's painter.
#include "host/qt/canvas.h"

#include "host/qt/font.h"
#include "host/qt/text_placement.h"

#include <algorithm>

namespace tavo::qt {
namespace {

constexpr QRgb kWhitePixel = 0xFFFFFFFF;

} // namespace

const QImage& Canvas::Image() {
    if (OpenPainter.isActive()) {
        OpenPainter.end();
    }
    return Pixels;
}

// Before drawing: whoever keeps a copy of the picture keeps what it was.
void Canvas::MakeOwn() {
    if (Pixels.isNull()) {
        Pixels = QImage(PixelSize, QImage::Format_RGB32);
        Pixels.fill(Qt::white);
    } else if (!OpenPainter.isActive()) {
        Pixels.detach();
    }
}

QPainter& Canvas::Painter(const QRect& area) {
    if (!OpenPainter.isActive()) {
        MakeOwn();
        OpenPainter.begin(&Pixels);
    }
    OpenPainter.setClipRect(area);
    return OpenPainter;
}

void Canvas::Fill(const QRect& pixels, QRgb color) {
    const bool isStillWhite = Pixels.isNull() && color == kWhitePixel;
    if (pixels.isEmpty() || isStillWhite) {
        return;
    }
    MakeOwn();
    // Asked for once: every call that hands out pixels to write on looks whether they are shared.
    const qsizetype stride = Pixels.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    QRgb* row = reinterpret_cast<QRgb*>(Pixels.bits()) + pixels.top() * stride + pixels.left();
    for (int y = pixels.top(); y <= pixels.bottom(); ++y, row += stride) {
        std::fill_n(row, pixels.width(), color);
    }
}

void Canvas::Draw(const DrawStep& step, const QRect& area) {
    const QRect changed = step.Covers & area;
    if (!changed.isEmpty()) {
        std::visit([&](const auto& what) { Put(what, changed); }, step.What);
    }
}

void Canvas::Put(const FillStep& step, const QRect& area) {
    Fill(area, step.Color);
}

void Canvas::Put(const LineStep& step, const QRect& area) {
    QPainter& painter = Painter(area);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(QColor(step.Color), step.Width * PixelScale.Factor, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(step.From.X + 0.5, step.From.Y + 0.5) * PixelScale.Factor,
                     QPointF(step.To.X + 0.5, step.To.Y + 0.5) * PixelScale.Factor);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void Canvas::Put(const TextStep& step, const QRect& area) {
    QPainter& painter = Painter(area);
    painter.setPen(QColor(step.Color));
    for (const PlacedLine& line : PlaceText(*step.Face, step.Text, step.Area, step.Format)) {
        const ShapedText& shaped = step.Face->Shape(line.Text);
        step.Face->Draw(painter, shaped, QPointF(PixelScale.Edge(line.Left), PixelScale.Edge(line.Baseline)),
                        PixelScale);
        if (line.Underlined >= 0) {
            const auto marked = static_cast<std::size_t>(line.Underlined);
            const double start = marked == 0 ? 0.0 : shaped.Ends[marked - 1];
            const Rect under{line.Left + static_cast<int>(start), line.Baseline + 1,
                             line.Left + static_cast<int>(shaped.Ends[marked]), line.Baseline + 2};
            Fill(PixelScale.Edges(under) & area, step.Color);
        }
    }
}

void Canvas::Put(const PictureStep& step, const QRect& area) {
    const QImage& picture = OwnPictures.Render(step.Bitmap, step.Source, step.Target.size());
    if (!picture.isNull()) {
        Painter(area).drawImage(step.Target.topLeft(), picture);
    }
}

} // namespace tavo::qt
