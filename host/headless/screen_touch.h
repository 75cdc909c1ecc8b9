// The stylus anywhere on the screen: on the device's own chrome, on a window, on a control.
#pragma once

#include "host/headless/headless_host.h"

namespace tavo::shell {
class ChromePart;
}

namespace tavo::headless {

class ScreenTouch {
  public:
    explicit ScreenTouch(HeadlessHost& host) : Host(host) {}

    void Down(Point screen);
    void Move(Point screen);
    void Up(Point screen);

    // Down and up at once.
    void Tap(Point screen) {
        Down(screen);
        Up(screen);
    }

  private:
    HeadlessHost& Host;
    shell::ChromePart* Part = nullptr; // the stylus went down on it
    WindowHandle Control = WindowHandle::None;
};

} // namespace tavo::headless
