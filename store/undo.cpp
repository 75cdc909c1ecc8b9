// The store does the work; the category lists follow.
#include "store/undo.h"

#include "framework/format.h"

#include <vector>

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

bool UndoLastStep(CProgramState& state) {
    std::vector<Oid> restored;
    if (!state.Store.OutlookApp || Failed(state.Store.OutlookApp->Undo(restored))) {
        return false;
    }
    // Whether a list changed too, the pages follow either way.
    static_cast<void>(state.Categories.ApplyTagRequests());
    return true;
}

} // namespace tavo
