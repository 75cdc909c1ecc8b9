// Windows of this process, and the main window of another one that runs on the same root.
#pragma once

#include "host/posix/instance_lock.h"
#include "host/shell/shell_windows.h"

#include <chrono>
#include <optional>

namespace tavo::qt {

// What FindWindowW calls the other process's window. It can be shown and brought forward, nothing else.
constexpr WindowHandle kOtherProgram{0xFFFFFFFF};

// What became of asking the other one to come forward.
enum class OtherAnswer {
    Comes,  // it has taken the request
    Ended,  // it ended without taking it: the root is free
    Silent, // it did neither in time, or could not be asked
};

class DesktopWindows final : public shell::ShellWindows {
  public:
    DesktopWindows(shell::Shell& shell, std::string runFolder)
        : ShellWindows(shell), RunFolder(runFolder), Lock(std::move(runFolder)) {}

    // Of another process it only asks, and takes nothing.
    WindowHandle FindWindowW(std::u16string_view className, std::u16string_view title) override;
    // None for a main window on a root that another process has.
    WindowHandle CreateWindowExW(const WindowDescription& description) override;
    void ShowWindow(WindowHandle window, ShowCommand command) override;
    void SetForegroundWindow(WindowHandle window) override;

    // Makes the root this process's until it ends; the main window does so. A tool that writes is waited for.
    posix::LockOutcome ClaimRoot();

    // Of the last claim; nothing when none was made, because another program was found.
    std::optional<posix::LockOutcome> Claim() const { return LastClaim; }

    // After another program was found: whether it comes forward. It is asked if it was not yet.
    OtherAnswer WaitForOther(std::chrono::milliseconds patience);

    posix::InstanceLock& Instance() { return Lock; }

  private:
    std::string RunFolder;
    posix::InstanceLock Lock;
    std::optional<posix::LockOutcome> LastClaim;
    std::optional<ErrorCode> Asked; // the other one, to come forward
};

} // namespace tavo::qt
