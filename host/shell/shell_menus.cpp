// Keeping menus and message boxes.
#include "host/shell/shell_menus.h"

#include <algorithm>
#include <utility>

namespace tavo::shell {

WindowHandle ShellMenus::SHCreateMenuBar(WindowHandle parent, const std::vector<MenuItem>& menus) {
    if (State.Tree.Find(parent) == nullptr) {
        return WindowHandle::None;
    }
    MenuBarState bar;
    bar.Handle = State.Tree.NewHandle();
    bar.Parent = parent;
    bar.Menus = menus;
    const WindowHandle handle = bar.Handle;
    State.Menus.Bars[handle] = std::move(bar);
    State.CloseStrayMenu(); // the bar before this one is not shown any more
    State.Report(Change::MenuBar, handle);
    return handle;
}

void ShellMenus::AddButtons(WindowHandle menuBar, const std::vector<MenuBarButton>& buttons) {
    const auto bar = State.Menus.Bars.find(menuBar);
    if (bar == State.Menus.Bars.end()) {
        return;
    }
    for (const MenuBarButton& button : buttons) {
        bar->second.Buttons.push_back({button, true, false});
    }
    State.Report(Change::MenuBar, menuBar);
}

void ShellMenus::SetMenuItem(WindowHandle menuBar, int id, bool enabled, bool checked) {
    const auto bar = State.Menus.Bars.find(menuBar);
    if (bar == State.Menus.Bars.end()) {
        return;
    }
    if (MenuItem* item = FindMenuItem(bar->second.Menus, id); item != nullptr) {
        item->Enabled = enabled;
        item->Checked = checked;
    }
    for (ButtonState& button : bar->second.Buttons) {
        if (button.Button.Id == id) {
            button.Enabled = enabled;
            button.Checked = checked;
        }
    }
    State.Report(Change::MenuBar, menuBar);
}

void ShellMenus::SetMenuItemText(WindowHandle menuBar, int id, const std::u16string& text) {
    const auto bar = State.Menus.Bars.find(menuBar);
    if (bar == State.Menus.Bars.end()) {
        return;
    }
    if (MenuItem* item = FindMenuItem(bar->second.Menus, id); item != nullptr) {
        item->Text = text;
        State.Report(Change::MenuBar, menuBar);
    }
}

bool ShellMenus::TrackPopupMenu(WindowHandle owner, const std::vector<MenuItem>& items, Point at, MenuAlign align) {
    if (State.Menus.IsMenuOpen()) {
        return false;
    }
    State.Menus.Tracked = TrackedMenu{owner, items, at, align};
    State.Report(Change::MenuTracked, owner);
    return true;
}

void ShellMenus::EndMenu() {
    State.CloseMenu(0);
}

void ShellMenus::OpenMessageBox(WindowHandle owner, const MessageBoxDescription& description) {
    State.CloseMenu(0);
    if (State.OpenList != WindowHandle::None) {
        State.CloseList();
    }
    State.Menus.Boxes.push_back({owner, description});
    State.Report(Change::BoxOpened, owner);
}

} // namespace tavo::shell
