// The suite's hands and eyes on the scripted device.
#include "host/headless/device.h"
#include "tests/conformance/bare_driver.h"

namespace tavo::conformance {

namespace {

class HeadlessDriver final : public BareDriver {
  public:
    IHost& Host() override { return Device.Host(); }

    void Do(std::function<void()> step) override { Device.Do(std::move(step)); }

    void PressStylus(Point screen) override { Touch.Down(screen); }

    void MoveStylus(Point screen) override { Touch.Move(screen); }

    void ReleaseStylus(Point screen) override { Touch.Up(screen); }

    void OpenList(WindowHandle control) override { Real().ControlActions.OpenList(control); }

    void CloseList(WindowHandle control) override { Real().ControlActions.CloseList(control); }

    void ChooseEntry(WindowHandle control, int index) override { Real().ControlActions.Choose(control, index); }

    void OpenBarMenu(int index) override { Real().Navigation.OpenBarMenu(index); }

    void ChooseCommand(int command) override { Real().Navigation.ChooseCommand(command); }

    void ChooseTracked(int command) override { Real().Navigation.ChooseTracked(command); }

    void AnswerBox(int answer) override { Real().Navigation.AnswerBox(answer); }

    void ChangeScale() override { Real().State.AnnounceScale(); }

    void PassTime(int milliseconds) override { Real().Time.Pass(static_cast<shell::Milliseconds>(milliseconds)); }

    Color PixelAt(Point screen) override {
        return Device.See.ScreenPixelAt(screen).value_or(Color::FromRgb(255, 255, 255)); // a bare screen is white
    }

  private:
    headless::HeadlessHost& Real() override { return Device.Host(); }

    headless::Device Device;
    bare::ScreenTouch Touch{Device.Host()};
};

} // namespace

std::unique_ptr<IDeviceDriver> MakeDriver() {
    return std::make_unique<HeadlessDriver>();
}

} // namespace tavo::conformance
