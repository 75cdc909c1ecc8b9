// The message box as a widget: takes the keys, and covers the screen.
#pragma once

#include "host/qt/chrome_widget.h"

namespace tavo::qt {

class MessageBox final : public ChromeWidget {
  public:
    MessageBox(Device& device, QWidget* parent);

    // Shows the innermost box of the shell, or hides when there is none.
    void Follow();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
};

} // namespace tavo::qt
