// Going back and forth.
#include "host/ink/edit_history.h"

#include <utility>

namespace tavo::ink {

void EditHistory::Add(Edit edit) {
    Undone.clear();
    Done.emplace_back();
    Done.back().push_back(std::move(edit));
    if (Done.size() > kMaxUndoSteps) {
        Done.pop_front();
    }
}

void EditHistory::AddToLast(Edit edit) {
    Undone.clear();
    Done.back().push_back(std::move(edit));
}

Box EditHistory::Undo(Page& page) {
    Box changed;
    Step step = std::move(Done.back());
    Done.pop_back();
    for (auto edit = step.rbegin(); edit != step.rend(); ++edit) {
        changed = changed.United(page.Apply(edit->Reversed()));
    }
    Undone.push_back(std::move(step));
    return changed;
}

Box EditHistory::Redo(Page& page) {
    Box changed;
    Step step = std::move(Undone.back());
    Undone.pop_back();
    for (const Edit& edit : step) {
        changed = changed.United(page.Apply(edit));
    }
    Done.push_back(std::move(step));
    return changed;
}

void EditHistory::Clear() {
    Done.clear();
    Undone.clear();
}

} // namespace tavo::ink
