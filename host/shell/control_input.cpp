// From what a person does to a control to its state and its parent's messages.
#include "host/shell/control_input.h"

#include "host/shell/picker_input.h"
#include "host/shell/shell_controls.h"

#include <algorithm>

namespace tavo::shell {

ControlState* ControlInput::Accepting(WindowHandle control) {
    return State.TakesInput(control) ? State.Tree.FindControl(control) : nullptr;
}

void ControlInput::Focus(WindowHandle control) {
    if (const ControlState* state = Accepting(control); state != nullptr && TakesFocus(state->Kind)) {
        State.MoveFocus(control);
    }
}

void ControlInput::Edit(WindowHandle control, std::u16string_view text) {
    ControlState* state = Accepting(control);
    if (state == nullptr || !IsTextControl(state->Kind)) {
        return;
    }
    std::u16string taken(text);
    if (state->Kind == ControlKind::NumberEdit) {
        std::erase_if(taken, [](char16_t character) { return character < u'0' || character > u'9'; });
    }
    taken.resize(std::min(taken.size(), static_cast<std::size_t>(state->TextLimit)));
    std::u16string& shown = State.Tree.Find(control)->Text;
    const bool changed = shown != taken;
    shown = taken;
    state->SelectionFirst = static_cast<int>(taken.size());
    state->SelectionLast = state->SelectionFirst;
    if (changed || taken != text) {
        State.Report(Change::Text, control);
    }
    if (!changed) {
        return;
    }
    if (state->Kind == ControlKind::EditableList) {
        state->Current = -1;
        State.Notify(control, WM_COMMAND, CBN_EDITCHANGE);
    } else {
        State.Notify(control, WM_COMMAND, EN_CHANGE);
    }
}

void ControlInput::SelectText(WindowHandle control, int first, int last) {
    if (ControlState* state = Accepting(control); state != nullptr) {
        state->SelectionFirst = first;
        state->SelectionLast = last;
    }
}

void ControlInput::OpenList(WindowHandle control) {
    const ControlState* state = Accepting(control);
    if (state == nullptr || State.OpenList == control) {
        return;
    }
    const bool isCalendar = state->Kind == ControlKind::DatePicker;
    if (!isCalendar && !IsList(state->Kind)) {
        return;
    }
    FinishPicker(State);
    if (State.OpenList != WindowHandle::None) {
        State.CloseList();
    }
    Message message;
    message.Window = State.Tree.Find(control)->Parent;
    message.Number = isCalendar ? WM_NOTIFY : WM_COMMAND;
    message.Id = state->Id;
    message.Code = isCalendar ? DTN_DROPDOWN : CBN_DROPDOWN;
    State.Announce(message, {OpeningKind::List, control, 0});
}

void ControlInput::CloseList(WindowHandle control) {
    if (State.OpenList == control) {
        State.CloseList();
    }
}

void ControlInput::Choose(WindowHandle control, int index) {
    ControlState* state = Accepting(control);
    if (state == nullptr || index < 0 || index >= static_cast<int>(state->Items.size())) {
        return;
    }
    state->Current = index;
    State.Tree.Find(control)->Text = state->Items[static_cast<std::size_t>(index)];
    State.Report(Change::Content, control);
    State.Notify(control, WM_COMMAND, CBN_SELCHANGE);
    CloseList(control);
}

void ControlInput::Pick(WindowHandle control, const SYSTEMTIME& time) {
    ControlState* state = Accepting(control);
    if (state == nullptr || !IsPicker(state->Kind)) {
        return;
    }
    SYSTEMTIME picked = state->Time;
    if (state->Kind == ControlKind::DatePicker) {
        picked.Year = time.Year;
        picked.Month = time.Month;
        picked.Day = time.Day;
    } else {
        picked.Hour = time.Hour;
        picked.Minute = time.Minute;
        picked.Second = time.Second;
        picked.Milliseconds = time.Milliseconds;
    }
    if (!IsPossible(picked)) {
        return;
    }
    picked.DayOfWeek = WeekdayOf(picked);
    const bool isUntold = state->Entry.Untold;
    state->Entry = PickerEntry{};
    if (picked == state->Time && !isUntold) {
        return;
    }
    state->Time = picked;
    State.Report(Change::Content, control);
    State.Notify(control, WM_NOTIFY, DTN_DATETIMECHANGE);
}

void ControlInput::Step(WindowHandle control, int by) {
    if (Accepting(control) != nullptr) {
        StepPicker(State, control, by);
    }
}

void ControlInput::Touch(WindowHandle control, int character) {
    if (Accepting(control) != nullptr) {
        TouchPicker(State, control, character);
    }
}

void ControlInput::Click(WindowHandle control, Point at) {
    const ControlState* state = Accepting(control);
    if (state == nullptr) {
        return;
    }
    FinishPicker(State);
    if (state->Kind == ControlKind::CheckBox) {
        ApplyCheck(State, control, !state->Checked);
    } else if (state->Kind == ControlKind::RadioButton) {
        ApplyCheck(State, control, true);
    } else if (state->Kind != ControlKind::PushButton && state->Kind != ControlKind::PictureButton) {
        return;
    }
    State.Post({State.Tree.Find(control)->Parent, WM_COMMAND, state->Id, BN_CLICKED, 0, at}, MessageOrigin::Person);
}

void ControlInput::Scroll(WindowHandle control, int request, int position) {
    const ControlState* state = Accepting(control);
    if (state == nullptr || state->Kind != ControlKind::ScrollBar) {
        return;
    }
    const int value = std::clamp(position, state->Scroll.Minimum, state->Scroll.Maximum);
    State.Post({State.Tree.Find(control)->Parent, WM_VSCROLL, state->Id, request, value, {}}, MessageOrigin::Person);
}

} // namespace tavo::shell
