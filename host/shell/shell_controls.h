// The state of the native controls, as the program reads and sets it.
#pragma once

#include "host/shell/shell.h"
#include "platform/clock.h"

namespace tavo::shell {

class ShellControls : public IControls {
  public:
    // Pickers start at the clock's time.
    ShellControls(Shell& shell, IClock& clock) : State(shell), Clock(clock) {}

    WindowHandle CreateControl(WindowHandle parent, const ControlDescription& description) override;
    std::u16string GetWindowTextW(WindowHandle control) override;
    void SetTextLimit(WindowHandle control, int characters) override;
    void SetTextSelection(WindowHandle control, int first, int last) override;
    void SetListItems(WindowHandle control, std::span<const std::u16string> items) override;
    int GetCurSel(WindowHandle control) override;
    void SetCurSel(WindowHandle control, int index) override;
    bool GetCheck(WindowHandle control) override;
    void SetCheck(WindowHandle control, bool checked) override;
    SYSTEMTIME GetSystemtime(WindowHandle control) override;
    bool SetSystemtime(WindowHandle control, const SYSTEMTIME& time) override;
    ScrollInfo GetScrollInfo(WindowHandle control) override;
    void SetScrollInfo(WindowHandle control, const ScrollInfo& info) override;

  private:
    Shell& State;
    IClock& Clock;
};

// All radio buttons of the group that this one belongs to, in order of creation.
std::vector<WindowHandle> RadioGroup(const WindowTree& tree, WindowHandle radioButton);
// Sets the check and clears the rest of a radio button's group; tells the observer, not the program.
void ApplyCheck(Shell& shell, WindowHandle control, bool checked);
// False for a date or time that does not exist.
bool IsPossible(const SYSTEMTIME& time);
// Of a possible date: 0 is Sunday.
std::uint16_t WeekdayOf(const SYSTEMTIME& time);

} // namespace tavo::shell
