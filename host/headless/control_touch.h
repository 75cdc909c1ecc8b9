// What a tap or a key does to a native control that has no widget.
#pragma once

#include "host/headless/headless_host.h"

namespace tavo::headless {

// The stylus comes down, moves and leaves on a control that it is held on; points of the screen.
void PressControl(HeadlessHost& host, WindowHandle control, Point screen);
void MoveOnControl(HeadlessHost& host, WindowHandle control, Point screen);
void ReleaseControl(HeadlessHost& host, WindowHandle control, Point screen);
// A tap at this point of the screen, which lies on the control: focus, click, open, scroll.
void TapControl(HeadlessHost& host, WindowHandle control, Point screen);
// A key pressed while the control has the focus. What it does not use goes to its parent.
void PressKeyInControl(HeadlessHost& host, WindowHandle control, int key, int modifiers);
// A character typed where the caret stands.
void TypeInControl(HeadlessHost& host, WindowHandle control, char16_t character);

} // namespace tavo::headless
