// Whether a change is meant for one day of a series or for all of it.
#pragma once

#include "framework/message_pump.h"

namespace tavo {

enum class SeriesPart { Neither, ThisDay, Whole };

// Where a menu opens on the screen.
struct MenuPlace {
    Point At;
    MenuAlign Align = MenuAlign::Left;
};

// Asks in a small menu. Neither when that is closed without a choice.
SeriesPart AskSeriesPart(CMessagePump& pump, WindowHandle owner, const MenuPlace& place);

} // namespace tavo
