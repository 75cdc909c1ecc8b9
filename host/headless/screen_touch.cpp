// Who gets the stylus.
#include "host/headless/screen_touch.h"

#include "host/headless/control_touch.h"
#include "host/shell/chrome/chrome.h"

#include <utility>

namespace tavo::headless {

void ScreenTouch::Down(Point screen) {
    Part = Host.Chrome().PartAt(screen);
    if (Part != nullptr) {
        Part->Down(screen);
        return;
    }
    Control = Host.Stylus.Down(screen);
    PressControl(Host, Control, screen);
}

void ScreenTouch::Move(Point screen) {
    if (Part != nullptr) {
        Part->Move(screen);
        return;
    }
    Host.Stylus.Move(screen);
    MoveOnControl(Host, Control, screen);
}

void ScreenTouch::Up(Point screen) {
    if (Part != nullptr) {
        std::exchange(Part, nullptr)->Up(screen);
        return;
    }
    Host.Stylus.Up(screen);
    ReleaseControl(Host, Control, screen);
    const WindowHandle control = std::exchange(Control, WindowHandle::None);
    if (control != WindowHandle::None && Host.State.TakesInput(control) &&
        Host.State.Tree.ScreenBounds(control).Contains(screen)) {
        TapControl(Host, control, screen);
    }
}

} // namespace tavo::headless
