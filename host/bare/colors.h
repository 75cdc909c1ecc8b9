// The colours of what hosts without widgets draw of controls, paper and pop-ups.
#pragma once

#include "host/shell/chrome/colors.h"

namespace tavo::bare {

constexpr shell::Argb kFieldColor = 0xFFFFFFFF;
constexpr shell::Argb kFaceColor = 0xFFEDF1F5; // of what can be pressed
constexpr shell::Argb kEdgeColor = 0xFF8C97A3; // of thumbs, too
constexpr shell::Argb kTextColor = 0xFF1E252C;
constexpr shell::Argb kGreyedColor = 0xFF9AA5B1;
constexpr shell::Argb kSelectionColor = 0xFFBFD7F5;

} // namespace tavo::bare
