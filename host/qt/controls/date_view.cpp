// The date picker and its month calendar.
#include "host/qt/controls/date_view.h"

#include <QCalendarWidget>
#include <QFrame>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QStyleOptionComboBox>
#include <QTextCharFormat>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <utility>

namespace tavo::qt {
namespace {

constexpr int kFirstYear = 1601;
constexpr int kLastYear = 9999;

QDate ToDate(const SYSTEMTIME& time) {
    return {time.Year, time.Month, time.Day};
}

} // namespace

DateField::DateField(QWidget* parent, std::function<void()> wantsCalendar)
    : QDateEdit(parent), WantsCalendar(std::move(wantsCalendar)) {
    setCalendarPopup(true); // for the looks: an arrow in place of two small ones
    setDisplayFormat(QStringLiteral("M/d/yyyy"));
    setDateRange({kFirstYear, 1, 1}, {kLastYear, 12, 31});
}

void DateField::mousePressEvent(QMouseEvent* event) {
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.subControls = QStyle::SC_All;
    const QRect arrow = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
    if (arrow.contains(event->position().toPoint())) {
        event->accept();
        WantsCalendar();
        return;
    }
    QDateEdit::mousePressEvent(event);
}

void DateField::keyPressEvent(QKeyEvent* event) {
    const bool isAltDown = event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier);
    if (event->key() == Qt::Key_F4 || isAltDown) {
        event->accept();
        WantsCalendar();
        return;
    }
    QDateEdit::keyPressEvent(event);
}

class DateView::CalendarPopup final : public QFrame {
  public:
    CalendarPopup(QWidget* owner, std::function<void(QDate)> chosen, std::function<void()> closed)
        : QFrame(owner, Qt::Popup), Calendar(new QCalendarWidget(this)), Closed(std::move(closed)) {
        setFrameShape(QFrame::Box);
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(1, 1, 1, 1);
        layout->addWidget(Calendar);
        Calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
        Calendar->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
        Calendar->setFirstDayOfWeek(Qt::Sunday);
        QTextCharFormat workday;
        Calendar->setWeekdayTextFormat(Qt::Saturday, workday);
        connect(Calendar, &QCalendarWidget::clicked, this, chosen);
        connect(Calendar, &QCalendarWidget::activated, this, chosen);
    }

    QCalendarWidget& Month() { return *Calendar; }

  protected:
    void hideEvent(QHideEvent* event) override {
        QFrame::hideEvent(event);
        QTimer::singleShot(0, this, [this] { Closed(); });
    }

  private:
    QCalendarWidget* Calendar;
    std::function<void()> Closed;
};

DateView::DateView(Device& device, const shell::WindowRecord& record, QWidget* parent)
    : ControlView(device, record.Handle),
      Field(std::make_unique<DateField>(parent, [this] { Shared.Controls.OpenList(Control); })) {
    ShowState(record);
    QObject::connect(Field.get(), &QDateEdit::dateChanged, Field.get(), [this](QDate date) { Take(date); });
}

DateView::~DateView() = default;

void DateView::Take(QDate date) {
    SYSTEMTIME picked;
    picked.Year = static_cast<std::uint16_t>(date.year());
    picked.Month = static_cast<std::uint16_t>(date.month());
    picked.Day = static_cast<std::uint16_t>(date.day());
    Shared.Controls.Pick(Control, picked);
    if (const shell::WindowRecord* record = Record(); record != nullptr) {
        ShowState(*record);
    }
}

void DateView::ShowState(const shell::WindowRecord& record) {
    const QSignalBlocker quiet(*Field);
    if (const QDate date = ToDate(record.Control->Time); date.isValid() && Field->date() != date) {
        Field->setDate(date);
    }
}

void DateView::OpenList() {
    if (!Popup) {
        Popup = std::make_unique<CalendarPopup>(
            Field.get(),
            [this](QDate date) {
                Take(date);
                Popup->hide();
            },
            [this] { Shared.Controls.CloseList(Control); });
    }
    Popup->setFont(Field->font());
    Popup->Month().setSelectedDate(Field->date());
    Popup->adjustSize();
    QPoint place = Field->mapToGlobal(QPoint(0, Field->height()));
    const QRect screen = Field->window()->geometry();
    if (place.y() + Popup->height() > screen.bottom()) {
        const int above = Field->mapToGlobal(QPoint()).y() - Popup->height();
        place.setY(above >= screen.top() ? above : std::max(screen.top(), screen.bottom() - Popup->height()));
    }
    place.setX(std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - Popup->width())));
    Popup->move(place);
    Popup->show();
    Popup->Month().setFocus();
}

void DateView::CloseList() {
    if (Popup) {
        Popup->hide();
    }
}

} // namespace tavo::qt
