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

LongUndo::LongUndo(CProgramState& state) : State(state) {
    IsOpen = State.Store.OutlookApp && Succeeded(State.Store.OutlookApp->BeginUndo(TotalCount));
    Refused = !IsOpen;
}

LongUndo::~LongUndo() {
    LongUndo::Abandon(); // as it is here: nobody derives from what is going
}

void LongUndo::Abandon() {
    if (std::exchange(IsOpen, false) && State.Store.OutlookApp) {
        static_cast<void>(State.Store.OutlookApp->Abandon()); // one that broke is gone by itself
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
        Finish();
        return false;
    default:
        Refused = true;
        Abandon();
        return false;
    }
}

void LongUndo::Finish() {
    IsOpen = false;
    IsDoneWell = Succeeded(State.Store.OutlookApp->End());
    Refused = !IsDoneWell;
    if (IsDoneWell) {
        // Whether a list changed too, the pages follow either way.
        static_cast<void>(State.Categories.ApplyTagRequests());
    }
}

std::u16string LongUndo::DescribeProgress() const {
    return FormatText(u"%d of %d undone", DoneCount, TotalCount);
}

bool UndoLastStep(CProgramState& state) {
    LongUndo undo(state);
    while (undo.DoNext()) {
    }
    return undo.IsDone();
}

} // namespace tavo
