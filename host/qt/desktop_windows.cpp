// One program for each root; a second start asks the first to come forward.
#include "host/qt/desktop_windows.h"

#include <cstdlib>
#include <thread>
#include <utility>

namespace tavo::qt {
namespace {

// A tool holds the root only while it writes one small file.
constexpr std::chrono::seconds kPatience{5};
constexpr std::chrono::milliseconds kBetweenLooks{20};

// The desktop's leave to come forward, which this process got and passes on.
const char* OwnToken() {
    const char* token = std::getenv("XDG_ACTIVATION_TOKEN");
    return token == nullptr ? "" : token;
}

} // namespace

WindowHandle DesktopWindows::FindWindowW(std::u16string_view className, std::u16string_view title) {
    if (const WindowHandle own = ShellWindows::FindWindowW(className, title); own != WindowHandle::None) {
        return own;
    }
    const bool isClaimed = LastClaim == posix::LockOutcome::Held;
    return !isClaimed && posix::InstanceLock::ProgramRuns(RunFolder) ? kOtherProgram : WindowHandle::None;
}

WindowHandle DesktopWindows::CreateWindowExW(const WindowDescription& description) {
    if (description.Kind == WindowKind::Frame && ClaimRoot() != posix::LockOutcome::Held) {
        return WindowHandle::None;
    }
    return ShellWindows::CreateWindowExW(description);
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
    Asked = posix::InstanceLock::RequestActivation(RunFolder, OwnToken());
}

posix::LockOutcome DesktopWindows::ClaimRoot() {
    if (LastClaim != posix::LockOutcome::Held) {
        LastClaim = Lock.Acquire(posix::InstanceRole::Program, kPatience);
    }
    return *LastClaim;
}

OtherAnswer DesktopWindows::WaitForOther(std::chrono::milliseconds patience) {
    if (!Asked) {
        SetForegroundWindow(kOtherProgram); // it came between the question and the claim
    }
    if (std::exchange(Asked, {}) != ErrorCode::Success) {
        return OtherAnswer::Silent;
    }
    const auto end = std::chrono::steady_clock::now() + patience;
    while (posix::InstanceLock::HasActivationRequest(RunFolder)) {
        if (!posix::InstanceLock::ProgramRuns(RunFolder)) {
            return OtherAnswer::Ended;
        }
        if (std::chrono::steady_clock::now() >= end) {
            return OtherAnswer::Silent;
        }
        std::this_thread::sleep_for(kBetweenLooks);
    }
    return OtherAnswer::Comes;
}

} // namespace tavo::qt
