// Loading and rendering of the pictures.
#include "host/qt/pictures.h"

#include <QFile>
#include <QPainter>

#include <algorithm>

namespace tavo::qt {
namespace {

bool IsOpaque(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        if (!std::all_of(row, row + image.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; })) {
            return false;
        }
    }
    return true;
}

} // namespace

QSvgRenderer* Pictures::Load(int bitmap) {
    if (const auto known = Loaded.find(bitmap); known != Loaded.end()) {
        return known->second.get();
    }
    const QString path = QStringLiteral(":/pictures/bitmap_%1.svg").arg(bitmap);
    std::unique_ptr<QSvgRenderer> renderer;
    if (QFile::exists(path)) {
        renderer = std::make_unique<QSvgRenderer>(path);
        if (!renderer->isValid()) {
            renderer.reset();
        }
    }
    return Loaded.emplace(bitmap, std::move(renderer)).first->second.get();
}

QSize Pictures::SizeOf(int bitmap) {
    const QSvgRenderer* renderer = Load(bitmap);
    return renderer == nullptr ? QSize() : renderer->defaultSize();
}

const QImage& Pictures::Render(int bitmap, const Rect& source, QSize size) {
    const Key key{bitmap, source.Left, source.Top, source.Right, source.Bottom, size.width(), size.height()};
    if (const auto known = Rendered.find(key); known != Rendered.end()) {
        return known->second;
    }
    QImage image;
    QSvgRenderer* renderer = Load(bitmap);
    if (renderer != nullptr && !size.isEmpty()) {
        image = QImage(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        // Each part is rendered to its own edges, so neighbouring cells of a strip never bleed into each other.
        renderer->setViewBox(QRectF(source.Left, source.Top, source.Width(), source.Height()));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer->render(&painter, QRectF(QPointF(), QSizeF(size)));
        painter.end();
        if (IsOpaque(image)) {
            image.reinterpretAsFormat(QImage::Format_RGB32); // copied instead of blended
        }
    }
    return Rendered.emplace(key, std::move(image)).first->second;
}

} // namespace tavo::qt
