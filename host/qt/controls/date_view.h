// A date, typed or picked from a month calendar.
#pragma once

#include "host/qt/controls/month_popup.h"
#include "host/qt/controls/picker_field.h"

namespace tavo::qt {

// One arrow, for the month calendar. It leaves that to its owner, who asks the shell before it opens.
class DateField final : public PickerField {
  public:
    DateField(Device& device, WindowHandle control, QWidget* parent) : PickerField(device, control, parent) {}

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

class DateView final : public ControlView {
  public:
    DateView(Device& device, const shell::WindowRecord& record, QWidget* parent);

    QWidget& Widget() override { return *Field; }

    void ShowState(const shell::WindowRecord& record) override;
    void OpenList() override;
    void CloseList() override;

  private:
    void Take(QDate date);

    std::unique_ptr<DateField> Field;
    std::unique_ptr<MonthPopup> Popup; // made anew, at the scale of the moment, whenever it opens
};

} // namespace tavo::qt
