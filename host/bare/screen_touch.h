// The stylus anywhere on the screen: on the device's own chrome, on a window, on a control.
#pragma once

#include "host/bare/bare_host.h"

namespace tavo::shell {
class ChromePart;
}

namespace tavo::bare {

class Popup;

class ScreenTouch {
  public:
    // With a popup a tap on one of its rows chooses; without one it closes what is open, as a tap beside it does.
    explicit ScreenTouch(BareHost& host, Popup* popup = nullptr) : Host(host), Open(popup) {}

    void Down(Point screen);
    void Move(Point screen);
    void Up(Point screen);

    // Down and up at once.
    void Tap(Point screen) {
        Down(screen);
        Up(screen);
    }

  private:
    BareHost& Host;
    Popup* Open;
    bool PressesPopup = false;         // the stylus went down on it
    shell::ChromePart* Part = nullptr; // the stylus went down on it
    WindowHandle Control = WindowHandle::None;
};

} // namespace tavo::bare
