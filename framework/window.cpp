// Message dispatch and the life of a window.
#include "framework/window.h"

#include "framework/message_pump.h"

namespace tavo {

CWindow::CWindow(CMessagePump& pump) : OwnPump(&pump) {}

CWindow::~CWindow() {
    Destroy();
}

IHost& CWindow::Host() const {
    return OwnPump->Host();
}

bool CWindow::Create(const WindowDescription& description) {
    Window = Host().Windows().CreateWindowExW(description);
    if (Window == WindowHandle::None) {
        return false;
    }
    OwnPump->Attach(Window, *this);
    return true;
}

void CWindow::Destroy() {
    if (Window == WindowHandle::None) {
        return;
    }
    OwnPump->Detach(Window);
    Host().Windows().DestroyWindow(Window);
    Window = WindowHandle::None;
}

const MessageMap& CWindow::Messages() {
    static constexpr MessageMap map{};
    return map;
}

void CWindow::HandleMessage(const Message& message) {
    for (const MessageMap* map = &GetMessageMap(); map != nullptr; map = map->Base) {
        for (const MessageEntry& entry : map->Entries) {
            if (entry.Matches(message) && entry.Invoke(*this, message)) {
                return;
            }
        }
    }
    HandleByDefault(message);
}

void CWindow::HandleByDefault(const Message&) {}

void CWindow::Show(ShowCommand command) {
    Host().Windows().ShowWindow(Window, command);
}

void CWindow::Invalidate() {
    Invalidate(Host().Windows().GetClientRect(Window));
}

void CWindow::Invalidate(const Rect& area) {
    Host().Windows().InvalidateRect(Window, area);
}

void CWindow::Post(MessageNumber number, int id, int code, int value) {
    Host().Queue().PostMessageW({Window, number, id, code, value, {}});
}

} // namespace tavo
