// The suite's hands and eyes on the screen in memory: taps where things are painted, and pixels.
#include "host/bare/control_touch.h"
#include "host/shell/chrome/chrome.h"
#include "tests/conformance/bare_driver.h"
#include "tests/screens/memory_device.h"

namespace tavo::conformance {

namespace {

constexpr Rect kBeside{100, 4, 104, 8}; // in the navigation bar, where nothing is

class MemoryDriver final : public BareDriver {
  public:
    IHost& Host() override { return Device.Host; }

    void Do(std::function<void()> step) override { Device.Do(std::move(step)); }

    void PressStylus(Point screen) override { Real().Touch.Down(screen); }

    void MoveStylus(Point screen) override { Real().Touch.Move(screen); }

    void ReleaseStylus(Point screen) override { Real().Touch.Up(screen); }

    void PressKey(int key, int modifiers) override { Real().PressKey(key, modifiers); }

    void OpenList(WindowHandle control) override {
        const Rect place = Real().State.Tree.ScreenBounds(control);
        Device.Tap({place.Right - bare::kListArrowWidth, place.Top, place.Right, place.Bottom});
    }

    void CloseList(WindowHandle) override { Device.Tap(kBeside); }

    void ChooseEntry(WindowHandle control, int index) override {
        if (IsListOpen(control)) {
            Device.TapRow(index);
        }
    }

    void OpenBarMenu(int index) override {
        if (const Rect place = Real().Chrome().Menus.MenuPlace(index); place != kMenuBar) {
            Device.Tap(place);
        }
    }

    void ChooseCommand(int command) override {
        const Rect button = Real().Chrome().Menus.ButtonPlace(command);
        if (Real().State.Menus.BarMenu) {
            Device.TapRow(command);
        } else if (button != kMenuBar) {
            Device.Tap(button);
        }
    }

    void ChooseTracked(int command) override {
        if (command == 0) {
            Device.Tap(kBeside);
        } else {
            Device.TapRow(command);
        }
    }

    void AnswerBox(int answer) override {
        if (const Rect button = Real().Chrome().Box.ButtonPlace(answer); !button.IsEmpty()) {
            Device.Tap(button);
        }
    }

    void ChangeScale() override {
        Scale = 3 - Scale; // 1 and 2
        Real().SetScale(Scale);
    }

    void PassTime(int milliseconds) override { Device.Time.Pass(static_cast<shell::Milliseconds>(milliseconds)); }

    Color PixelAt(Point screen) override { return Device.Look().At(screen); }

  private:
    memory::MemoryHost& Real() override { return Device.Host; }

    memory::MemoryDevice Device;
    int Scale = 1;
};

} // namespace

std::unique_ptr<IDeviceDriver> MakeDriver() {
    return std::make_unique<MemoryDriver>();
}

} // namespace tavo::conformance
