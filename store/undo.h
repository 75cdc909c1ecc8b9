// Taking back the newest step that is on offer.
#pragma once

#include "store/long_work.h"
#include "store/program_state.h"

#include <cstdint>
#include <string>

namespace tavo {

// What a menu says: "Undo delete of 14 alarms". Just "Undo" when nothing can be taken back.
std::u16string DescribeUndo(CProgramState& state);
bool CanUndo(CProgramState& state);

// Takes the step back: items with their OIDs, their ink, and their places in the category lists. Until the last of them
// is there nothing is final.
class LongUndo : public ILongWork {
  public:
    explicit LongUndo(CProgramState& state);
    ~LongUndo();
    LongUndo(const LongUndo&) = delete;
    LongUndo& operator=(const LongUndo&) = delete;

    // True when all was taken back.
    bool IsDone() const { return IsDoneWell; }

    // True when the store could not do it, or takes no changes now: nothing was changed.
    bool IsRefused() const { return Refused; }

    bool DoNext() override;
    void Abandon() override;

    int Total() const override { return TotalCount; }

    int Done() const override { return DoneCount; }

    std::u16string DescribeProgress() const override;

  private:
    void Finish();

    CProgramState& State;
    std::int32_t TotalCount = 0;
    std::int32_t DoneCount = 0;
    bool IsOpen = false; // the store holds the work under way
    bool IsDoneWell = false;
    bool Refused = false;
};

// All of it in one go. False when there was no step, or the store could not do it; nothing is changed then.
bool UndoLastStep(CProgramState& state);

} // namespace tavo
