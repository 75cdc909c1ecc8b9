// Reading and setting the state of native controls.
#include "host/shell/shell_controls.h"

#include <algorithm>
#include <chrono>

namespace tavo::shell {

std::uint16_t WeekdayOf(const SYSTEMTIME& time) {
    const std::chrono::year_month_day date{std::chrono::year{time.Year}, std::chrono::month{time.Month},
                                           std::chrono::day{time.Day}};
    return static_cast<std::uint16_t>(std::chrono::weekday{std::chrono::sys_days{date}}.c_encoding());
}

bool IsPossible(const SYSTEMTIME& time) {
    const std::chrono::year_month_day date{std::chrono::year{time.Year}, std::chrono::month{time.Month},
                                           std::chrono::day{time.Day}};
    constexpr int firstYear = 1601;
    constexpr int lastYear = 9999;
    return date.ok() && time.Year >= firstYear && time.Year <= lastYear && time.Hour < 24 && time.Minute < 60 &&
           time.Second < 60 && time.Milliseconds < 1000;
}

std::vector<WindowHandle> RadioGroup(const WindowTree& tree, WindowHandle radioButton) {
    const WindowRecord* record = tree.Find(radioButton);
    if (record == nullptr) {
        return {};
    }
    std::vector<WindowHandle> group;
    bool isOurs = false;
    for (const WindowHandle sibling : tree.ChildrenOf(record->Parent)) {
        const ControlState* control = tree.FindControl(sibling);
        if (control == nullptr || control->Kind != ControlKind::RadioButton) {
            continue;
        }
        if (control->StartsGroup) {
            if (isOurs) {
                break;
            }
            group.clear();
        }
        group.push_back(sibling);
        isOurs = isOurs || sibling == radioButton;
    }
    return isOurs ? group : std::vector<WindowHandle>{};
}

void ApplyCheck(Shell& shell, WindowHandle control, bool checked) {
    ControlState* state = shell.Tree.FindControl(control);
    if (state == nullptr) {
        return;
    }
    if (state->Kind == ControlKind::RadioButton && checked) {
        for (const WindowHandle other : RadioGroup(shell.Tree, control)) {
            ControlState* otherState = shell.Tree.FindControl(other);
            if (other != control && otherState->Checked) {
                otherState->Checked = false;
                shell.Report(Change::Content, other);
            }
        }
    }
    state->Checked = checked;
    shell.Report(Change::Content, control);
}

WindowHandle ShellControls::CreateControl(WindowHandle parent, const ControlDescription& description) {
    if (State.Tree.Find(parent) == nullptr) {
        return WindowHandle::None;
    }
    ControlState control;
    control.Kind = description.Kind;
    control.Id = description.Id;
    control.FontPoints = description.FontPoints;
    control.PictureOff = description.PictureOff;
    control.PictureOn = description.PictureOn;
    control.StartsGroup = description.StartsGroup;
    control.Time = Clock.GetLocalTime();
    WindowRecord record;
    record.Handle = State.Tree.NewHandle();
    record.Parent = parent;
    record.Text = description.Kind == ControlKind::FixedList ? std::u16string() : description.Text;
    record.Bounds = description.Bounds;
    record.Visible = description.Visible;
    record.Control = std::move(control);
    const WindowHandle handle = State.Tree.Add(std::move(record)).Handle;
    State.Report(Change::Created, handle);
    return handle;
}

std::u16string ShellControls::GetWindowTextW(WindowHandle control) {
    const WindowRecord* record = State.Tree.Find(control);
    return record == nullptr ? std::u16string() : record->Text;
}

void ShellControls::SetTextLimit(WindowHandle control, int characters) {
    if (ControlState* state = State.Tree.FindControl(control); state != nullptr) {
        state->TextLimit = characters > 0 ? characters : kNoTextLimit;
        State.Report(Change::Content, control);
    }
}

void ShellControls::SetTextSelection(WindowHandle control, int first, int last) {
    ControlState* state = State.Tree.FindControl(control);
    if (state == nullptr || !IsTextControl(state->Kind)) {
        return;
    }
    const int length = static_cast<int>(State.Tree.Find(control)->Text.size());
    const int end = last < 0 ? length : std::min(last, length);
    state->SelectionFirst = std::clamp(first, 0, end);
    state->SelectionLast = end;
    State.Report(Change::TextSelection, control);
}

void ShellControls::SetListItems(WindowHandle control, std::span<const std::u16string> items) {
    ControlState* state = State.Tree.FindControl(control);
    if (state == nullptr || !IsList(state->Kind)) {
        return;
    }
    state->Items.assign(items.begin(), items.end());
    state->Current = -1;
    if (state->Kind == ControlKind::FixedList) {
        State.Tree.Find(control)->Text.clear();
    }
    State.Report(Change::Content, control);
}

int ShellControls::GetCurSel(WindowHandle control) {
    const ControlState* state = State.Tree.FindControl(control);
    return state == nullptr ? -1 : state->Current;
}

void ShellControls::SetCurSel(WindowHandle control, int index) {
    ControlState* state = State.Tree.FindControl(control);
    if (state == nullptr || !IsList(state->Kind)) {
        return;
    }
    const bool exists = index >= 0 && index < static_cast<int>(state->Items.size());
    state->Current = exists ? index : -1;
    State.Tree.Find(control)->Text = exists ? state->Items[static_cast<std::size_t>(index)] : std::u16string();
    State.Report(Change::Content, control);
}

bool ShellControls::GetCheck(WindowHandle control) {
    const ControlState* state = State.Tree.FindControl(control);
    return state != nullptr && state->Checked;
}

void ShellControls::SetCheck(WindowHandle control, bool checked) {
    ApplyCheck(State, control, checked);
}

SYSTEMTIME ShellControls::GetSystemtime(WindowHandle control) {
    const ControlState* state = State.Tree.FindControl(control);
    return state == nullptr ? SYSTEMTIME{} : state->Time;
}

bool ShellControls::SetSystemtime(WindowHandle control, const SYSTEMTIME& time) {
    ControlState* state = State.Tree.FindControl(control);
    if (state == nullptr || !IsPicker(state->Kind) || !IsPossible(time)) {
        return false;
    }
    state->Time = time;
    state->Time.DayOfWeek = WeekdayOf(time);
    state->Entry = PickerEntry{}; // what was being typed is overtaken
    State.Report(Change::Content, control);
    return true;
}

ScrollInfo ShellControls::GetScrollInfo(WindowHandle control) {
    const ControlState* state = State.Tree.FindControl(control);
    return state == nullptr ? ScrollInfo{} : state->Scroll;
}

void ShellControls::SetScrollInfo(WindowHandle control, const ScrollInfo& info) {
    ControlState* state = State.Tree.FindControl(control);
    if (state == nullptr || state->Kind != ControlKind::ScrollBar) {
        return;
    }
    const int maximum = std::max(info.Minimum, info.Maximum);
    state->Scroll = {info.Minimum, maximum, std::clamp(info.Position, info.Minimum, maximum)};
    State.Report(Change::Content, control);
}

} // namespace tavo::shell
