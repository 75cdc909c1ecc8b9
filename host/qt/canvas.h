// Puts drawing steps on an image.
#pragma once

#include "host/qt/draw_step.h"
#include "host/qt/pictures.h"
#include "host/qt/scale.h"

#include <QImage>
#include <QPainter>

namespace tavo::qt {

class Canvas {
  public:
    Canvas(QSize size, Scale scale, Pictures& pictures) : PixelScale(scale), OwnPictures(pictures), PixelSize(size) {}

    // Does what drawing the step needs and does not need the canvas, unless another thread does that already.
    static void Prepare(const DrawStep& step);

    // Changes nothing outside of `area`, which lies within the canvas.
    void Draw(const DrawStep& step, const QRect& area);

    // May be kept as long as wished: further drawing leaves kept copies as they are. Null while nothing but white was
    // drawn.
    const QImage& Image();

    QRect WholeArea() const { return {QPoint(), PixelSize}; }

  private:
    struct Rows {
        QRgb* First;
        qsizetype Stride; // from one to the next, pixels
    };

    void MakeOwn();
    Rows WritableRows();
    QPainter& Painter(const QRect& area);
    void Fill(const QRect& pixels, QRgb color);
    void Put(const FillStep& step, const QRect& area);
    void Put(const LineStep& step, const QRect& area);
    void Put(const TextStep& step, const QRect& area);
    void Put(const PictureStep& step, const QRect& area);

    Scale PixelScale;
    Pictures& OwnPictures;
    QSize PixelSize;
    QImage Pixels; // made with the first drawing
    // Begun once, because beginning costs more than most things that are drawn; an image that is painted on cannot be
    // shared, so whoever looks at it ends it.
    QPainter OpenPainter;
};

} // namespace tavo::qt
