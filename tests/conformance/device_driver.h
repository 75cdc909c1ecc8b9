// What the conformance suite needs of a host under test: hands to do things with and eyes to look with.
#pragma once

#include "platform/host.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tavo::conformance {

// The same tests run on every host. A host takes part by implementing this and MakeDriver.
//
// What a person does goes into a script: each step happens when the program waits with nothing left to handle. When the
// script has ended, a program that waits is quit, so that no test hangs. Where a host has widgets of its own, the steps
// work on those, not on what lies behind them. Points are those of the screen, 240 by 320.
class IDeviceDriver {
  public:
    virtual ~IDeviceDriver() = default;
    virtual IHost& Host() = 0;
    // Anything at all, as a step. All others are written with it.
    virtual void Do(std::function<void()> step) = 0;

    // Hands, to be called from within a step.
    virtual void PressStylus(Point screen) = 0;
    virtual void MoveStylus(Point screen) = 0;
    virtual void ReleaseStylus(Point screen) = 0;
    virtual void PressKey(int key, int modifiers) = 0;
    virtual void ReleaseKey(int key, int modifiers) = 0;
    virtual void TypeCharacter(char16_t character) = 0;
    virtual void OpenList(WindowHandle control) = 0; // asks for it, as a tap on its arrow does
    virtual void CloseList(WindowHandle control) = 0;
    virtual void ChooseEntry(WindowHandle control, int index) = 0; // of the open list
    virtual void Pick(WindowHandle control, const SYSTEMTIME& time) = 0;
    virtual void Scroll(WindowHandle control, int request, int position) = 0;
    virtual void OpenBarMenu(int index) = 0;
    virtual void ChooseCommand(int command) = 0; // of the open menu of the bar, or a button of the bar
    virtual void ChooseTracked(int command) = 0; // of the tracked menu; 0 closes it
    virtual void AnswerBox(int answer) = 0;
    virtual void RequestClose() = 0; // the desktop window's own close button
    virtual void RequestQuit() = 0;  // the end of the session
    virtual void Minimize(bool minimized) = 0;
    virtual void ChangeScale() = 0;              // to another scale and, called again, back
    virtual void PassTime(int milliseconds) = 0; // the following steps come that much later

    // Eyes.
    virtual Color PixelAt(Point screen) = 0;                                 // of what is shown
    virtual std::u16string Caption() = 0;                                    // of the navigation bar
    virtual bool IsListOpen(WindowHandle control) = 0;                       // its list or month calendar
    virtual std::vector<std::u16string> EntriesOf(WindowHandle control) = 0; // of the open list, as shown
    virtual std::u16string ShownTextOf(WindowHandle control) = 0;
    virtual bool IsControlShown(WindowHandle control) = 0;
    virtual std::vector<MenuItem> TrackedItems() = 0; // empty when no menu is tracked
    virtual std::vector<MenuItem> OpenBarItems() = 0; // of the open menu of the bar; empty when none is open
    virtual std::u16string BoxText() = 0;             // of the innermost message box; empty when none is open
};

// The host under test; each program of the suite has one.
std::unique_ptr<IDeviceDriver> MakeDriver();

} // namespace tavo::conformance
