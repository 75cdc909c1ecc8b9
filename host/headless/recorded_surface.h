// A surface that writes down what is drawn on it.
#pragma once

#include "host/headless/recorded_drawing.h"

#include <utility>

namespace tavo::headless {

class RecordedSurface : public ISurface {
  public:
    RecordedSurface(Size size, const RecordedDrawing& drawing) : OwnPicture(size), Drawing(drawing) {}

    Size GetSize() const override { return OwnPicture.GetSize(); }

    void FillRect(const Rect& area, Color color) override;
    void DrawLine(Point from, Point to, const Pen& pen) override;
    void DrawTextW(std::u16string_view text, const Rect& area, const TextStyle& style) override;
    void DrawBitmap(int bitmap, Point at, const Rect& source) override;

    const PixelPicture& Picture() const { return OwnPicture; }

    // The calls since the last time.
    Transcript TakeCalls() const { return std::exchange(Calls, {}); }

  private:
    PixelPicture OwnPicture;
    const RecordedDrawing& Drawing;
    mutable Transcript Calls; // taken by whoever presents the surface; not part of what it looks like
};

} // namespace tavo::headless
