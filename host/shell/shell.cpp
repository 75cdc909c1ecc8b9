// Focus, notifications and everything else that several parts of the shell do.
#include "host/shell/shell.h"

#include "host/shell/picker_input.h"
#include "platform/activation.h"

namespace tavo::shell {

namespace {

bool TellsFocus(const ControlState* control) {
    return control != nullptr && (control->Kind == ControlKind::Edit || control->Kind == ControlKind::NumberEdit);
}

// What is typed next then replaces a number, or a word chosen from a list.
void SelectShortText(Shell& state, WindowHandle window) {
    ControlState* control = state.Tree.FindControl(window);
    if (control != nullptr &&
        (control->Kind == ControlKind::NumberEdit || control->Kind == ControlKind::EditableList)) {
        control->SelectionFirst = 0;
        control->SelectionLast = static_cast<int>(state.Tree.Find(window)->Text.size());
        state.Report(Change::TextSelection, window);
    }
}

// Typing begins with the month, or the hour.
void EnterPicker(Shell& state, WindowHandle window) {
    ControlState* control = state.Tree.FindControl(window);
    if (control != nullptr && IsPicker(control->Kind)) {
        control->Entry.Part = 0;
        state.Report(Change::Content, window);
    }
}

} // namespace

void Shell::Report(Change change, WindowHandle window) {
    if (Observer != nullptr) {
        Observer->OnChange(change, window);
    }
}

bool Shell::TakesInput(WindowHandle window) const {
    return Menus.Boxes.empty() && Tree.IsVisible(window) && Tree.IsEnabled(window);
}

void Shell::MoveFocus(WindowHandle window) {
    if (window == Focus) {
        return;
    }
    if (TellsFocus(Tree.FindControl(Focus))) {
        Notify(Focus, WM_COMMAND, EN_KILLFOCUS);
    }
    FinishPicker(*this);
    Focus = window;
    SelectShortText(*this, Focus);
    EnterPicker(*this, Focus);
    if (TellsFocus(Tree.FindControl(Focus))) {
        Notify(Focus, WM_COMMAND, EN_SETFOCUS);
    }
    Report(Change::Focus, Focus);
}

void Shell::Withdraw(WindowHandle window) {
    if (OpenList != WindowHandle::None && Tree.Lies(OpenList, window)) {
        CloseList();
    }
    // A dialog takes nothing with it that its page loses: it is enabled by itself.
    if (Focus != WindowHandle::None && Tree.Lies(Focus, window) && !TakesInput(Focus)) {
        MoveFocus(WindowHandle::None);
    }
}

void Shell::Notify(WindowHandle control, MessageNumber number, int code, MessageOrigin origin) {
    const WindowRecord* record = Tree.Find(control);
    if (record == nullptr || !record->Control) {
        return;
    }
    Message message;
    message.Window = record->Parent;
    message.Number = number;
    message.Id = record->Control->Id;
    message.Code = code;
    Post(message, origin);
}

void Shell::CloseList() {
    const WindowHandle control = OpenList;
    OpenList = WindowHandle::None;
    if (const ControlState* state = Tree.FindControl(control); state != nullptr) {
        const bool isPicker = IsPicker(state->Kind);
        Notify(control, isPicker ? WM_NOTIFY : WM_COMMAND, isPicker ? DTN_CLOSEUP : CBN_CLOSEUP);
        Report(Change::ListClosed, control);
    }
}

void Shell::CloseMenu(int chosenCommand) {
    if (!Menus.IsMenuOpen()) {
        return;
    }
    if (Menus.Tracked) {
        Message message;
        message.Window = Menus.Tracked->Owner;
        message.Number = WM_EXITMENULOOP;
        message.Id = chosenCommand;
        Post(message);
    }
    Menus.Tracked.reset();
    Menus.BarMenu.reset();
    Report(Change::MenuClosed, WindowHandle::None);
}

void Shell::CloseStrayMenu() {
    const MenuBarState* bar = ShownBar();
    if (Menus.BarMenu && (bar == nullptr || bar->Handle != Menus.BarMenu->MenuBar)) {
        CloseMenu(0);
    }
}

WindowHandle Shell::KeyTarget() const {
    if (Focus != WindowHandle::None && TakesInput(Focus)) {
        return Focus;
    }
    const WindowHandle top = Tree.Top();
    const WindowRecord* last = nullptr;
    for (const WindowHandle window : Tree.Subtree(top)) {
        const WindowRecord* record = Tree.Find(window);
        if (record != nullptr && record->Control && record->ShownByCode && TakesKeys(record->Control->Kind) &&
            Tree.Ground(window) == top && TakesInput(window) &&
            (last == nullptr || record->ShownOrder > last->ShownOrder)) {
            last = record;
        }
    }
    if (last != nullptr) {
        return last->Handle;
    }
    return TakesInput(top) ? top : WindowHandle::None;
}

void Shell::Invalidate(WindowHandle window) {
    WindowRecord* record = Tree.Find(window);
    if (record == nullptr || !record->IsPainted()) {
        return;
    }
    const Size size = Tree.ClientSize(window);
    record->Invalid = Rect::FromSize(0, 0, size.Width, size.Height);
    Report(Change::Invalidated, window);
}

void Shell::WatchTop() {
    if (const WindowHandle top = Tree.Top(); top != LastTop) {
        LastTop = top;
        CloseStrayMenu();
        Report(Change::Top, top);
    }
}

const MenuBarState* Shell::ShownBar() const {
    return Menus.FindBarOf(Tree.Top());
}

void Shell::AnnounceScale() {
    for (const WindowHandle window : Tree.AllParentsFirst()) {
        if (Tree.Find(window)->IsPainted()) {
            Message message;
            message.Window = window;
            message.Number = WM_DISPLAYCHANGE;
            Post(message);
        }
    }
}

void Shell::SetMinimized(bool minimized) {
    if (Minimized == minimized) {
        return;
    }
    Minimized = minimized;
    if (Minimized) {
        CloseMenu(0);
        if (OpenList != WindowHandle::None) {
            CloseList();
        }
    }
    Report(Change::FrameState, Tree.Frame());
}

void Shell::AnnounceStoreChange() {
    if (!Posted.Has(WM_STORECHANGED)) {
        Message message;
        message.Window = Tree.Frame();
        message.Number = WM_STORECHANGED;
        Post(message);
    }
}

void Shell::AnnounceReminders() {
    for (const WindowHandle child : Tree.ChildrenOf(Tree.Frame())) {
        // Timers of the table are never posted: one that waits is this one.
        if (Tree.Find(child)->Kind == WindowKind::View && !Posted.Has(WM_TIMER)) {
            Message message;
            message.Window = child;
            message.Number = WM_TIMER;
            message.Id = kTimerReminderSound;
            Post(message);
        }
    }
}

} // namespace tavo::shell
