// What typing brings apart from characters: the notice of a typed date or time, and the key that opens a menu.
#pragma once

namespace tavo {

// After a DTN_DATETIMECHANGE: what it told was typed, not chosen.
constexpr int DTN_USERSTRING = -758;
// The menu key, also Shift+F10.
constexpr int VK_APPS = 93;

} // namespace tavo
