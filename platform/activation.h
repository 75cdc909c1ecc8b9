// What a request from outside brings when it is for more than coming forward.
#pragma once

#include "platform/messages.h"

namespace tavo {

// To the frame: show this item; Id is its OID. Input, so that nobody gets it while a dialog or a message box is open.
constexpr MessageNumber WM_OPENITEM = WM_APP + 3;

} // namespace tavo
