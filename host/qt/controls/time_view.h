// A time of day.
#pragma once

#include "host/qt/controls/control_view.h"

#include <QTimeEdit>

namespace tavo::qt {

// Is entered at its first part, as the date is.
class TimeField final : public QTimeEdit {
  public:
    using QTimeEdit::QTimeEdit;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    void ChooseHalf(bool afternoon);
};

class TimeView final : public ControlView {
  public:
    TimeView(Device& device, const shell::WindowRecord& record, QWidget* parent);

    QWidget& Widget() override { return *Field; }

    void ShowState(const shell::WindowRecord& record) override;

  private:
    std::unique_ptr<TimeField> Field;
};

} // namespace tavo::qt
