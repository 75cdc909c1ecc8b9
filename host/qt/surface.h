// An off-screen picture at the resolution of the screen.
#pragma once

#include "host/qt/canvas.h"
#include "host/qt/draw_step.h"
#include "host/qt/fonts.h"
#include "host/qt/pictures.h"
#include "host/qt/scale.h"
#include "platform/drawing.h"

#include <cstdint>
#include <vector>

namespace tavo::qt {

// What is drawn after a fill of the whole surface is a new picture, and is kept as steps until somebody looks. Only
// where its steps differ from those of the picture before it is anything done then: a clock's tick draws a whole face
// and changes little of it. Everything else is drawn at once.
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
    void Take(DrawStep step);
    void TakeFill(const QRect& pixels, Color color);
    void Settle() const;

    Size LogicalSize;
    Scale PixelScale;
    Fonts& OwnFonts;
    Pictures& OwnPictures;
    std::uint64_t OwnNumber;
    // Not part of what the surface looks like: how far the drawing has come, and what whoever shows it has seen.
    mutable Canvas OwnCanvas;
    mutable std::vector<DrawStep> Awaited; // of a new picture; empty when there is none
    mutable std::vector<DrawStep> Shown;   // made the canvas what it is; empty when more than them did
    mutable QRect Changed;
};

} // namespace tavo::qt
