// One program for each root; a second start asks the first to come forward.
#include "host/qt/desktop_windows.h"

#include <chrono>
#include <cstdlib>

namespace tavo::qt {
namespace {

// A tool holds the root only while it writes one small file.
constexpr std::chrono::seconds kPatience{5};

} // namespace

WindowHandle DesktopWindows::FindWindowW(std::u16string_view className, std::u16string_view title) {
    if (const WindowHandle own = ShellWindows::FindWindowW(className, title); own != WindowHandle::None) {
        return own;
    }
    if (IsClaimed) {
        return WindowHandle::None;
    }
    const files::LockOutcome outcome = Lock.Acquire(files::InstanceRole::Program, kPatience);
    IsClaimed = outcome == files::LockOutcome::Held;
    return outcome == files::LockOutcome::ProgramRuns ? kOtherProgram : WindowHandle::None;
}

void DesktopWindows::ShowWindow(WindowHandle window, ShowCommand command) {
    if (window != kOtherProgram) { // the other one shows itself when it is brought forward
        ShellWindows::ShowWindow(window, command);
    }
}

void DesktopWindows::SetForegroundWindow(WindowHandle window) {
    if (window != kOtherProgram) {
        ShellWindows::SetForegroundWindow(window);
        return;
    }
    const char* token = std::getenv("XDG_ACTIVATION_TOKEN");
    // When it cannot be reached there is nothing more that this process could do for it.
    (void)files::InstanceLock::RequestActivation(RunFolder, token == nullptr ? "" : token);
}

} // namespace tavo::qt
