// What the shell tells a host that has real widgets to keep in step.
#pragma once

#include "platform/handles.h"

namespace tavo::shell {

enum class Change {
    Created,        // a window or control; the record is complete
    Destroyed,      // told before the record goes, children first
    Bounds,         // moved or resized
    Visibility,     // its own flag; told for the window itself, not for what lies in it
    Enabled,        // its own flag
    Text,           // title, or the text of a control
    TextSelection,  // of an edit or editable list
    Content,        // entries, selection, check, time or scroll values of a control
    ListOpened,     // the list or month calendar of a control opens now
    ListClosed,     // ... must be closed
    Invalidated,    // a paint will come
    Focus,          // the window that has the focus now, or None
    Top,            // which page or dialog is on top: caption, buttons, menu bar and stacking follow from it
    FrameState,     // minimised or back
    BroughtForward, // the frame wants to be in front of other programs
    MenuBar,        // the contents of a menu bar
    BarMenuOpened,  // a menu of the shown menu bar opens now: MenuState::OpenBarMenu
    MenuTracked,    // a pop-up menu opens: MenuState::Tracked
    MenuClosed,     // the open menu (of the bar or tracked) must be closed
    BoxOpened,      // a message box opens: MenuState::Boxes.back()
    BoxClosed,      // the innermost message box must be closed
    InputPanel,     // raised or lowered
    Cursor,
};

class IShellObserver {
  public:
    virtual ~IShellObserver() = default;
    // Must not change the shell and must not let events in; the window is None where none is meant.
    virtual void OnChange(Change change, WindowHandle window) = 0;
};

} // namespace tavo::shell
