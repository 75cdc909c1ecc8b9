// Base class of everything that paints itself on an off-screen surface: pages, painted dialogs, item lists.
#pragma once

#include "framework/window.h"

#include <memory>
#include <utility>
#include <vector>

namespace tavo {

// Keeps the off-screen surface, makes it anew when the scale changes, and brings it to the screen in one piece.
class CPaintedWindow : public CWindow {
  public:
    CPaintedWindow(CMessagePump& pump, Size surfaceSize);

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    // The off-screen surface; made, all white, on the first paint.
    ISurface& Surface();

    // Declares what was painted; kept until the next DropPainted.
    void Declare(PaintedItem item) { Painted.push_back(std::move(item)); }

    void DropPainted() { Painted.clear(); }

    // Copies the surface to the window together with what was declared, and ends the first paint.
    void PresentSurface();

    // Set at creation and when the scale changed: nothing painted before is on the surface.
    bool FirstPaint = true;

    // The surface is gone: set every repaint flag.
    virtual void RepaintAll() = 0;
    virtual void Paint() = 0;

  private:
    void RemakeSurface();

    Size SurfaceSize;
    std::unique_ptr<ISurface> OffScreen;
    std::vector<PaintedItem> Painted;
};

} // namespace tavo
