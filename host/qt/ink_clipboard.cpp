// Painting what was copied.
#include "host/qt/ink_clipboard.h"

#include "host/ink/page_painter.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace tavo::qt {
namespace {

constexpr double kCopyScale = 2;
constexpr int kMargin = 4 * ink::kTicksPerPixel;
constexpr int kMaxSide = 8192; // real pixels; larger ink is painted smaller

} // namespace

QImage PaintStrokes(const std::vector<ink::PlacedStroke>& strokes, double scale) {
    ink::Box box;
    for (const ink::PlacedStroke& stroke : strokes) {
        box = box.United(stroke.Bounds);
    }
    if (box.IsEmpty()) {
        return {};
    }
    box = box.Grown(kMargin);
    const int side = std::max(box.Width(), box.Height());
    ink::PixelScale place{std::min(scale / ink::kTicksPerPixel, static_cast<double>(kMaxSide) / side),
                          static_cast<double>(box.Left), static_cast<double>(box.Top)};
    ink::Picture picture;
    picture.Resize(std::max(1, static_cast<int>(std::lround(box.Width() * place.PixelsPerTick))),
                   std::max(1, static_cast<int>(std::lround(box.Height() * place.PixelsPerTick))));
    ink::PagePainter painter;
    painter.Resize(picture.Width(), picture.Height());
    for (const ink::PlacedStroke& stroke : strokes) {
        painter.PaintStroke(picture, picture.Whole(), stroke, place);
    }
    return QImage(reinterpret_cast<const uchar*>(picture.Row(0)), picture.Width(), picture.Height(),
                  QImage::Format_RGB32)
        .copy();
}

void CopyPicture(const std::vector<ink::PlacedStroke>& strokes) {
    QGuiApplication::clipboard()->setImage(PaintStrokes(strokes, kCopyScale));
}

} // namespace tavo::qt
