// Windows of this process, and the main window of another one that runs on the same root.
#pragma once

#include "host/files/instance_lock.h"
#include "host/shell/shell_windows.h"

namespace tavo::qt {

// What FindWindowW calls the other process's window. It can be shown and brought forward, nothing else.
constexpr WindowHandle kOtherProgram{0xFFFFFFFF};

class DesktopWindows final : public shell::ShellWindows {
  public:
    DesktopWindows(shell::Shell& shell, std::string runFolder)
        : ShellWindows(shell), RunFolder(runFolder), Lock(std::move(runFolder)) {}

    // Looking for a running copy claims the root when there is none.
    WindowHandle FindWindowW(std::u16string_view className, std::u16string_view title) override;
    void ShowWindow(WindowHandle window, ShowCommand command) override;
    void SetForegroundWindow(WindowHandle window) override;

    files::InstanceLock& Instance() { return Lock; }

  private:
    std::string RunFolder;
    files::InstanceLock Lock;
    bool IsClaimed = false;
};

} // namespace tavo::qt
