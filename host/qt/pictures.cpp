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

QString PathOf(int bitmap) {
    return QStringLiteral(":/pictures/bitmap_%1.svg").arg(bitmap);
}

// Null when there is none that can be read.
std::unique_ptr<QSvgRenderer> LoadPicture(int bitmap) {
    const QString path = PathOf(bitmap);
    if (!QFile::exists(path)) {
        return nullptr;
    }
    auto renderer = std::make_unique<QSvgRenderer>(path);
    return renderer->isValid() ? std::move(renderer) : nullptr;
}

QImage RenderPart(QSvgRenderer& renderer, const Rect& source, QSize size) {
    if (size.isEmpty()) {
        return {};
    }
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    // Each part is rendered to its own edges, so neighbouring cells of a strip never bleed into each other.
    renderer.setViewBox(QRectF(source.Left, source.Top, source.Width(), source.Height()));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(QPointF(), QSizeF(size)));
    painter.end();
    if (IsOpaque(image)) {
        image.reinterpretAsFormat(QImage::Format_RGB32); // copied instead of blended
    }
    return image;
}

} // namespace

Pictures::Key Pictures::KeyOf(int bitmap, const Rect& source, QSize size) {
    return {bitmap, source.Left, source.Top, source.Right, source.Bottom, size.width(), size.height()};
}

QSvgRenderer* Pictures::Load(int bitmap) {
    if (const auto known = Loaded.find(bitmap); known != Loaded.end()) {
        return known->second.get();
    }
    return Loaded.emplace(bitmap, LoadPicture(bitmap)).first->second.get();
}

bool Pictures::Has(int bitmap) {
    const auto [known, isNew] = Present.try_emplace(bitmap, false);
    if (isNew) {
        known->second = QFile::exists(PathOf(bitmap));
    }
    return known->second;
}

void Pictures::Begin(int bitmap, const Rect& source, QSize size) {
    const Key key = KeyOf(bitmap, source, size);
    if (Rendered.contains(key) || Begun.contains(key)) {
        return;
    }
    // A renderer of its own: those that stay belong to the thread of the windows.
    const auto render = [bitmap, source, size, before = LastBegun] {
        if (before.valid()) {
            before.wait();
        }
        const std::unique_ptr<QSvgRenderer> renderer = LoadPicture(bitmap);
        return renderer == nullptr ? QImage() : RenderPart(*renderer, source, size);
    };
    // Where no thread can be had it is rendered when it is asked for.
    LastBegun = std::async(std::launch::async | std::launch::deferred, render).share();
    Begun.emplace(key, LastBegun);
}

const QImage& Pictures::Render(int bitmap, const Rect& source, QSize size) {
    const Key key = KeyOf(bitmap, source, size);
    if (const auto known = Rendered.find(key); known != Rendered.end()) {
        return known->second;
    }
    if (const auto begun = Begun.find(key); begun != Begun.end()) {
        const std::shared_future<QImage> image = begun->second;
        Begun.erase(begun);
        return Rendered.emplace(key, image.get()).first->second;
    }
    QSvgRenderer* renderer = Load(bitmap);
    return Rendered.emplace(key, renderer == nullptr ? QImage() : RenderPart(*renderer, source, size)).first->second;
}

} // namespace tavo::qt
