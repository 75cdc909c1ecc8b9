// Writing down what opens.
#include "host/headless/sightings.h"

namespace tavo::headless {

void Sightings::OnChange(shell::Change change, WindowHandle window) {
    using shell::Change;
    if (State == nullptr) {
        return;
    }
    const shell::MenuState& menus = State->Menus;
    if (change == Change::BoxOpened) {
        Boxes.push_back(menus.Boxes.back().Description);
        BoxOwners.push_back(menus.Boxes.back().Owner);
    } else if (change == Change::MenuTracked) {
        Menus.push_back(*menus.Tracked);
    } else if (change == Change::BarMenuOpened) {
        const int index = menus.BarMenu->Index;
        BarMenus.push_back({index, menus.Bars.at(window).Menus[static_cast<std::size_t>(index)]});
    } else if (change == Change::ListOpened) {
        const shell::ControlState* control = State->Tree.FindControl(window);
        Lists.push_back({control->Id, control->Items, control->Current});
    } else if (change == Change::Cursor) {
        Cursors.push_back(State->Cursor);
    } else if (change == Change::BroughtForward) {
        ++BroughtForward;
    } else if (change == Change::Destroyed) {
        Drawing.Forget(window);
    }
}

} // namespace tavo::headless
