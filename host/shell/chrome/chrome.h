// All of the device's own chrome: the parts, and which of them lies at a point.
#pragma once

#include "host/shell/chrome/menu_strip.h"
#include "host/shell/chrome/message_box.h"
#include "host/shell/chrome/navigation_bar.h"

namespace tavo::shell {

class Chrome {
  public:
    Chrome(Shell& shell, NavigationInput& navigation, StylusInput& stylus, IChromeFonts& fonts)
        : Navigation(shell, stylus, fonts), Menus(shell, navigation, fonts), Box(shell, navigation, fonts),
          State(shell) {}

    NavigationBar Navigation;
    MenuStrip Menus;
    MessageBox Box; // while it is open it lies over everything

    // What the shell reported. A box is laid out at once; the bars take it with the next Follow.
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
