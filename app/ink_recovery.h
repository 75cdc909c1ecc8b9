// Ink that a crash left.
#pragma once

#include "store/program_state.h"

namespace tavo {

// Asks about each piece of it whether it shall be a memo of the day on which it was written. True when one became a
// memo.
bool OfferRecoveredInk(CProgramState& state);

} // namespace tavo
