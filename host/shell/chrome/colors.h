// The colours that the parts of the chrome have in common.
#pragma once

#include "host/shell/chrome/piece.h"

namespace tavo::shell {

constexpr Argb kBarColor = 0xFF2664B4; // the navigation bar
constexpr Argb kBarPressedColor = 0xFF1B4C8C;
constexpr Argb kBarTextColor = 0xFFFFFFFF;
constexpr Argb kChromePressedColor = 0xFFD3E2F4; // of what is light

} // namespace tavo::shell
