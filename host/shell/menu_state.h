// Menu bars, the open menu and the open message boxes.
#pragma once

#include "platform/menus.h"

#include <map>
#include <optional>
#include <vector>

namespace tavo::shell {

struct ButtonState {
    MenuBarButton Button;
    bool Enabled = true;
    bool Checked = false;
};

struct MenuBarState {
    WindowHandle Handle = WindowHandle::None;
    WindowHandle Parent = WindowHandle::None;
    std::vector<MenuItem> Menus;
    std::vector<ButtonState> Buttons;
};

struct TrackedMenu {
    WindowHandle Owner = WindowHandle::None;
    std::vector<MenuItem> Items;
    Point At; // on the screen
    MenuAlign Align = MenuAlign::Left;
};

struct OpenBarMenu {
    WindowHandle MenuBar = WindowHandle::None;
    int Index = 0;
};

struct OpenBox {
    WindowHandle Owner = WindowHandle::None;
    MessageBoxDescription Description;
};

struct MenuState {
    std::map<WindowHandle, MenuBarState> Bars;
    std::optional<TrackedMenu> Tracked;
    std::optional<OpenBarMenu> BarMenu;
    std::vector<OpenBox> Boxes; // innermost last

    bool IsMenuOpen() const { return Tracked.has_value() || BarMenu.has_value(); }

    // The bar made last for this window, or null.
    const MenuBarState* FindBarOf(WindowHandle parent) const;
};

// The item with this command at any depth, or null.
MenuItem* FindMenuItem(std::vector<MenuItem>& items, int id);
const MenuItem* FindMenuItem(const std::vector<MenuItem>& items, int id);
// A command that can be chosen: there, no separator, no submenu, it and every menu above it enabled.
bool CanChoose(const std::vector<MenuItem>& items, int id);

} // namespace tavo::shell
