// Ink that a crash left.
#pragma once

#include "store/program_state.h"

namespace tavo {

// Asks about each piece of it whether it shall go back to its memo or item, or else become a memo of its day; but of
// what belongs to a draft the draft's question asks. True when one did.
bool OfferRecoveredInk(CProgramState& state);

} // namespace tavo
