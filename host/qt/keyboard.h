// Keys on their way into the shell, and back to the native control they turn out to be for.
#pragma once

#include "host/qt/device.h"

#include <QKeyEvent>

#include <functional>
#include <set>

namespace tavo::qt {

// The device's key, or 0 for keys that it knows only by their character.
int ToDeviceKey(int key);
int ToModifiers(Qt::KeyboardModifiers modifiers);

class Keyboard {
  public:
    // Gives the widget of a control, with the focus on it, or null.
    using FindWidget = std::function<QWidget*(WindowHandle)>;

    Keyboard(Device& device, FindWidget findWidget) : Shared(device), Find(std::move(findWidget)) {}

    // A key went down; `from` is the control whose widget got it, or None.
    void Press(WindowHandle from, QKeyEvent& event);
    void Release(QKeyEvent& event);

    // A key that was handed to a control is on its way through the control's own widgets.
    bool IsDelivering() const { return Delivering; }

    // Whether Tab comes to the program as it is: a dialog knows what it shows next. Elsewhere the toolkit walks.
    bool LeavesTabToProgram() const;

  private:
    bool TakeBarKey(const QKeyEvent& event);
    void Deliver(WindowHandle control, int key, int modifiers, QKeyEvent& event);

    Device& Shared;
    FindWidget Find;
    bool Delivering = false;
    std::set<int> Down;    // keys whose press came here; an open menu may have taken others
    bool AltAlone = false; // pressed, and no other key since
};

} // namespace tavo::qt
