// The category lists that could not be written to the data file, kept elsewhere until they can be.
#pragma once

#include "store/category_codec.h"

#include <cstdint>
#include <vector>

namespace tavo {

struct CProgramState;

// Writes the lists to a file of their own, in the folder of what is recovered or, where it cannot be written, in one
// that can. What such a file holds already stays in it.
void KeepUnsavedTags(CProgramState& state);

// Keeps the lists so whenever they have changed, as they are not written to the data file before a page is closed: a
// kill costs no tag.
class TagKeeper {
  public:
    explicit TagKeeper(CProgramState& state) : State(state) {}

    // What the lists hold now is kept well enough.
    void Begin();
    // Nothing when they are as they were.
    void TakeChange();

  private:
    CProgramState& State;
    std::vector<std::uint8_t> Seen; // as a data file
};

// Those kept before that would be new to the lists now, and whose items are still there.
CategoryFileLists FindUnsavedTags(CProgramState& state);

// Removes the files whose tags all stand in the lists by now, or belong to items that are gone.
void DropSavedTags(CProgramState& state);

// Nobody wants them: their files are put to the declined ones. One that cannot be is found again.
void DeclineUnsavedTags(CProgramState& state);

} // namespace tavo
