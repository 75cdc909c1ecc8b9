// A date, typed or picked from a month calendar.
#pragma once

#include "host/qt/controls/control_view.h"
#include "host/qt/controls/month_popup.h"

#include <QDateEdit>

namespace tavo::qt {

// Leaves the month calendar to its owner, who asks the shell before it opens.
class DateField final : public QDateEdit {
  public:
    DateField(QWidget* parent, std::function<void()> wantsCalendar);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    std::function<void()> WantsCalendar;
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
