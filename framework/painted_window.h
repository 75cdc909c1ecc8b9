// Base class of everything that paints itself on an off-screen surface: pages, painted dialogs, item lists.
#pragma once

#include "framework/window.h"

#include <memory>
#include <vector>

namespace tavo {

// Keeps the off-screen surface, makes it anew when the scale changes, and brings it to the screen in one piece.
class CPaintedWindow : public CWindow {
  public:
    CPaintedWindow(CMessagePump& pump, Size surfaceSize);

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    // What paints onto the surface now: the surface, made when there is none.
    ISurface& Surface();

    // Declares what was painted; kept until the next DropPainted.
    void Declare(PaintedItem item) { Painted.push_back(std::move(item)); }

    void DropPainted() { Painted.clear(); }

    // Copies the surface to the window together with what was declared.
    void PresentSurface();

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
