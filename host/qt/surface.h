// An off-screen picture at the resolution of the screen.
#pragma once

#include "host/qt/fonts.h"
#include "host/qt/pictures.h"
#include "host/qt/scale.h"
#include "platform/drawing.h"

#include <QImage>
#include <QPainter>

#include <cstdint>

namespace tavo::qt {

class Surface final : public ISurface {
  public:
    Surface(Size size, Scale scale, Fonts& fonts, Pictures& pictures);

    Size GetSize() const override { return LogicalSize; }

    void FillRect(const Rect& area, Color color) override;
    void DrawLine(Point from, Point to, const Pen& pen) override;
    void DrawTextW(std::u16string_view text, const Rect& area, const TextStyle& style) override;
    void DrawBitmap(int bitmap, Point at, const Rect& source) override;

    // May be kept as long as wished: further drawing leaves kept copies as they are. Null while nothing but white was
    // drawn.
    const QImage& Image() const;

    const Scale& GetScale() const { return PixelScale; }

    // Tells this surface from every other one that was made.
    std::uint64_t Number() const { return OwnNumber; }

    // What was drawn on since the last call, in real pixels.
    QRect TakeChanged() const;

  private:
    void MakeOwn();

    QRect WholeArea() const { return {QPoint(), PixelSize}; }

    void Fill(QRect pixels, std::uint32_t color);
    QPainter& Painter();
    void MarkChanged(const QRect& pixels);

    Size LogicalSize;
    Scale PixelScale;
    Fonts& OwnFonts;
    Pictures& OwnPictures;
    QSize PixelSize;
    QImage Pixels; // made with the first drawing
    // Begun once, because beginning costs more than most things that are drawn; an image that is painted on cannot be
    // shared, so whoever looks at it ends it.
    mutable QPainter OpenPainter;
    std::uint64_t OwnNumber;
    mutable QRect Changed; // seen by whoever shows the surface; not part of what it looks like
};

} // namespace tavo::qt
