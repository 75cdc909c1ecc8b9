// Tags that the session before could not save.
#pragma once

#include "store/program_state.h"

namespace tavo {

// Asks whether they shall be taken over, unless there are none that matter. True when they were.
bool OfferUnsavedTags(CProgramState& state);

} // namespace tavo
