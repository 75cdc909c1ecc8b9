// Keys, characters and taps for date and time pickers.
#pragma once

#include "host/shell/shell.h"

namespace tavo::shell {

// What it shows now; an empty face for a window that is no picker.
PickerFace FaceOf(const WindowRecord& picker);

// Each brings the value up to date and tells the picker's parent, with DTN_DATETIMECHANGE and DTN_USERSTRING, when all
// is typed. False when the key or character means nothing to a picker.
bool PressInPicker(Shell& shell, WindowHandle picker, int key);
bool TypeIntoPicker(Shell& shell, WindowHandle picker, char16_t character);
// One of its arrows: the part that has the keys goes up (1) or down (-1).
void StepPicker(Shell& shell, WindowHandle picker, int by);
// The part at this character of its text gets the keys.
void TouchPicker(Shell& shell, WindowHandle picker, int character);
// The person leaves the picker with the focus, or is done with it: what was typed is all of it, and the parent is told.
void FinishPicker(Shell& shell);

} // namespace tavo::shell
