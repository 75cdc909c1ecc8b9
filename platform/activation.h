// What a request from outside brings when it is for more than coming forward.
#pragma once

#include "platform/messages.h"

namespace tavo {

// To the frame: show this item; Id is its OID. Input, so that nobody gets it while a dialog or a message box is open.
constexpr MessageNumber WM_OPENITEM = WM_APP + 3;

// To the frame: calendar files were opened with the program, and wait to be imported. Input likewise.
constexpr MessageNumber WM_IMPORTFILES = WM_APP + 4;

} // namespace tavo
