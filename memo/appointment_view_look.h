// Where the appointment view's drawn buttons are.
#pragma once

#include "platform/geometry.h"

namespace tavo {

constexpr Rect kModifyButton{216, 16, 236, 36};
constexpr Rect kDeleteButton{216, 39, 236, 59};
// Where the stylus hits them: a pixel inside.
constexpr Rect kModifyHit{217, 17, 236, 36};
constexpr Rect kDeleteHit{217, 40, 236, 59};

constexpr int kNoteTop = 75;
constexpr int kNoteMargin = 24; // left free under the note

} // namespace tavo
