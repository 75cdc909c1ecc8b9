// From points of the screen to messages for windows.
#include "host/shell/stylus_input.h"

#include "host/shell/picker_input.h"

#include <utility>

namespace tavo::shell {

WindowHandle StylusInput::Down(Point screen) {
    Captured = WindowHandle::None;
    Pressed = NavigationButton::None;
    const WindowHandle hit = State.Tree.HitTest(screen);
    if (hit != State.Focus) {
        FinishPicker(State);
    }
    if (State.Menus.IsMenuOpen()) {
        State.CloseMenu(0); // a tap beside an open menu closes it and does nothing else
        return WindowHandle::None;
    }
    if (State.OpenList != WindowHandle::None) {
        State.CloseList();
        return WindowHandle::None;
    }
    Pressed = BarButtonAt(screen);
    if (Pressed != NavigationButton::None || !State.TakesInput(hit)) {
        return WindowHandle::None;
    }
    if (State.Tree.FindControl(hit) != nullptr) {
        return hit;
    }
    Captured = hit;
    Send(WM_LBUTTONDOWN, screen, MessageOrigin::Person);
    return WindowHandle::None;
}

void StylusInput::Move(Point screen) {
    if (Captured != WindowHandle::None) {
        Send(WM_MOUSEMOVE, screen, MessageOrigin::PersonEnding);
    }
}

void StylusInput::Up(Point screen) {
    if (Captured != WindowHandle::None) {
        Send(WM_LBUTTONUP, screen, MessageOrigin::PersonEnding);
        Captured = WindowHandle::None;
    }
    const NavigationButton pressed = std::exchange(Pressed, NavigationButton::None);
    if (pressed == NavigationButton::None || BarButtonAt(screen) != pressed) {
        return;
    }
    if (pressed == NavigationButton::Ok) {
        Navigation.PressOk();
    } else {
        Navigation.PressClose();
    }
}

void StylusInput::Cancel() {
    Captured = WindowHandle::None;
    Pressed = NavigationButton::None;
}

void StylusInput::Wheel(Point screen, int steps) {
    const WindowHandle hit = State.Tree.HitTest(screen);
    if (State.Menus.IsMenuOpen() || State.Tree.FindControl(hit) != nullptr || !State.TakesInput(hit)) {
        return;
    }
    Message message;
    message.Window = hit;
    message.Number = WM_MOUSEWHEEL;
    message.Code = steps;
    message.Position = State.Tree.ToWindow(hit, screen);
    State.Post(message, MessageOrigin::Person);
}

NavigationButton StylusInput::BarButtonAt(Point screen) const {
    const WindowRecord* top = State.Tree.Find(State.Tree.Top());
    if (top == nullptr || !State.TakesInput(top->Handle)) {
        return NavigationButton::None;
    }
    return NavigationButtonAt(top->Buttons, screen);
}

void StylusInput::Send(MessageNumber number, Point screen, MessageOrigin origin) {
    Message message;
    message.Window = Captured;
    message.Number = number;
    message.Position = State.Tree.ToWindow(Captured, screen);
    State.Post(message, origin);
}

} // namespace tavo::shell
