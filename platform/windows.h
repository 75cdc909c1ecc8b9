// Windows and their timers.
#pragma once

#include "platform/geometry.h"
#include "platform/handles.h"

#include <string>
#include <string_view>

namespace tavo {

// The device's screen and the places of its bars, in logical pixels.
constexpr Size kScreenSize{240, 320};
constexpr Rect kNavigationBar{0, 0, 240, 26};
constexpr Rect kClientArea{0, 26, 240, 294};
constexpr Rect kMenuBar{0, 294, 240, 320};

enum class WindowKind {
    Frame,  // the main window: the whole screen, one per program
    View,   // fills the client area of the frame
    Page,   // fills the client area, has a caption and ×
    Dialog, // lies over everything shown before it; covers the client area unless its bounds are smaller
    Child,  // a painted part of a page or dialog
};

// Which buttons the navigation bar shows while the window is on top. × sends WM_CLOSE to a page and WM_COMMAND
// IDCANCEL to a dialog; "ok" sends WM_COMMAND IDOK.
enum class NavigationButtons { None, Close, OkAndClose };

struct WindowDescription {
    WindowKind Kind = WindowKind::Child;
    std::u16string ClassName; // of the frame; others may leave it empty
    std::u16string Title;
    WindowHandle Parent = WindowHandle::None;
    Rect Bounds; // in the parent's pixels; of dialogs in the client area's
    NavigationButtons Buttons = NavigationButtons::None;
    bool Visible = false;
};

enum class ShowCommand { Hide, Show, Maximize, Minimize };

// Pointers of the stylus.
enum class Cursor { Arrow, Wait };

class IWindows {
  public:
    virtual ~IWindows() = default;

    // A main window of this class and title, in this or another process; None when there is none.
    virtual WindowHandle FindWindowW(std::u16string_view className, std::u16string_view title) = 0;
    // None when the device cannot make it.
    virtual WindowHandle CreateWindowExW(const WindowDescription& description) = 0;
    // Destroys its children and controls too.
    virtual void DestroyWindow(WindowHandle window) = 0;
    virtual void ShowWindow(WindowHandle window, ShowCommand command) = 0;
    virtual bool IsWindowVisible(WindowHandle window) = 0; // itself and all its parents
    virtual void MoveWindow(WindowHandle window, const Rect& bounds) = 0;
    virtual void EnableWindow(WindowHandle window, bool enabled) = 0;
    // Itself and its parents, up to the dialog or frame it lies in. A disabled window takes no stylus and no keys.
    virtual bool IsWindowEnabled(WindowHandle window) = 0;
    virtual void SetWindowTextW(WindowHandle window, std::u16string_view text) = 0;
    virtual Rect GetClientRect(WindowHandle window) = 0; // left and top are 0
    virtual void SetForegroundWindow(WindowHandle window) = 0;
    virtual void SetFocus(WindowHandle window) = 0;
    virtual WindowHandle GetFocus() = 0;
    virtual void InvalidateRect(WindowHandle window, const Rect& area) = 0;
    // Repeats every so many milliseconds until it is killed; setting it again starts its period anew.
    virtual void SetTimer(WindowHandle window, int id, int milliseconds) = 0;
    virtual void KillTimer(WindowHandle window, int id) = 0;
    virtual void SetCursor(Cursor cursor) = 0;
};

} // namespace tavo
