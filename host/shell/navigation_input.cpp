// Closing, quitting and choosing from menus and boxes.
#include "host/shell/navigation_input.h"

#include "host/shell/picker_input.h"

#include <utility>

namespace tavo::shell {

namespace {

bool HasButton(const MessageBoxDescription& box, int answer) {
    if (box.Buttons == MessageBoxButtons::YesNo) {
        return answer == IDYES || answer == IDNO;
    }
    return answer == IDOK;
}

} // namespace

void NavigationInput::PressOk() {
    FinishPicker(State);
    const WindowRecord* dialog = State.Tree.Find(State.Tree.TopDialog());
    if (dialog == nullptr || dialog->Buttons != NavigationButtons::OkAndClose) {
        return;
    }
    State.Post({dialog->Handle, WM_COMMAND, IDOK, BN_CLICKED, kFromMenuOrKey, {}}, MessageOrigin::Person);
}

bool NavigationInput::PressEscape() {
    FinishPicker(State);
    if (!State.Menus.Boxes.empty()) {
        AnswerBox(IDOK); // with Yes and No there is no way around an answer
        return true;
    }
    if (State.Menus.IsMenuOpen()) {
        State.CloseMenu(0);
        return true;
    }
    if (State.OpenList != WindowHandle::None) {
        State.CloseList();
        return true;
    }
    if (const WindowHandle dialog = State.Tree.TopDialog(); dialog != WindowHandle::None) {
        State.Post({dialog, WM_COMMAND, IDCANCEL, BN_CLICKED, kFromMenuOrKey, {}}, MessageOrigin::Person);
        return true;
    }
    return false;
}

bool NavigationInput::PressClose() {
    if (PressEscape()) {
        return true;
    }
    if (const WindowHandle page = State.Tree.ShownPage(); page != WindowHandle::None) {
        Message message;
        message.Window = page;
        message.Number = WM_CLOSE;
        State.Post(message, MessageOrigin::Person);
        return true;
    }
    return false;
}

void NavigationInput::RequestClose() {
    if (State.Menus.Boxes.empty()) {
        State.CloseMenu(0);
        if (State.OpenList != WindowHandle::None) {
            State.CloseList();
        }
    }
    if (!PressClose()) {
        RequestQuit();
    }
}

void NavigationInput::RequestQuit(int reason) {
    QuitRequested = true;
    FinishPicker(State);
    Message message;
    message.Window = State.Tree.Frame();
    message.Number = WM_QUERYENDSESSION;
    message.Id = reason;
    State.Post(message);
}

bool NavigationInput::ChooseCommand(int id) {
    const MenuBarState* bar = State.ShownBar();
    if (bar == nullptr || !State.TakesInput(bar->Parent)) {
        return false;
    }
    bool canChoose = false;
    if (State.Menus.BarMenu) {
        const auto index = static_cast<std::size_t>(State.Menus.BarMenu->Index);
        canChoose = State.Menus.BarMenu->MenuBar == bar->Handle && CanChoose({bar->Menus[index]}, id);
    } else {
        for (const ButtonState& button : bar->Buttons) {
            canChoose = canChoose || (button.Button.Id == id && button.Enabled);
        }
        for (const MenuItem& item : bar->Menus) {
            canChoose = canChoose || (item.Children.empty() && CanChoose({item}, id));
        }
    }
    if (!canChoose) {
        return false;
    }
    FinishPicker(State);
    State.CloseMenu(0);
    State.Post({bar->Parent, WM_COMMAND, id, BN_CLICKED, kFromMenuOrKey, {}}, MessageOrigin::Person);
    return true;
}

bool NavigationInput::OpenBarMenu(int index) {
    const MenuBarState* bar = State.ShownBar();
    if (bar == nullptr || !State.TakesInput(bar->Parent) || State.Menus.Tracked || index < 0 ||
        index >= static_cast<int>(bar->Menus.size()) || !bar->Menus[static_cast<std::size_t>(index)].Enabled) {
        return false;
    }
    FinishPicker(State);
    State.CloseMenu(0); // from one menu of the bar to the next
    Message message;
    message.Window = bar->Parent;
    message.Number = WM_INITMENUPOPUP;
    message.Id = index;
    State.Announce(message, {OpeningKind::BarMenu, bar->Handle, index});
    return true;
}

void NavigationInput::CloseBarMenu() {
    if (State.Menus.BarMenu) {
        State.CloseMenu(0);
    }
}

bool NavigationInput::ChooseTracked(int id) {
    if (!State.Menus.Tracked || (id != 0 && !CanChoose(State.Menus.Tracked->Items, id))) {
        return false;
    }
    State.CloseMenu(id);
    return true;
}

bool NavigationInput::AnswerBox(int answer) {
    if (State.Menus.Boxes.empty() || !HasButton(State.Menus.Boxes.back().Description, answer)) {
        return false;
    }
    Message message;
    message.Window = State.Menus.Boxes.back().Owner;
    message.Number = WM_MESSAGEBOXCLOSED;
    message.Id = answer;
    State.Menus.Boxes.pop_back();
    State.Post(message);
    State.Report(Change::BoxClosed, message.Window);
    return true;
}

} // namespace tavo::shell
