// Acting on the state that such a host shows, and reading it.
#include "tests/conformance/bare_driver.h"

#include "host/bare/control_touch.h"
#include "host/shell/chrome/chrome.h"
#include "host/shell/picker_input.h"

namespace tavo::conformance {

void BareDriver::PressKey(int key, int modifiers) {
    bare::PressKey(Real(), key, modifiers);
}

void BareDriver::ReleaseKey(int key, int modifiers) {
    Real().Keys.Up(key, modifiers);
}

void BareDriver::TypeCharacter(char16_t character) {
    bare::TypeCharacter(Real(), character);
}

void BareDriver::Pick(WindowHandle control, const SYSTEMTIME& time) {
    Real().ControlActions.Pick(control, time);
}

void BareDriver::Scroll(WindowHandle control, int request, int position) {
    Real().ControlActions.Scroll(control, request, position);
}

void BareDriver::RequestClose() {
    Real().Navigation.RequestClose();
}

void BareDriver::RequestQuit() {
    Real().Navigation.RequestQuit();
}

void BareDriver::Minimize(bool minimized) {
    Real().State.SetMinimized(minimized);
}

std::u16string BareDriver::Caption() {
    return Real().Chrome().Navigation.Title();
}

bool BareDriver::IsListOpen(WindowHandle control) {
    return control != WindowHandle::None && Real().State.OpenList == control;
}

std::vector<std::u16string> BareDriver::EntriesOf(WindowHandle control) {
    return IsListOpen(control) ? Real().State.Tree.FindControl(control)->Items : std::vector<std::u16string>();
}

std::u16string BareDriver::ShownTextOf(WindowHandle control) {
    const shell::WindowRecord* record = Real().State.Tree.Find(control);
    if (record != nullptr && record->Control && shell::IsPicker(record->Control->Kind)) {
        return shell::FaceOf(*record).Text;
    }
    return record == nullptr ? std::u16string() : record->Text;
}

bool BareDriver::IsControlShown(WindowHandle control) {
    return Real().State.Tree.IsVisible(control);
}

std::vector<MenuItem> BareDriver::TrackedItems() {
    const auto& tracked = Real().State.Menus.Tracked;
    return tracked ? tracked->Items : std::vector<MenuItem>();
}

std::vector<MenuItem> BareDriver::OpenBarItems() {
    const auto& open = Real().State.Menus.BarMenu;
    const shell::MenuBarState* bar = Real().State.ShownBar();
    if (!open || bar == nullptr) {
        return {};
    }
    return bar->Menus[static_cast<std::size_t>(open->Index)].Children;
}

std::u16string BareDriver::BoxText() {
    const auto& boxes = Real().State.Menus.Boxes;
    return boxes.empty() ? std::u16string() : boxes.back().Description.Text;
}

} // namespace tavo::conformance
