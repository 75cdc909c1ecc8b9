// Taking back the newest step that is on offer.
#pragma once

#include "store/program_state.h"

#include <string>

namespace tavo {

// What a menu says: "Undo delete of 14 alarms". Just "Undo" when nothing can be taken back.
std::u16string DescribeUndo(CProgramState& state);
bool CanUndo(CProgramState& state);

// Takes the step back: items with their OIDs, their ink, and their places in the category lists. False when there was
// none, or the store could not do it; nothing is changed then.
bool UndoLastStep(CProgramState& state);

} // namespace tavo
