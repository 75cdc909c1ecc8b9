// The off-screen surface and its way to the screen.
#include "framework/painted_window.h"

#include <utility>

namespace tavo {

CPaintedWindow::CPaintedWindow(CMessagePump& pump, Size surfaceSize) : CWindow(pump), SurfaceSize(surfaceSize) {}

const MessageMap& CPaintedWindow::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&CPaintedWindow::Paint>(WM_PAINT),
        On<&CPaintedWindow::RemakeSurface>(WM_DISPLAYCHANGE),
    };
    static const MessageMap map{entries, &CWindow::Messages()};
    return map;
}

ISurface& CPaintedWindow::Surface() {
    if (!OffScreen) {
        OffScreen = Host().Drawing().CreateCompatibleSurface(SurfaceSize);
    }
    return *OffScreen;
}

void CPaintedWindow::PresentSurface() {
    Host().Drawing().Present(Handle(), Surface(), Painted);
    FirstPaint = false;
}

void CPaintedWindow::RemakeSurface() {
    OffScreen.reset();
    FirstPaint = true;
    RepaintAll();
    Invalidate();
}

} // namespace tavo
