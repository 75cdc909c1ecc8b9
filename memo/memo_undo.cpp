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

} // namespace

void MemoUndo::BringBack(std::span<const std::uint8_t> note) {
    UndoNote decoded = DecodeNote(note);
    if (const auto* memo = std::get_if<MemoPutAway>(&decoded)) {
        if (IsFromDeleted(*memo)) {
            BringMemoBack(*memo);
        } else {
            ++MissingCount; // no program of ours wrote it: it could name any file
        }
    } else if (auto* ink = std::get_if<InkCancelled>(&decoded)) {
        // The end of the undo takes the step away before the ink is home.
        std::u16string held = State.Host().Ink().HoldInk(EncodeInkHome(ink->Home), ink->Ink);
        Inks.push_back({std::move(*ink), std::move(held)});
    }
}

void MemoUndo::BringMemoBack(const MemoPutAway& memo) {
    MemoPutAway back = memo;
    MemoFiles files(State);
    if (files.BringBack(memo.Kept, back.Path)) {
        Memos.push_back(std::move(back));
    } else if (!files.IsMemo(memo.Kept) && files.IsMemo(memo.Path)) {
        Memos.push_back(memo); // brought by an undo that a kill cut short
    } else {
        ++MissingCount; // it was longer in the Deleted folder than it is kept there, or somebody took it away
    }
}

bool MemoUndo::TakeAwayNext() {
    for (const WaitingForEnd& waiting : std::exchange(Inks, {})) {
        LetGo(waiting); // the step has it still
    }
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
    for (const WaitingForEnd& waiting : std::exchange(Inks, {})) {
        BringInkBack(waiting);
    }
}

void MemoUndo::BringInkBack(const WaitingForEnd& waiting) {
    const InkCancelled& ink = waiting.Ink;
    if (ReturnInk(State, ink.Home, ink.Begun, ink.Ink) != InkReturn::Failed) {
        LetGo(waiting);
    } else {
        ++MissingCount;
        if (waiting.Held.empty()) { // there may be room by now; what is held, the next start asks about
            static_cast<void>(State.Host().Ink().HoldInk(EncodeInkHome(ink.Home), ink.Ink));
        }
    }
    State.Memo.Empty();
}

void MemoUndo::LetGo(const WaitingForEnd& waiting) {
    if (!waiting.Held.empty()) {
        State.Host().Ink().EndRecovered(waiting.Held, RecoveredInkEnd::Kept);
    }
}

bool NoteCancelledInk(CProgramState& state, const InkHome& home, std::span<const std::uint8_t> ink) {
    ChangeGroup group(state.Store, kCancelledInk);
    const InkCancelled note{home, state.Host().Clock().GetLocalTime(), {ink.begin(), ink.end()}};
    return group.IsOpen() && Succeeded(state.Store.OutlookApp->AddNote(EncodeNote(note))) && group.End();
}

} // namespace tavo
