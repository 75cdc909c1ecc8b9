// The store does the work; the category lists follow.
#include "store/undo.h"

#include "framework/format.h"

#include <utility>

namespace tavo {

namespace {

constexpr std::u16string_view kUndo = u"Undo";

// Names that the store gives by itself begin like sentences.
std::u16string InsideASentence(std::u16string name) {
    if (!name.empty() && name.front() >= u'A' && name.front() <= u'Z') {
        name.front() = static_cast<char16_t>(name.front() - u'A' + u'a');
    }
    return name;
}

// Empty when there is nothing on offer.
std::u16string NameOfLastStep(CProgramState& state) {
    std::u16string name;
    if (!state.Store.OutlookApp || Failed(state.Store.OutlookApp->GetUndoName(name))) {
        return {};
    }
    return name;
}

} // namespace

bool CanUndo(CProgramState& state) {
    std::u16string name;
    return state.Store.OutlookApp && Succeeded(state.Store.OutlookApp->GetUndoName(name));
}

std::u16string DescribeUndo(CProgramState& state) {
    const std::u16string name = InsideASentence(NameOfLastStep(state));
    return name.empty() ? std::u16string(kUndo) : FormatText(u"%s %s", kUndo, name);
}

LongUndo::LongUndo(CProgramState& state, IUndoNotes* notes) : State(state), Keeper(notes) {
    IsOpen = State.Store.OutlookApp && Succeeded(State.Store.OutlookApp->BeginUndo(TotalCount));
    if (IsOpen && Keeper != nullptr && Failed(State.Store.OutlookApp->GetUndoNotes(Notes))) {
        LongUndo::Abandon(); // half of a step is not taken back
    }
    TotalCount += static_cast<std::int32_t>(Notes.size());
    Refused = !IsOpen;
}

LongUndo::~LongUndo() {
    LongUndo::Abandon(); // as it is here: nobody derives from what is going
}

bool LongUndo::TakeBackNext() {
    if (std::exchange(IsOpen, false) && State.Store.OutlookApp) {
        static_cast<void>(State.Store.OutlookApp->Abandon()); // one that broke is gone by itself
    }
    return !IsDoneWell && Keeper != nullptr && Keeper->TakeAwayNext();
}

void LongUndo::Abandon() {
    while (LongUndo::TakeBackNext()) {
    }
}

bool LongUndo::DoNext() {
    if (!IsOpen) {
        return false;
    }
    switch (State.Store.OutlookApp->StepUndo()) {
    case Status::Ok:
        ++DoneCount;
        return true;
    case Status::False:
        if (BringNextNoteBack()) {
            ++DoneCount;
            return true;
        }
        Finish();
        return false;
    default:
        Refused = true;
        Abandon();
        return false;
    }
}

bool LongUndo::BringNextNoteBack() {
    if (Notes.empty()) {
        return false;
    }
    Keeper->BringBack(Notes.back());
    Notes.pop_back();
    return true;
}

void LongUndo::Finish() {
    IsOpen = false;
    IsDoneWell = Succeeded(State.Store.OutlookApp->End());
    Refused = !IsDoneWell;
    if (Refused) {
        Abandon();
    } else {
        if (Keeper != nullptr) {
            Keeper->Settle();
        }
        // Whether a list changed too, the pages follow either way.
        static_cast<void>(State.Categories.ApplyTagRequests());
    }
}

std::u16string LongUndo::DescribeProgress() const {
    return FormatText(u"%d of %d undone", DoneCount, TotalCount);
}

} // namespace tavo
