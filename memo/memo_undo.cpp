// Moving memo files to and fro, and giving ink back.
#include "memo/memo_undo.h"

#include "memo/ink_return.h"
#include "memo/memo_files.h"
#include "store/change_group.h"

#include <string_view>
#include <utility>

namespace tavo {

namespace {
constexpr std::u16string_view kCancelledInk = u"cancel of a memo";
}

void MemoUndo::BringBack(std::span<const std::uint8_t> note) {
    UndoNote decoded = DecodeNote(note);
    if (const auto* memo = std::get_if<MemoPutAway>(&decoded)) {
        BringMemoBack(*memo);
    } else if (auto* ink = std::get_if<InkCancelled>(&decoded)) {
        Inks.push_back(std::move(*ink));
    }
}

void MemoUndo::BringMemoBack(const MemoPutAway& memo) {
    MemoPutAway back = memo;
    if (MemoFiles(State).BringBack(memo.Kept, back.Path)) {
        Memos.push_back(std::move(back));
    } else {
        ++MissingCount; // it was longer in the Deleted folder than it is kept there, or somebody took it away
    }
}

bool MemoUndo::TakeAwayNext() {
    Inks.clear();
    if (Memos.empty()) {
        return false;
    }
    // One that cannot be moved again stays where it is seen.
    static_cast<void>(State.Host().Files().MoveFileW(Memos.back().Path, Memos.back().Kept));
    Memos.pop_back();
    return true;
}

void MemoUndo::Settle() {
    Memos.clear();
    for (InkCancelled& ink : std::exchange(Inks, {})) {
        BringInkBack(std::move(ink));
    }
}

void MemoUndo::BringInkBack(InkCancelled ink) {
    if (ReturnInk(State, ink.Home, ink.Begun, ink.Ink) == InkReturn::Failed) {
        ++MissingCount;
        // The step is taken back by now, so the next start asks.
        static_cast<void>(State.Host().Ink().HoldInk(EncodeInkHome(ink.Home), ink.Ink));
    }
    State.Memo.Empty();
}

bool NoteCancelledInk(CProgramState& state, const InkHome& home, std::span<const std::uint8_t> ink) {
    ChangeGroup group(state.Store, kCancelledInk);
    const InkCancelled note{home, state.Host().Clock().GetLocalTime(), {ink.begin(), ink.end()}};
    return group.IsOpen() && Succeeded(state.Store.OutlookApp->AddNote(EncodeNote(note))) && group.End();
}

} // namespace tavo
