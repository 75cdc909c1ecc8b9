// The message loop, and its nested form in which dialogs, menus and message boxes wait.
#pragma once

#include "platform/host.h"

#include <unordered_map>
#include <vector>

namespace tavo {

class CWindow;

class CMessagePump {
  public:
    explicit CMessagePump(IHost& host);
    CMessagePump(const CMessagePump&) = delete;
    CMessagePump& operator=(const CMessagePump&) = delete;

    IHost& Host() const { return Device; }

    void Attach(WindowHandle window, CWindow& target);
    void Detach(WindowHandle window);

    // Hands out messages until WM_QUIT; gives its code.
    int Run();
    // Hands out messages until `done` is set by a handler. False when WM_QUIT came first: every pump then ends.
    bool RunUntil(const bool& done);

    bool HasQuit() const { return Quit; }

    // The frame: what the first modal dialog disables, and whose messages without a window go to.
    void SetMainWindow(WindowHandle window) { MainWindow = window; }

    // Opens a message box and waits for its answer: IDOK, IDYES or IDNO; IDCANCEL when the program quits meanwhile.
    int ShowMessageBox(WindowHandle owner, const MessageBoxDescription& box);
    // Opens a menu and waits; the chosen command, or 0.
    int TrackPopupMenu(WindowHandle owner, const std::vector<MenuItem>& items, Point at, MenuAlign align);

    // The dialog that takes input now, or None.
    WindowHandle TopDialog() const;
    // Modal dialogs announce themselves from opening to end; everything beneath takes no input meanwhile.
    void PushDialog(WindowHandle dialog);
    void PopDialog(WindowHandle dialog);

  private:
    void Dispatch(const Message& message);
    bool TakeAnswer(const Message& message);
    int WaitForAnswer(WindowHandle owner, MessageNumber number);

    struct Answer {
        WindowHandle Owner = WindowHandle::None;
        MessageNumber Number = WM_NULL;
        int Id = 0;
        bool Done = false;
    };

    struct ModalDialog {
        WindowHandle Window = WindowHandle::None;
        WindowHandle Beneath = WindowHandle::None; // what was disabled for it
        WindowHandle Focus = WindowHandle::None;   // what had the focus before
    };

    IHost& Device;
    WindowHandle MainWindow = WindowHandle::None;
    std::unordered_map<WindowHandle, CWindow*> Targets;
    std::vector<ModalDialog> Dialogs;
    std::vector<Answer*> Awaited; // innermost last
    bool Quit = false;
    int QuitCode = 0;
};

} // namespace tavo
