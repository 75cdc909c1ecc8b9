// What an undo brings back of memos and ink.
#pragma once

#include "memo/undo_notes.h"
#include "store/program_state.h"
#include "store/undo.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tavo {

// Memo files go back to where they were, or beside what took their place; ink of a cancelled editor goes home when the
// undo is final.
class MemoUndo : public IUndoNotes {
  public:
    explicit MemoUndo(CProgramState& state) : State(state) {}

    // How many could not be brought back.
    int Missing() const { return MissingCount; }

    void BringBack(std::span<const std::uint8_t> note) override;
    bool TakeAwayNext() override;
    void Settle() override;

  private:
    void BringMemoBack(const MemoPutAway& memo);

    struct WaitingForEnd {
        InkCancelled Ink;
        std::u16string Held; // its name among what a crash leaves; empty when it could not be kept there
    };

    void BringInkBack(const WaitingForEnd& waiting);
    void LetGo(const WaitingForEnd& waiting);

    CProgramState& State;
    std::vector<MemoPutAway> Memos; // that are back
    std::vector<WaitingForEnd> Inks;
    int MissingCount = 0;
};

// Notes in the store that ink was drawn and the editor cancelled, so that an undo can bring it. False when the store
// takes no changes.
[[nodiscard]] bool NoteCancelledInk(CProgramState& state, const InkHome& home, std::span<const std::uint8_t> ink);

} // namespace tavo
