// Menu bars, tracked menus and message boxes.
#pragma once

#include "host/shell/shell.h"

namespace tavo::shell {

class ShellMenus : public IMenus {
  public:
    explicit ShellMenus(Shell& shell) : State(shell) {}

    WindowHandle SHCreateMenuBar(WindowHandle parent, const std::vector<MenuItem>& menus) override;
    void AddButtons(WindowHandle menuBar, const std::vector<MenuBarButton>& buttons) override;
    void SetMenuItem(WindowHandle menuBar, int id, bool enabled, bool checked) override;
    void SetMenuItemText(WindowHandle menuBar, int id, const std::u16string& text) override;
    bool TrackPopupMenu(WindowHandle owner, const std::vector<MenuItem>& items, Point at, MenuAlign align) override;
    void EndMenu() override;
    void OpenMessageBox(WindowHandle owner, const MessageBoxDescription& description) override;

  private:
    Shell& State;
};

} // namespace tavo::shell
