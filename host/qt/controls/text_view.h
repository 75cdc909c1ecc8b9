// What edits and editable lists share: typed text and the selection in it, between widget and shell.
#pragma once

#include "host/qt/controls/control_view.h"

#include <QLineEdit>

namespace tavo::qt {

class TextView {
  public:
    TextView(Device& device, WindowHandle control) : Shared(device), Control(control) {}

    // Tells the shell what a person does to the text; without a person's doing it stays quiet.
    void Connect(QLineEdit& edit);
    void ShowText(QLineEdit& edit, const shell::WindowRecord& record);

  private:
    void OpenContextMenu(QLineEdit& edit, QPoint place);
    void TakeText(QLineEdit& edit);
    void TakeSelection(QLineEdit& edit);

    Device& Shared;
    WindowHandle Control;
    bool Showing = false;
};

} // namespace tavo::qt
