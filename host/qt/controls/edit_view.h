// One line of text, or of digits.
#pragma once

#include "host/qt/controls/text_view.h"

namespace tavo::qt {

class EditView final : public ControlView {
  public:
    EditView(Device& device, const shell::WindowRecord& record, QWidget* parent);

    QWidget& Widget() override { return *Edit; }

    void ShowState(const shell::WindowRecord& record) override { Text.ShowText(*Edit, record); }

  private:
    TextView Text;
    std::unique_ptr<QLineEdit> Edit;
};

} // namespace tavo::qt
