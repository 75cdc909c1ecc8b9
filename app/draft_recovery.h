// Edits that the program's end, or a crash, cut short.
#pragma once

#include "edit/draft_file.h"
#include "store/program_state.h"

namespace tavo {

class CSchedulePage;

// Asks about each of them whether to go on with it, and opens the editor with what was typed.
void OfferDrafts(CProgramState& state, CSchedulePage& editors);

} // namespace tavo
