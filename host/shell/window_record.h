// One window, dialog, page or control as the shell keeps it.
#pragma once

#include "host/shell/control_state.h"
#include "platform/windows.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tavo::shell {

struct WindowRecord {
    WindowHandle Handle = WindowHandle::None;
    WindowHandle Parent = WindowHandle::None;
    WindowKind Kind = WindowKind::Child; // controls are children
    std::u16string ClassName;
    std::u16string Text; // title, or the text of a control
    Rect Bounds;         // in the parent's pixels; of dialogs in the client area's
    NavigationButtons Buttons = NavigationButtons::None;
    bool Visible = false;
    bool Enabled = true;
    std::uint64_t ShownOrder = 0; // counts up with every showing: the highest lies on top
    bool ShownByCode = false;     // shown after it was made, not made visible
    Rect Invalid;                 // in its own pixels; empty when nothing is to be painted
    std::optional<ControlState> Control;

    // The program paints it (everything that is no native control).
    bool IsPainted() const { return !Control.has_value(); }
};

} // namespace tavo::shell
