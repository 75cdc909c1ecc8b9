// The date picker and its month calendar.
#include "host/qt/controls/date_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionComboBox>

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
    if (event->key() == Qt::Key_Home && event->modifiers() == Qt::NoModifier) {
        event->accept();
        setSelectedSection(sectionAt(0));
        return;
    }
    QDateEdit::keyPressEvent(event);
}

// What is typed then replaces the month: into a part that is full and not selected nothing can be typed.
void DateField::focusInEvent(QFocusEvent* event) {
    QDateEdit::focusInEvent(event);
    setSelectedSection(sectionAt(0));
}

DateView::DateView(Device& device, const shell::WindowRecord& record, QWidget* parent)
    : ControlView(device, record.Handle),
      Field(std::make_unique<DateField>(parent, [this] { Shared.Controls.OpenList(Control); })) {
    ShowState(record);
    QObject::connect(Field.get(), &QDateEdit::dateChanged, Field.get(), [this](QDate date) { Take(date); });
}

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
    const double scale = Shared.Geometry.Scale.Factor / Shared.Geometry.Ratio;
    Popup = std::make_unique<MonthPopup>(Field.get(), scale);
    Popup->SetChosen([this](QDate date) { Take(date); });
    Popup->SetClosed([this] { Shared.Controls.CloseList(Control); });
    const QRect screen = Shared.Geometry.ToolkitPixels(kWholeScreen);
    Popup->Open(Field->date(), screen.translated(Field->window()->mapToGlobal(QPoint())));
}

void DateView::CloseList() {
    if (Popup) {
        Popup->hide();
    }
}

} // namespace tavo::qt
