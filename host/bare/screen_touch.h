// The stylus anywhere on the screen: on the device's own chrome, on a window, on a control.
#pragma once

#include "host/bare/bare_host.h"

namespace tavo::shell {
class ChromePart;
}

namespace tavo::bare {

class ScreenTouch {
  public:
    explicit ScreenTouch(BareHost& host) : Host(host) {}

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
    shell::ChromePart* Part = nullptr; // the stylus went down on it
    WindowHandle Control = WindowHandle::None;
};

} // namespace tavo::bare
