// The soft input panel's state: where it lies and whether it is up.
#pragma once

#include "host/shell/shell.h"
#include "platform/input_panel.h"

namespace tavo::shell {

// The 80 rows above the menu bar.
constexpr Rect kInputPanel{0, 214, 240, 294};

class ShellInputPanel : public IInputPanel {
  public:
    explicit ShellInputPanel(Shell& shell) : State(shell) {}

    SipInfo SipGetInfo() override;
    // Only whether it is shown can be chosen; its place is the device's.
    void SipSetInfo(const SipInfo& info) override;
    void SHSipPreference(WindowHandle window, bool up) override;

  private:
    void Show(bool shown);

    Shell& State;
    bool Shown = false;
};

} // namespace tavo::shell
