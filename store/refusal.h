// Telling that something could not be done.
#pragma once

#include "framework/message_pump.h"

#include <string_view>

namespace tavo {

// A message box with an exclamation mark and OK, under the program's name.
void ShowRefusal(CMessagePump& pump, WindowHandle owner, std::u16string_view text);

} // namespace tavo
