// What the widgets of the host share: the shell, the ways into it, and how the screen lies in the window.
#pragma once

#include "host/ink/ink_desk.h"
#include "host/qt/fonts.h"
#include "host/qt/pictures.h"
#include "host/qt/screen_geometry.h"
#include "host/shell/chrome/chrome.h"
#include "host/shell/chrome/chrome_faces.h"
#include "host/shell/control_input.h"
#include "host/shell/item_request.h"
#include "host/shell/key_input.h"
#include "host/shell/navigation_input.h"
#include "host/shell/shell.h"
#include "host/shell/stylus_input.h"

namespace tavo::qt {

struct Device {
    Device(shell::IEventSource& source, shell::IShellObserver& observer) : State(source, &observer) {}

    shell::Shell State;
    shell::NavigationInput Navigation{State};
    shell::StylusInput Stylus{State, Navigation};
    shell::KeyInput Keys{State, Navigation};
    shell::ControlInput Controls{State};
    shell::ItemRequest Items{State};
    qt::Fonts Fonts;
    shell::ChromeFaces<Font> ChromeFonts;
    shell::Chrome Chrome{State, Navigation, Stylus, ChromeFonts};
    qt::Pictures Pictures;
    ink::InkDesk Ink{State};
    ScreenGeometry Geometry; // of what is seen
    bool KeyWasLast = false; // the last thing a person used was a key
    Scale PaintScale;        // of new surfaces; follows a change of the geometry after a moment of rest
};

} // namespace tavo::qt
