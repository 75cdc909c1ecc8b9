// Taking back the newest step that is on offer.
#pragma once

#include "store/long_work.h"
#include "store/program_state.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tavo {

// What a menu says: "Undo delete of 14 alarms". Just "Undo" when nothing can be taken back.
std::u16string DescribeUndo(CProgramState& state);
bool CanUndo(CProgramState& state);

// What the program noted itself in a step: memos, for example, which are no part of the store.
class IUndoNotes {
  public:
    // Undoes what the note says; what cannot be undone is left out.
    virtual void BringBack(std::span<const std::uint8_t> note) = 0;
    // Takes back one thing that BringBack did. False when there is none left.
    virtual bool TakeAwayNext() = 0;
    // What was brought back is final.
    virtual void Settle() = 0;

  protected:
    ~IUndoNotes() = default;
};

// Takes the step back: items with their OIDs, their ink, and their places in the category lists, then its notes. Until
// the last of them is there nothing is final.
class LongUndo : public ILongWork {
  public:
    // Without `notes` they are passed over.
    explicit LongUndo(CProgramState& state, IUndoNotes* notes = nullptr);
    ~LongUndo();
    LongUndo(const LongUndo&) = delete;
    LongUndo& operator=(const LongUndo&) = delete;

    // True when all was taken back.
    bool IsDone() const { return IsDoneWell; }

    // True when the store could not do it, or takes no changes now: nothing was changed.
    bool IsRefused() const { return Refused; }

    bool DoNext() override;
    bool TakeBackNext() override;
    void Abandon() override;

    int Total() const override { return TotalCount; }

    int Done() const override { return DoneCount; }

    std::u16string DescribeProgress() const override;

  private:
    bool BringNextNoteBack();
    void Finish();

    CProgramState& State;
    IUndoNotes* Keeper;                           // may be absent
    std::vector<std::vector<std::uint8_t>> Notes; // still to be brought back, newest last
    std::int32_t TotalCount = 0;
    std::int32_t DoneCount = 0;
    bool IsOpen = false; // the store holds the work under way
    bool IsDoneWell = false;
    bool Refused = false;
};

} // namespace tavo
