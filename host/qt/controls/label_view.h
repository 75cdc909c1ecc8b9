// Text that only stands there.
#pragma once

#include "host/qt/controls/control_view.h"

#include <QLabel>

namespace tavo::qt {

class LabelView final : public ControlView {
  public:
    LabelView(Device& device, const shell::WindowRecord& record, QWidget* parent);

    QWidget& Widget() override { return *Label; }

    void ShowState(const shell::WindowRecord& record) override;

  private:
    std::unique_ptr<QLabel> Label;
};

} // namespace tavo::qt
