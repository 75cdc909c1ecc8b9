// Stands before every native control: lets a person's taps and keys through only when the shell does.
#pragma once

#include "host/qt/device.h"

#include <QObject>

namespace tavo::qt {

class Keyboard;

class ControlFilter final : public QObject {
  public:
    ControlFilter(Device& device, Keyboard& keyboard) : Shared(device), Keys(keyboard) {}

    void Watch(WindowHandle control, QWidget& widget);

    // While the host itself changes the widgets.
    void SetPaused(bool paused) { Paused = paused; }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    bool TakePress(WindowHandle control, QWidget& widget, QPointF position);
    bool TakeWheel(WindowHandle control);
    bool TakeContextMenu(WindowHandle control);

    Device& Shared;
    Keyboard& Keys;
    bool Paused = false;
};

} // namespace tavo::qt
