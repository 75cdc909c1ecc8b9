// A time of day.
#pragma once

#include "host/qt/controls/control_view.h"

#include <QTimeEdit>

namespace tavo::qt {

class TimeView final : public ControlView {
  public:
    TimeView(Device& device, const shell::WindowRecord& record, QWidget* parent);

    QWidget& Widget() override { return *Field; }

    void ShowState(const shell::WindowRecord& record) override;

  private:
    std::unique_ptr<QTimeEdit> Field;
};

} // namespace tavo::qt
