// TavoCalendar.dat: the file in which the category lists outlive the program.
#pragma once

#include "store/category_codec.h"

namespace tavo {

struct CProgramState;

// Fills the lists from the file, making the folder and an empty file where there is none, and carries out the tags
// asked for from outside. Shows a message and gives false when the file is corrupt, of which
// a copy is kept beside it, or cannot be had.
bool LoadCategoryFile(CProgramState& state);

// Writes the lists. Shows a message and gives false when the file cannot be written.
bool SaveCategoryFile(CProgramState& state);

enum class SaveTrouble {
    Tell,  // by the message
    Quiet, // nobody is there to read it
};

// The same at the end of a session's work. What cannot be written is kept beside the file, for the next start to offer.
bool SaveOrKeepTags(CProgramState& state, SaveTrouble trouble);

} // namespace tavo
