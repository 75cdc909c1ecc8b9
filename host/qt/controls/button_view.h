// Push buttons, check boxes, radio buttons and picture buttons.
#pragma once

#include "host/qt/controls/control_view.h"

#include <QAbstractButton>

namespace tavo::qt {

class ButtonView final : public ControlView {
  public:
    ButtonView(Device& device, const shell::WindowRecord& record, QWidget* parent);

    QWidget& Widget() override { return *Button; }

    void ShowState(const shell::WindowRecord& record) override;

  private:
    std::unique_ptr<QAbstractButton> Button;
};

} // namespace tavo::qt
