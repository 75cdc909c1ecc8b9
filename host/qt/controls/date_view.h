// A date, typed or picked from a month calendar.
#pragma once

#include "host/qt/controls/control_view.h"

#include <QDateEdit>

class QCalendarWidget;

namespace tavo::qt {

// Leaves the month calendar to its owner, who asks the shell before it opens.
class DateField final : public QDateEdit {
  public:
    DateField(QWidget* parent, std::function<void()> wantsCalendar);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    std::function<void()> WantsCalendar;
};

class DateView final : public ControlView {
  public:
    DateView(Device& device, const shell::WindowRecord& record, QWidget* parent);
    ~DateView() override;

    QWidget& Widget() override { return *Field; }

    void ShowState(const shell::WindowRecord& record) override;
    void OpenList() override;
    void CloseList() override;

  private:
    class CalendarPopup;

    void Take(QDate date);

    std::unique_ptr<DateField> Field;
    std::unique_ptr<CalendarPopup> Popup; // made when it first opens
};

} // namespace tavo::qt
