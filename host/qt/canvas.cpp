// Carrying out drawing steps, pixel by pixel or by the toolkit's painter.
#include "host/qt/canvas.h"

#include "host/ink/picture.h"
#include "host/ink/round_line.h"
#include "host/qt/font.h"
#include "host/shell/chrome/text_placement.h"

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

Canvas::Rows Canvas::WritableRows() {
    MakeOwn();
    // Asked for once: every call that hands out pixels to write on looks whether they are shared.
    return {reinterpret_cast<QRgb*>(Pixels.bits()), Pixels.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb))};
}

void Canvas::Fill(const QRect& pixels, QRgb color) {
    const bool isStillWhite = Pixels.isNull() && color == kWhitePixel;
    if (pixels.isEmpty() || isStillWhite) {
        return;
    }
    const Rows rows = WritableRows();
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        std::fill_n(rows.First + y * rows.Stride + pixels.left(), pixels.width(), color);
    }
}

void Canvas::Prepare(const DrawStep& step) {
    if (const auto* text = std::get_if<TextStep>(&step.What)) {
        for (const shell::PlacedLine& line : PlaceText(*text->Face, text->Text, text->Area, text->Format)) {
            static_cast<void>(text->Face->Shape(line.Text));
        }
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

// By the distance from the line, as ink is drawn: the toolkit's strokes take ten times as long, and a clock draws seven
// of them with every tick.
void Canvas::Put(const LineStep& step, const QRect& area) {
    const auto toNib = [&](const Point& place) {
        return ink::Nib{static_cast<float>((place.X + 0.5) * PixelScale.Factor),
                        static_cast<float>((place.Y + 0.5) * PixelScale.Factor),
                        static_cast<float>(step.Width * PixelScale.Factor / 2)};
    };
    const ink::RoundLine line(toNib(step.From), toNib(step.To));
    const ink::PixelBox box =
        line.Bounds().Cut({area.left(), area.top(), area.left() + area.width(), area.top() + area.height()});
    if (box.IsEmpty()) {
        return;
    }
    const Rows rows = WritableRows();
    for (int y = box.Top; y < box.Bottom; ++y) {
        QRgb* const pixels = rows.First + y * rows.Stride;
        const ink::PixelBox row = line.CutRow(box, y);
        for (int x = row.Left; x < row.Right; ++x) {
            pixels[x] = ink::MixPixels(pixels[x], step.Color, line.ShareOf(x, y));
        }
    }
}

void Canvas::Put(const TextStep& step, const QRect& area) {
    QPainter& painter = Painter(area);
    painter.setPen(QColor(step.Color));
    for (const shell::PlacedLine& line : PlaceText(*step.Face, step.Text, step.Area, step.Format)) {
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
