// Windows, focus and timers of this process.
#pragma once

#include "host/shell/shell.h"

namespace tavo::shell {

class ShellWindows : public IWindows {
  public:
    explicit ShellWindows(Shell& shell) : State(shell) {}

    // Knows this process only; a host that shares the screen with others asks further.
    WindowHandle FindWindowW(std::u16string_view className, std::u16string_view title) override;
    WindowHandle CreateWindowExW(const WindowDescription& description) override;
    void DestroyWindow(WindowHandle window) override;
    void ShowWindow(WindowHandle window, ShowCommand command) override;
    bool IsWindowVisible(WindowHandle window) override;
    void MoveWindow(WindowHandle window, const Rect& bounds) override;
    void EnableWindow(WindowHandle window, bool enabled) override;
    bool IsWindowEnabled(WindowHandle window) override;
    void SetWindowTextW(WindowHandle window, std::u16string_view text) override;
    Rect GetClientRect(WindowHandle window) override;
    void SetForegroundWindow(WindowHandle window) override;
    void SetFocus(WindowHandle window) override;
    WindowHandle GetFocus() override;
    void InvalidateRect(WindowHandle window, const Rect& area) override;
    void SetTimer(WindowHandle window, int id, int milliseconds) override;
    void KillTimer(WindowHandle window, int id) override;
    void SetCursor(Cursor cursor) override;

  protected:
    Shell& State;
};

} // namespace tavo::shell
