// The one place where messages are waited for.
#include "framework/message_pump.h"

#include "framework/window.h"

#include <algorithm>

namespace tavo {

CMessagePump::CMessagePump(IHost& host) : Device(host) {}

void CMessagePump::Attach(WindowHandle window, CWindow& target) {
    Targets[window] = &target;
}

void CMessagePump::Detach(WindowHandle window) {
    Targets.erase(window);
}

int CMessagePump::Run() {
    const bool never = false;
    static_cast<void>(RunUntil(never)); // only quitting ends it
    return QuitCode;
}

bool CMessagePump::RunUntil(const bool& done) {
    while (!done && !Quit) {
        const Message message = Device.Queue().Wait();
        if (message.Number == WM_QUIT) {
            Quit = true;
            QuitCode = message.Id;
        } else if (!TakeAnswer(message)) {
            Dispatch(message);
        }
    }
    return done;
}

void CMessagePump::Dispatch(const Message& message) {
    const WindowHandle window = message.Window == WindowHandle::None ? MainWindow : message.Window;
    if (const auto target = Targets.find(window); target != Targets.end()) {
        target->second->HandleMessage(message);
    }
}

bool CMessagePump::TakeAnswer(const Message& message) {
    const auto isAwaited = [&](const Answer* answer) {
        return !answer->Done && answer->Number == message.Number && answer->Owner == message.Window;
    };
    const auto found = std::find_if(Awaited.rbegin(), Awaited.rend(), isAwaited);
    if (found == Awaited.rend()) {
        return false;
    }
    (*found)->Id = message.Id;
    (*found)->Done = true;
    return true;
}

int CMessagePump::WaitForAnswer(WindowHandle owner, MessageNumber number) {
    Answer answer{owner, number};
    Awaited.push_back(&answer);
    static_cast<void>(RunUntil(answer.Done)); // without an answer the id stays 0
    std::erase(Awaited, &answer);
    return answer.Id;
}

int CMessagePump::ShowMessageBox(WindowHandle owner, const MessageBoxDescription& box) {
    Device.Menus().OpenMessageBox(owner, box);
    const int answer = WaitForAnswer(owner, WM_MESSAGEBOXCLOSED);
    return answer == 0 ? IDCANCEL : answer;
}

int CMessagePump::TrackPopupMenu(WindowHandle owner, const std::vector<MenuItem>& items, Point at, MenuAlign align) {
    if (!Device.Menus().TrackPopupMenu(owner, items, at, align)) {
        return 0;
    }
    return WaitForAnswer(owner, WM_EXITMENULOOP);
}

WindowHandle CMessagePump::TopDialog() const {
    return Dialogs.empty() ? WindowHandle::None : Dialogs.back().Window;
}

void CMessagePump::PushDialog(WindowHandle dialog) {
    IWindows& windows = Device.Windows();
    const WindowHandle beneath = Dialogs.empty() ? MainWindow : Dialogs.back().Window;
    Dialogs.push_back({dialog, beneath, windows.GetFocus()});
    if (beneath != WindowHandle::None) {
        windows.EnableWindow(beneath, false);
    }
}

void CMessagePump::PopDialog(WindowHandle dialog) {
    const auto found =
        std::find_if(Dialogs.begin(), Dialogs.end(), [&](const ModalDialog& entry) { return entry.Window == dialog; });
    if (found == Dialogs.end()) {
        return;
    }
    IWindows& windows = Device.Windows();
    if (found->Beneath != WindowHandle::None) {
        windows.EnableWindow(found->Beneath, true);
    }
    windows.SetFocus(found->Focus);
    Dialogs.erase(found);
}

} // namespace tavo
