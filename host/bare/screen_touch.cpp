// Who gets the stylus.
#include "host/bare/screen_touch.h"

#include "host/bare/control_touch.h"
#include "host/bare/popup.h"
#include "host/shell/chrome/chrome.h"

#include <utility>

namespace tavo::bare {

namespace {

// An open list or menu goes away with a tap beside it, which does nothing else; but from one menu of the bar the stylus
// goes to the next.
bool ClosesSomething(BareHost& host, Point screen) {
    shell::Chrome& chrome = host.Chrome();
    if (host.State.Menus.BarMenu.has_value()) {
        return chrome.PartAt(screen) != &chrome.Menus || !chrome.Menus.CanPress(screen);
    }
    return host.State.Menus.Tracked.has_value() || host.State.OpenList != WindowHandle::None;
}

} // namespace

void ScreenTouch::Down(Point screen) {
    PressesPopup = Open != nullptr && Open->Bounds().Contains(screen);
    if (PressesPopup) {
        return;
    }
    Part = ClosesSomething(Host, screen) ? nullptr : Host.Chrome().PartAt(screen);
    if (Part != nullptr) {
        Part->Down(screen);
        return;
    }
    Control = Host.Stylus.Down(screen);
    PressControl(Host, Control, screen);
}

void ScreenTouch::Move(Point screen) {
    if (PressesPopup) {
        return;
    }
    if (Part != nullptr) {
        Part->Move(screen);
        return;
    }
    Host.Stylus.Move(screen);
    MoveOnControl(Host, Control, screen);
}

void ScreenTouch::Up(Point screen) {
    if (std::exchange(PressesPopup, false)) {
        Open->Tap(screen);
        return;
    }
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

} // namespace tavo::bare
