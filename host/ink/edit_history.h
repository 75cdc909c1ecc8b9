// Everything that was done to a memo, to be taken back and done again.
#pragma once

#include "host/ink/page.h"

#include <cstddef>
#include <deque>
#include <vector>

namespace tavo::ink {

constexpr std::size_t kMaxUndoSteps = 10'000; // the oldest step beyond is forgotten

class EditHistory {
  public:
    // What was just done; nothing can be redone after it.
    void Add(Edit edit);
    // Another part of what was just done: both are taken back together.
    void AddToLast(Edit edit);

    bool CanUndo() const { return !Done.empty(); }

    bool CanRedo() const { return !Undone.empty(); }

    // Gives the part of the paper that looks different now.
    Box Undo(Page& page);
    Box Redo(Page& page);
    void Clear();

  private:
    using Step = std::vector<Edit>;

    std::deque<Step> Done;
    std::vector<Step> Undone;
};

} // namespace tavo::ink
