// The category lists that could not be written to the data file, kept elsewhere until they can be.
#pragma once

#include "store/category_codec.h"

namespace tavo {

struct CProgramState;

// Writes the lists to a file of their own, in the folder of what is recovered or, where it cannot be written, in one
// that can. What such a file holds already stays in it.
void KeepUnsavedTags(CProgramState& state);

// Those kept before that would be new to the lists now, and whose items are still there.
CategoryFileLists FindUnsavedTags(CProgramState& state);

// Removes the files whose tags all stand in the lists by now, or belong to items that are gone.
void DropSavedTags(CProgramState& state);

// Nobody wants them: their files are put to the declined ones. One that cannot be is found again.
void DeclineUnsavedTags(CProgramState& state);

} // namespace tavo
