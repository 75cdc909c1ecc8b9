// The driver's hands as steps of a script, and running a program until the script is done.
#pragma once

#include "framework/message_pump.h"
#include "tests/conformance/device_driver.h"

namespace tavo::conformance {

class DriverSteps {
  public:
    explicit DriverSteps(IDeviceDriver& driver) : Driver(driver) {}

    void Do(std::function<void()> step) { Driver.Do(std::move(step)); }

    // Points of the client area, where pages begin.
    void Tap(int x, int y);
    void Press(int x, int y);
    void MoveTo(int x, int y);
    void Release(int x, int y);
    void TapScreen(Point screen);
    void Key(int key, int modifiers = 0);
    void Type(std::u16string_view text);
    void Choose(const std::function<WindowHandle()>& control, int index); // opens the list first
    void AnswerBox(int answer);
    void ChooseTracked(int command);
    void ChooseMenu(int index, int command);
    void Wait(int milliseconds);

    // Runs the program until the script so far has been done. False when the program quit before, or waits in a nested
    // loop although the script is at its end.
    bool Finish(CMessagePump& pump);

  private:
    IDeviceDriver& Driver;
};

} // namespace tavo::conformance
