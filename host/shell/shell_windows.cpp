// Making, showing and moving windows.
#include "host/shell/shell_windows.h"

#include <algorithm>
#include <utility>

namespace tavo::shell {

WindowHandle ShellWindows::FindWindowW(std::u16string_view className, std::u16string_view title) {
    const WindowRecord* frame = State.Tree.Find(State.Tree.Frame());
    const bool isIt = frame != nullptr && frame->ClassName == className && frame->Text == title;
    return isIt ? frame->Handle : WindowHandle::None;
}

WindowHandle ShellWindows::CreateWindowExW(const WindowDescription& description) {
    const bool isFrame = description.Kind == WindowKind::Frame;
    const bool needsParent = description.Kind == WindowKind::View || description.Kind == WindowKind::Child;
    if ((isFrame && State.Tree.Frame() != WindowHandle::None) ||
        (needsParent && State.Tree.Find(description.Parent) == nullptr)) {
        return WindowHandle::None;
    }
    WindowRecord record;
    record.Handle = State.Tree.NewHandle();
    record.Parent = description.Parent;
    record.Kind = description.Kind;
    record.ClassName = description.ClassName;
    record.Text = description.Title;
    record.Bounds = description.Bounds;
    record.Buttons = description.Buttons;
    record.Visible = description.Visible;
    const WindowHandle handle = State.Tree.Add(std::move(record)).Handle;
    State.Report(Change::Created, handle);
    State.Invalidate(handle);
    State.WatchTop();
    return handle;
}

void ShellWindows::DestroyWindow(WindowHandle window) {
    if (State.Menus.Bars.erase(window) > 0) {
        State.CloseStrayMenu();
        State.Report(Change::MenuBar, window);
        return;
    }
    if (State.Tree.Find(window) == nullptr) {
        return;
    }
    for (const WindowHandle gone : State.Tree.Subtree(window)) {
        if (State.Menus.Tracked && State.Menus.Tracked->Owner == gone) {
            State.CloseMenu(0);
        }
        State.Tree.Find(gone)->Visible = false;
        State.Withdraw(gone);
        State.Timers.KillAll(gone);
        std::erase_if(State.Menus.Bars, [&](const auto& bar) { return bar.second.Parent == gone; });
        State.CloseStrayMenu();
        State.Report(Change::Destroyed, gone);
        State.Tree.Remove(gone);
    }
    State.WatchTop();
}

void ShellWindows::ShowWindow(WindowHandle window, ShowCommand command) {
    WindowRecord* record = State.Tree.Find(window);
    if (record == nullptr) {
        return;
    }
    if (command == ShowCommand::Minimize) {
        // The frame and its view go to the background. A page keeps its place in the frame and comes back with it.
        if (record->Kind == WindowKind::Frame || record->Kind == WindowKind::View) {
            State.SetMinimized(true);
        }
        return;
    }
    if (record->Kind == WindowKind::Frame && command != ShowCommand::Hide) {
        State.SetMinimized(false);
    }
    const bool visible = command != ShowCommand::Hide;
    if (record->Visible == visible) {
        return;
    }
    record->Visible = visible;
    if (visible) {
        State.Tree.MarkShown(*record);
        record->ShownByCode = true;
        State.Invalidate(window);
    }
    State.Report(Change::Visibility, window);
    State.WatchTop();
    if (!visible) {
        State.Withdraw(window);
    }
}

bool ShellWindows::IsWindowVisible(WindowHandle window) {
    return State.Tree.IsVisible(window);
}

void ShellWindows::MoveWindow(WindowHandle window, const Rect& bounds) {
    WindowRecord* record = State.Tree.Find(window);
    if (record == nullptr || record->Bounds == bounds) {
        return;
    }
    record->Bounds = bounds;
    State.Report(Change::Bounds, window);
    State.Invalidate(window);
}

void ShellWindows::EnableWindow(WindowHandle window, bool enabled) {
    WindowRecord* record = State.Tree.Find(window);
    if (record == nullptr || record->Enabled == enabled) {
        return;
    }
    record->Enabled = enabled;
    State.Report(Change::Enabled, window);
    if (!enabled) {
        State.Withdraw(window);
    }
}

bool ShellWindows::IsWindowEnabled(WindowHandle window) {
    return State.Tree.IsEnabled(window);
}

void ShellWindows::SetWindowTextW(WindowHandle window, std::u16string_view text) {
    WindowRecord* record = State.Tree.Find(window);
    if (record == nullptr) {
        return;
    }
    if (record->Control) {
        if (record->Control->Kind == ControlKind::FixedList) {
            return; // it shows its selected entry and nothing else
        }
        record->Control->SelectionFirst = 0;
        record->Control->SelectionLast = 0;
        if (record->Control->Kind == ControlKind::EditableList) {
            record->Control->Current = -1;
        }
    }
    record->Text = text;
    State.Report(Change::Text, window);
}

Rect ShellWindows::GetClientRect(WindowHandle window) {
    const Size size = State.Tree.ClientSize(window);
    return Rect::FromSize(0, 0, size.Width, size.Height);
}

void ShellWindows::SetForegroundWindow(WindowHandle window) {
    if (State.Tree.Find(window) != nullptr) {
        State.Report(Change::BroughtForward, State.Tree.Frame());
    }
}

void ShellWindows::SetFocus(WindowHandle window) {
    const bool canHaveIt = State.Tree.IsVisible(window) && State.Tree.IsEnabled(window);
    State.MoveFocus(canHaveIt ? window : WindowHandle::None);
}

WindowHandle ShellWindows::GetFocus() {
    return State.Focus;
}

void ShellWindows::InvalidateRect(WindowHandle window, const Rect& area) {
    WindowRecord* record = State.Tree.Find(window);
    if (record == nullptr || !record->IsPainted()) {
        return;
    }
    const Size size = State.Tree.ClientSize(window);
    const Rect cut{std::max(area.Left, 0), std::max(area.Top, 0), std::min(area.Right, size.Width),
                   std::min(area.Bottom, size.Height)};
    if (cut.IsEmpty()) {
        return;
    }
    Rect& invalid = record->Invalid;
    if (invalid.IsEmpty()) {
        invalid = cut;
    } else {
        invalid = {std::min(invalid.Left, cut.Left), std::min(invalid.Top, cut.Top), std::max(invalid.Right, cut.Right),
                   std::max(invalid.Bottom, cut.Bottom)};
    }
    State.Report(Change::Invalidated, window);
}

void ShellWindows::SetTimer(WindowHandle window, int id, int milliseconds) {
    if (State.Tree.Find(window) != nullptr) {
        State.Timers.Set({window, id}, milliseconds, State.Source.GetMilliseconds());
    }
}

void ShellWindows::KillTimer(WindowHandle window, int id) {
    State.Timers.Kill({window, id});
}

void ShellWindows::SetCursor(tavo::Cursor cursor) {
    if (State.Cursor != cursor) {
        State.Cursor = cursor;
        State.Report(Change::Cursor, WindowHandle::None);
    }
}

} // namespace tavo::shell
