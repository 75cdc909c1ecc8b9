// The suite's hands and eyes on the scripted device.
#include "host/headless/control_touch.h"
#include "host/headless/device.h"
#include "host/shell/picker_input.h"
#include "tests/conformance/device_driver.h"

namespace tavo::conformance {

namespace {

class HeadlessDriver : public IDeviceDriver {
  public:
    IHost& Host() override { return Device.Host(); }

    void Do(std::function<void()> step) override { Device.Do(std::move(step)); }

    void PressStylus(Point screen) override { Touch.Down(screen); }

    void MoveStylus(Point screen) override { Touch.Move(screen); }

    void ReleaseStylus(Point screen) override { Touch.Up(screen); }

    void PressKey(int key, int modifiers) override {
        if (const WindowHandle control = Real().Keys.Down(key, modifiers); control != WindowHandle::None) {
            headless::PressKeyInControl(Real(), control, key, modifiers);
        }
    }

    void ReleaseKey(int key, int modifiers) override { Real().Keys.Up(key, modifiers); }

    void TypeCharacter(char16_t character) override {
        if (const WindowHandle control = Real().Keys.Character(character); control != WindowHandle::None) {
            headless::TypeInControl(Real(), control, character);
        }
    }

    void OpenList(WindowHandle control) override { Real().ControlActions.OpenList(control); }

    void CloseList(WindowHandle control) override { Real().ControlActions.CloseList(control); }

    void ChooseEntry(WindowHandle control, int index) override { Real().ControlActions.Choose(control, index); }

    void Pick(WindowHandle control, const SYSTEMTIME& time) override { Real().ControlActions.Pick(control, time); }

    void Scroll(WindowHandle control, int request, int position) override {
        Real().ControlActions.Scroll(control, request, position);
    }

    void OpenBarMenu(int index) override { Real().Navigation.OpenBarMenu(index); }

    void ChooseCommand(int command) override { Real().Navigation.ChooseCommand(command); }

    void ChooseTracked(int command) override { Real().Navigation.ChooseTracked(command); }

    void AnswerBox(int answer) override { Real().Navigation.AnswerBox(answer); }

    void RequestClose() override { Real().Navigation.RequestClose(); }

    void RequestQuit() override { Real().Navigation.RequestQuit(); }

    void Minimize(bool minimized) override { Real().State.SetMinimized(minimized); }

    void ChangeScale() override { Real().State.AnnounceScale(); }

    void PassTime(int milliseconds) override { Real().Time.Pass(static_cast<shell::Milliseconds>(milliseconds)); }

    Color PixelAt(Point screen) override {
        return Device.See.ScreenPixelAt(screen).value_or(Color::FromRgb(255, 255, 255)); // a bare screen is white
    }

    std::u16string Caption() override { return Device.See.Caption(); }

    bool IsListOpen(WindowHandle control) override {
        return control != WindowHandle::None && Real().State.OpenList == control;
    }

    std::vector<std::u16string> EntriesOf(WindowHandle control) override {
        return IsListOpen(control) ? Real().State.Tree.FindControl(control)->Items : std::vector<std::u16string>();
    }

    std::u16string ShownTextOf(WindowHandle control) override {
        const shell::WindowRecord* record = Real().State.Tree.Find(control);
        if (record != nullptr && record->Control && shell::IsPicker(record->Control->Kind)) {
            return shell::FaceOf(*record).Text;
        }
        return record == nullptr ? std::u16string() : record->Text;
    }

    bool IsControlShown(WindowHandle control) override { return Real().State.Tree.IsVisible(control); }

    std::vector<MenuItem> TrackedItems() override {
        const auto& tracked = Real().State.Menus.Tracked;
        return tracked ? tracked->Items : std::vector<MenuItem>();
    }

    std::vector<MenuItem> OpenBarItems() override {
        const auto& open = Real().State.Menus.BarMenu;
        const shell::MenuBarState* bar = Real().State.ShownBar();
        if (!open || bar == nullptr) {
            return {};
        }
        return bar->Menus[static_cast<std::size_t>(open->Index)].Children;
    }

    std::u16string BoxText() override {
        const auto& boxes = Real().State.Menus.Boxes;
        return boxes.empty() ? std::u16string() : boxes.back().Description.Text;
    }

  private:
    headless::HeadlessHost& Real() { return Device.Host(); }

    headless::Device Device;
    headless::ScreenTouch Touch{Device.Host()};
};

} // namespace

std::unique_ptr<IDeviceDriver> MakeDriver() {
    return std::make_unique<HeadlessDriver>();
}

} // namespace tavo::conformance
