// Putting ink back to where it belongs.
#pragma once

#include "memo/ink_home.h"
#include "store/program_state.h"

#include <vector>

namespace tavo {

enum class InkReturn {
    Home,   // in its memo or item
    AsMemo, // a new memo: it had no home, or that changed meanwhile
    Failed, // nowhere
};

// Goes home where that still holds what it held when the editor opened; else becomes a memo beside its memo file, or of
// its item's day. `begun` is when it was begun. Uses the memo buffer.
[[nodiscard]] InkReturn ReturnInk(CProgramState& state, const InkHome& home, const SYSTEMTIME& begun,
                                  std::vector<std::uint8_t> ink);

// It is where it belongs already: somebody saved it, and nobody need be asked.
bool IsHome(CProgramState& state, const InkHome& home, const std::vector<std::uint8_t>& ink);

// The day and time of the memo that it would become.
SYSTEMTIME MomentOfInk(CProgramState& state, const InkHome& home, const SYSTEMTIME& begun);

} // namespace tavo
