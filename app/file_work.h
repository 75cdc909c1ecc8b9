// What an import and an export have in common: work on a file that is shown while it lasts, and what is said about it.
#pragma once

#include "store/program_state.h"

#include <functional>
#include <string>
#include <string_view>

namespace tavo {

// All called on the program's own time; all must be there.
struct FileSteps {
    std::u16string_view Caption;
    std::u16string_view ProgressFormat; // of a number of hundredths
    std::function<bool()> DoNext;       // true while more remains
    std::function<void()> Leave;        // takes back what is not final
    std::function<int()> Progress;      // 0 to 1000
};

// Goes through all steps, with a display where that takes long. False when it was cancelled.
bool RunFileSteps(CProgramState& state, const FileSteps& steps);

// Over the main view: the button that closed it.
int ShowFileBox(CProgramState& state, std::u16string text, MessageBoxButtons buttons);

} // namespace tavo
