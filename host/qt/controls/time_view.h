// A time of day.
#pragma once

#include "host/qt/controls/picker_field.h"

namespace tavo::qt {

class TimeView final : public ControlView {
  public:
    TimeView(Device& device, const shell::WindowRecord& record, QWidget* parent)
        : ControlView(device, record.Handle), Field(std::make_unique<PickerField>(device, record.Handle, parent)) {
        ShowState(record);
    }

    QWidget& Widget() override { return *Field; }

    void ShowState(const shell::WindowRecord& record) override { Field->Show(record); }

  private:
    std::unique_ptr<PickerField> Field;
};

} // namespace tavo::qt
