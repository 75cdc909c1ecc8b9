// Steps made of hands.
#include "tests/conformance/driver_steps.h"

#include <utility>

namespace tavo::conformance {

namespace {

constexpr Point ToScreen(int x, int y) {
    return {x + kClientArea.Left, y + kClientArea.Top};
}

} // namespace

void DriverSteps::TapScreen(Point screen) {
    Do([this, screen] { Driver.PressStylus(screen); });
    Do([this, screen] { Driver.ReleaseStylus(screen); });
}

void DriverSteps::Tap(int x, int y) {
    TapScreen(ToScreen(x, y));
}

void DriverSteps::Press(int x, int y) {
    Do([this, x, y] { Driver.PressStylus(ToScreen(x, y)); });
}

void DriverSteps::MoveTo(int x, int y) {
    Do([this, x, y] { Driver.MoveStylus(ToScreen(x, y)); });
}

void DriverSteps::Release(int x, int y) {
    Do([this, x, y] { Driver.ReleaseStylus(ToScreen(x, y)); });
}

void DriverSteps::Key(int key, int modifiers) {
    Do([this, key, modifiers] { Driver.PressKey(key, modifiers); });
    Do([this, key, modifiers] { Driver.ReleaseKey(key, modifiers); });
}

void DriverSteps::Type(std::u16string_view text) {
    for (const char16_t character : text) {
        Do([this, character] { Driver.TypeCharacter(character); });
    }
}

void DriverSteps::Choose(const std::function<WindowHandle()>& control, int index) {
    Do([this, control] { Driver.OpenList(control()); });
    Do([this, control, index] { Driver.ChooseEntry(control(), index); });
}

void DriverSteps::AnswerBox(int answer) {
    Do([this, answer] { Driver.AnswerBox(answer); });
}

void DriverSteps::ChooseTracked(int command) {
    Do([this, command] { Driver.ChooseTracked(command); });
}

void DriverSteps::ChooseMenu(int index, int command) {
    Do([this, index] { Driver.OpenBarMenu(index); });
    Do([this, command] { Driver.ChooseCommand(command); });
}

void DriverSteps::Wait(int milliseconds) {
    Do([this, milliseconds] { Driver.PassTime(milliseconds); });
}

bool DriverSteps::Finish(CMessagePump& pump) {
    bool done = false;
    Do([this, &done] {
        done = true;
        Driver.Host().Queue().PostMessageW({}); // wakes the program, which sees the flag
    });
    return pump.RunUntil(done) && !pump.HasQuit();
}

} // namespace tavo::conformance
