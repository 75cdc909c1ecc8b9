// Calendar files that somebody opens with the program.
#pragma once

#include "platform/calendar_import.h"
#include "store/program_state.h"

namespace tavo {

// Asks about each of them, imports what is wanted as one step that can be taken back, and tells what came of it. True
// when the store may have changed.
bool ImportCalendarFiles(CProgramState& state, ICalendarImport& files);

} // namespace tavo
