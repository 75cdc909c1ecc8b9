// What is typed into pickers, and when the program hears of it.
#include "host/shell/picker_input.h"

#include "host/shell/shell_controls.h"
#include "platform/typing.h"

namespace tavo::shell {

namespace {

ControlState* FindPicker(Shell& shell, WindowHandle control) {
    ControlState* state = shell.Tree.FindControl(control);
    return state != nullptr && IsPicker(state->Kind) ? state : nullptr;
}

PickerFields FieldsOfPicker(const Shell& shell, WindowHandle picker) {
    const WindowRecord& record = *shell.Tree.Find(picker);
    return FieldsOf(record.Control->Kind, record.Text);
}

void Settle(Shell& shell, WindowHandle picker, ControlState& state, bool isComplete) {
    state.Time.DayOfWeek = WeekdayOf(state.Time);
    if (isComplete) {
        const bool isUntold = state.Entry.Untold;
        const int part = state.Entry.Part;
        state.Entry = PickerEntry{};
        state.Entry.Part = part;
        if (isUntold) {
            shell.Notify(picker, WM_NOTIFY, DTN_DATETIMECHANGE);
            shell.Notify(picker, WM_NOTIFY, DTN_USERSTRING);
        }
    }
    shell.Report(Change::Content, picker);
}

} // namespace

PickerFace FaceOf(const WindowRecord& picker) {
    if (!picker.Control || !IsPicker(picker.Control->Kind)) {
        return {};
    }
    const ControlState& state = *picker.Control;
    return FaceOf(FieldsOf(state.Kind, picker.Text), state.Time, state.Entry);
}

bool PressInPicker(Shell& shell, WindowHandle picker, int key) {
    ControlState* state = FindPicker(shell, picker);
    if (state == nullptr) {
        return false;
    }
    PickerKeys keys(FieldsOfPicker(shell, picker), state->Time, state->Entry);
    const bool isUsed = keys.Press(key);
    Settle(shell, picker, *state, keys.IsComplete());
    return isUsed;
}

bool TypeIntoPicker(Shell& shell, WindowHandle picker, char16_t character) {
    ControlState* state = FindPicker(shell, picker);
    if (state == nullptr) {
        return false;
    }
    PickerKeys keys(FieldsOfPicker(shell, picker), state->Time, state->Entry);
    const bool isUsed = keys.Type(character);
    Settle(shell, picker, *state, keys.IsComplete());
    return isUsed;
}

void StepPicker(Shell& shell, WindowHandle picker, int by) {
    if (ControlState* state = FindPicker(shell, picker); state != nullptr) {
        PickerKeys(FieldsOfPicker(shell, picker), state->Time, state->Entry).Step(by);
        Settle(shell, picker, *state, true);
    }
}

void TouchPicker(Shell& shell, WindowHandle picker, int character) {
    if (ControlState* state = FindPicker(shell, picker); state != nullptr) {
        const PickerFields fields = FieldsOfPicker(shell, picker);
        const int part = PartAt(FaceOf(fields, state->Time, state->Entry), character);
        PickerKeys(fields, state->Time, state->Entry).GoTo(part);
        Settle(shell, picker, *state, false);
    }
}

void FinishPicker(Shell& shell) {
    ControlState* state = FindPicker(shell, shell.Focus);
    if (state != nullptr && (state->Entry.Untold || !state->Entry.Typed.empty())) {
        PickerKeys(FieldsOfPicker(shell, shell.Focus), state->Time, state->Entry).TakeTyped();
        Settle(shell, shell.Focus, *state, true);
    }
}

} // namespace tavo::shell
