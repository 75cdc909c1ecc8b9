// The menus.
#pragma once

#include "platform/menus.h"

#include <cstddef>
#include <vector>

namespace tavo {

// The pop-ups of kMenuPopups, by position.
constexpr std::size_t kPopupSchedule = 0; // commands on an item
constexpr std::size_t kPopupCalendar = 1; // the day menu

// The menus of this resource number, ready to be changed; none for an unknown number.
std::vector<MenuItem> LoadMenuW(int menu);

} // namespace tavo
