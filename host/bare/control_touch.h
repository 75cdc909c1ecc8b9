// What a tap or a key does to a native control that has no widget.
#pragma once

#include "host/bare/bare_host.h"

namespace tavo::bare {

constexpr int kScrollArrowHeight = 15; // of a scroll bar's arrows
constexpr int kListArrowWidth = 16;    // of what opens a list or a month
constexpr int kEntryMargin = 4;        // from a field's left edge to its text

// What a control with letters of this size is shown in.
constexpr shell::ChromeFont FontOf(int points) {
    return points < 9 ? shell::ChromeFont::Small : shell::ChromeFont::Plain;
}

// The stylus comes down, moves and leaves on a control that it is held on; points of the screen.
void PressControl(BareHost& host, WindowHandle control, Point screen);
void MoveOnControl(BareHost& host, WindowHandle control, Point screen);
void ReleaseControl(BareHost& host, WindowHandle control, Point screen);
// A tap at this point of the screen, which lies on the control: focus, click, open, scroll.
void TapControl(BareHost& host, WindowHandle control, Point screen);
// A key goes down, and a character is typed where the caret stands: for whomever the shell says. What a control does
// not use goes to its parent.
void PressKey(BareHost& host, int key, int modifiers);
void TypeCharacter(BareHost& host, char16_t character);

} // namespace tavo::bare
