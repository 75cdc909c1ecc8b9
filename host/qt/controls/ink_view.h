// The paper of the ink control.
#pragma once

#include "host/qt/controls/control_view.h"

namespace tavo::qt {

class InkView final : public ControlView {
  public:
    InkView(Device& device, const shell::WindowRecord& record, QWidget* parent);
    ~InkView() override;

    QWidget& Widget() override;

    void ShowState(const shell::WindowRecord& record) override;

  private:
    class Paper;

    std::unique_ptr<Paper> OwnPaper;
};

} // namespace tavo::qt
