// The box of a date or time picker: its text, the part that has the keys, and its arrows.
#pragma once

#include "host/qt/controls/control_view.h"

#include <QAbstractSpinBox>
#include <QLineEdit>

namespace tavo::qt {

// Shows what the shell keeps; the keys come there before they come here.
class PickerField : public QAbstractSpinBox {
  public:
    PickerField(Device& device, WindowHandle control, QWidget* parent);

    void Show(const shell::WindowRecord& picker);

    void stepBy(int steps) override { Shared.Controls.Step(Control, steps); }

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

  protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }

    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    Device& Shared;
    WindowHandle Control;

  private:
    void ShowNow();
};

} // namespace tavo::qt
