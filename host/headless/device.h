// The scripted device as a test handles it: a script of what a person does, and eyes to look with.
#pragma once

#include "host/bare/screen_touch.h"
#include "host/headless/device_sight.h"

#include <cstdint>

namespace tavo::headless {

// Everything that a person does is put into a script. Its next step happens when the program waits with nothing left to
// handle; so a tap's menu is open, or its dialog, when the following step is done. When the script has ended, a
// waiting program is quit (kScriptEnded). Coordinates are those of the client area, where pages begin.
class Device {
  public:
    explicit Device(const DeviceOptions& options = {});

    HeadlessHost& Host() { return OwnHost; }

    DeviceSight See{OwnHost};

    void Tap(int x, int y);
    void Press(int x, int y);
    void MoveTo(int x, int y);
    void Release(int x, int y);
    void TapScreen(Point screen);
    void Wheel(int x, int y, int steps);
    void TapItem(PaintedRole role, std::u16string name); // in its middle

    void Key(int key, int modifiers = 0); // down and up
    void KeyDown(int key, int modifiers = 0);
    void KeyUp(int key, int modifiers = 0);
    void Type(std::u16string_view text);

    // Controls of the window on top, by id. One that takes no input then is a problem.
    void TapControl(int id);
    void TypeInto(int id, std::u16string_view text); // replaces what is there
    void OpenList(int id);
    void CloseList(int id);
    void Choose(int id, int index); // opens the list first
    void Choose(int id, std::u16string entry);
    void PickDate(int id, int year, int month, int day);
    void PickTime(int id, int hour, int minute, int second = 0);
    void Scroll(int id, int request, int position = 0);

    void OpenMenu(std::u16string menu); // of the menu bar
    void ChooseMenu(std::u16string menu, int command);
    void PressBarButton(int command);
    void ChooseTracked(int command); // 0 closes the menu
    void AnswerBox(int answer);

    void PressOk();    // taps where "ok" is, whether it is there or not
    void PressClose(); // and where × is
    void CloseWindow();
    void Quit();
    void EndSession(); // as a logout does

    void AdvanceClock(shell::Milliseconds span);
    void SetClock(const SYSTEMTIME& now);
    void Minimize();
    void Restore();
    void ChangeScale();
    void ChangeStore();                 // another process did
    void GoOnReminding();               // the companion did
    void RequestItem(std::int32_t oid); // another process asks for it
    // One did before the program ran; no step of the script.
    void RequestItemAtStart(std::int32_t oid);
    void Do(std::function<void()> step);

    // Runs the program until the script so far has been done. False when the program quit before, or waits in a nested
    // loop although the script is at its end, or a step met a problem.
    template <class Pump> bool Finish(Pump& pump) {
        bool done = false;
        Do([&] {
            done = true;
            OwnHost.Queue().PostMessageW({}); // wakes the program, which sees the flag
        });
        return pump.RunUntil(done) && !pump.HasQuit() && Problems.empty();
    }

    std::vector<std::string> Problems; // steps that could not be done

  private:
    void Expect(bool done, const std::string& problem);
    void OnControl(int id, const std::string& action, std::function<void(WindowHandle)> act);
    int FindMenu(std::u16string_view menu) const;

    HeadlessHost OwnHost;
    bare::ScreenTouch Touch{OwnHost};
};

} // namespace tavo::headless
