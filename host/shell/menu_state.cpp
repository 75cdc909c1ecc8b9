// Looking for menu items.
#include "host/shell/menu_state.h"

namespace tavo::shell {

namespace {

bool IsSubmenu(const MenuItem& item) {
    return item.IsPopup || !item.Children.empty();
}

} // namespace

const MenuBarState* MenuState::FindBarOf(WindowHandle parent) const {
    const MenuBarState* latest = nullptr;
    for (const auto& [handle, bar] : Bars) {
        if (bar.Parent == parent) {
            latest = &bar;
        }
    }
    return latest;
}

const MenuItem* FindMenuItem(const std::vector<MenuItem>& items, int id) {
    for (const MenuItem& item : items) {
        if (item.Id == id && !item.IsSeparator) {
            return &item;
        }
        if (const MenuItem* below = FindMenuItem(item.Children, id); below != nullptr) {
            return below;
        }
    }
    return nullptr;
}

MenuItem* FindMenuItem(std::vector<MenuItem>& items, int id) {
    for (MenuItem& item : items) {
        if (item.Id == id && !item.IsSeparator) {
            return &item;
        }
        if (MenuItem* below = FindMenuItem(item.Children, id); below != nullptr) {
            return below;
        }
    }
    return nullptr;
}

bool CanChoose(const std::vector<MenuItem>& items, int id) {
    for (const MenuItem& item : items) {
        if (!item.Enabled || item.IsSeparator) {
            continue;
        }
        if (IsSubmenu(item) ? CanChoose(item.Children, id) : item.Id == id && id != 0) {
            return true;
        }
    }
    return false;
}

} // namespace tavo::shell
