// Raising and lowering the input panel.
#include "host/shell/shell_input_panel.h"

namespace tavo::shell {

SipInfo ShellInputPanel::SipGetInfo() {
    Rect visible = kClientArea;
    if (Shown) {
        visible.Bottom = kInputPanel.Top;
    }
    return {Shown, visible, kInputPanel};
}

void ShellInputPanel::SipSetInfo(const SipInfo& info) {
    Show(info.Shown);
}

void ShellInputPanel::SHSipPreference(WindowHandle, bool up) {
    Show(up);
}

void ShellInputPanel::Show(bool shown) {
    if (Shown != shown) {
        Shown = shown;
        State.Report(Change::InputPanel, WindowHandle::None);
    }
}

} // namespace tavo::shell
