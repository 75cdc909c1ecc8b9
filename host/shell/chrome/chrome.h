// All of the device's own chrome: the parts, and which of them lies at a point.
#pragma once

#include "host/shell/chrome/navigation_bar.h"

namespace tavo::shell {

class Chrome {
  public:
    Chrome(Shell& shell, StylusInput& stylus, IChromeFonts& fonts) : Navigation(shell, stylus, fonts), State(shell) {}

    NavigationBar Navigation;

    // What the shell reported; the parts take it with the next Follow.
    void Note(Change change, WindowHandle window);
    // Before the parts are looked at or tapped: brings what changed to them. False when nothing did.
    bool Follow();

    // The part that a tap there is for, or null where it is for a window.
    ChromePart* PartAt(Point screen);

  private:
    Shell& State;
    bool BarsChanged = true;
};

} // namespace tavo::shell
