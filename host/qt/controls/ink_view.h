// The paper of the ink control.
#pragma once

#include "host/qt/controls/control_view.h"
#include "host/qt/ink_paper.h"

namespace tavo::qt {

class InkView final : public ControlView {
  public:
    InkView(Device& device, const shell::WindowRecord& record, QWidget* parent)
        : ControlView(device, record.Handle), Paper(std::make_unique<InkPaper>(device, record.Handle, parent)) {}

    QWidget& Widget() override { return *Paper; }

    void ShowState(const shell::WindowRecord&) override { Paper->Follow(); }

  private:
    std::unique_ptr<InkPaper> Paper;
};

} // namespace tavo::qt
