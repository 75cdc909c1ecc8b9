// Memos on their way to the Deleted folder, so that a kill in the middle of many leaves none of them there by mistake.
#pragma once

#include "store/program_state.h"

#include <span>
#include <string>
#include <string_view>

namespace tavo {

constexpr std::u16string_view kMemosMissing = u"Not all memos could be brought back.";

// The plan of a step that deletes memos. It lies in a file from before the first of them is moved until the store has
// the step, or the last of them is back.
class MovingMemos {
  public:
    explicit MovingMemos(CProgramState& state) : State(state) {}

    // `names` are those of memos in the data folder. False when the plan could not be written: nothing may be moved.
    [[nodiscard]] bool Begin(std::span<const std::u16string> names);
    // The step is final, or everything is as it was. Nothing when there is no plan.
    void End();

  private:
    CProgramState& State;
    bool IsPlanned = false;
};

// At the start: the memos of a plan that nobody ended go back to their places, unless the store has the step, which an
// undo can take back. Gives how many could not be moved; these are tried again at the next start.
[[nodiscard]] int BringBackMovedMemos(CProgramState& state);

} // namespace tavo
