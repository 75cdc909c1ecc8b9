// Turning a dialog template into a window with controls.
#include "framework/form_window.h"

namespace tavo {

namespace {
constexpr Color kFormBackground = Color::FromRgb(255, 255, 255);
}

CFormWindow::CFormWindow(CMessagePump& pump, const DialogTemplate& form, Size surfaceSize)
    : CPaintedWindow(pump, surfaceSize), Template(form) {}

bool CFormWindow::CreateForm(const WindowDescription& description) {
    Items.clear();
    if (!Create(description)) {
        return false;
    }
    for (const DialogItem& item : Template.Items) {
        ControlDescription control;
        control.Kind = item.Kind;
        control.Id = item.Id;
        control.Text = item.Text;
        control.Bounds = ToPixels(item.Bounds);
        control.FontPoints = Template.FontPoints;
        control.PictureOff = item.PictureOff;
        control.PictureOn = item.PictureOn;
        control.StartsGroup = item.StartsGroup;
        control.Visible = item.Visible;
        const WindowHandle handle = AddControl(control);
        if (!item.ListItems.empty()) {
            const std::vector<std::u16string> entries(item.ListItems.begin(), item.ListItems.end());
            Host().Controls().SetListItems(handle, entries);
        }
    }
    return true;
}

WindowHandle CFormWindow::AddControl(const ControlDescription& description) {
    const WindowHandle control = Host().Controls().CreateControl(Handle(), description);
    if (description.Id != 0) {
        Items[description.Id] = control;
    }
    return control;
}

WindowHandle CFormWindow::Item(int id) const {
    const auto found = Items.find(id);
    return found == Items.end() ? WindowHandle::None : found->second;
}

std::u16string CFormWindow::ItemText(int id) const {
    return Host().Controls().GetWindowTextW(Item(id));
}

void CFormWindow::SetItemText(int id, std::u16string_view text) {
    Host().Windows().SetWindowTextW(Item(id), text);
}

void CFormWindow::ShowItem(int id, bool show) {
    Host().Windows().ShowWindow(Item(id), show ? ShowCommand::Show : ShowCommand::Hide);
}

void CFormWindow::EnableItem(int id, bool enable) {
    Host().Windows().EnableWindow(Item(id), enable);
}

void CFormWindow::MoveItem(int id, const Rect& pixels) {
    Host().Windows().MoveWindow(Item(id), pixels);
}

std::vector<WindowHandle> CFormWindow::FocusStops() const {
    IWindows& windows = Host().Windows();
    std::vector<WindowHandle> stops;
    for (const DialogItem& item : Template.Items) {
        const WindowHandle control = Item(item.Id);
        const bool takesKeys = item.Kind != ControlKind::Label && item.Kind != ControlKind::ScrollBar;
        if (takesKeys && windows.IsWindowVisible(control) && windows.IsWindowEnabled(control)) {
            stops.push_back(control);
        }
    }
    return stops;
}

void CFormWindow::WalkFocus(int step) {
    const std::vector<WindowHandle> stops = FocusStops();
    if (!stops.empty()) {
        Host().Windows().SetFocus(NextStop(stops, Host().Windows().GetFocus(), step));
    }
}

void CFormWindow::Paint() {
    Surface().FillRect(Rect::Whole(Surface().GetSize()), kFormBackground);
    DropPainted();
    PresentSurface();
}

} // namespace tavo
