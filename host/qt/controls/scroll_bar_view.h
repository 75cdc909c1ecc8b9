// Scroll bars: they ask, and move when the program says so.
#pragma once

#include "host/qt/controls/control_view.h"

#include <QScrollBar>

namespace tavo::qt {

class ScrollBarView final : public ControlView {
  public:
    ScrollBarView(Device& device, const shell::WindowRecord& record, QWidget* parent);

    QWidget& Widget() override { return *Bar; }

    void ShowState(const shell::WindowRecord& record) override;

  private:
    void Act(int action);

    std::unique_ptr<QScrollBar> Bar;
};

} // namespace tavo::qt
