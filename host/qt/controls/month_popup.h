// The month calendar that a date picker drops down.
#pragma once

#include <QDate>
#include <QFrame>

#include <functional>

class QCalendarWidget;
class QLabel;

namespace tavo::qt {

class MonthPopup final : public QFrame {
  public:
    // `scale`: the toolkit's pixels for one logical pixel.
    MonthPopup(QWidget* owner, double scale);

    void SetChosen(std::function<void(QDate)> chosen) { Chosen = std::move(chosen); }

    void SetClosed(std::function<void()> closed) { Closed = std::move(closed); }

    // Below the owner, or above where there is no room; within `screen`.
    void Open(QDate date, const QRect& screen);

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    QWidget* MakeHeader(double scale);
    void ShowMonth();
    void Choose(QDate date);

    QCalendarWidget* Calendar; // children
    QLabel* Title;
    std::function<void(QDate)> Chosen;
    std::function<void()> Closed;
};

} // namespace tavo::qt
