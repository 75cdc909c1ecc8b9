// The date picker and its month calendar.
#include "host/qt/controls/date_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionComboBox>

namespace tavo::qt {
namespace {

QDate ToDate(const SYSTEMTIME& time) {
    return {time.Year, time.Month, time.Day};
}

} // namespace

void DateField::paintEvent(QPaintEvent*) {
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.editable = true;
    option.subControls = QStyle::SC_All;
    QPainter painter(this);
    style()->drawComplexControl(QStyle::CC_ComboBox, &option, &painter, this);
}

// Its text is a widget of its own: what is pressed here is the arrow, or the edge.
void DateField::mousePressEvent(QMouseEvent* event) {
    event->accept();
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.subControls = QStyle::SC_All;
    const QRect arrow = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
    if (arrow.contains(event->position().toPoint())) {
        Shared.Controls.OpenList(Control);
    }
}

void DateField::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
}

void DateField::keyPressEvent(QKeyEvent* event) {
    const bool isAltDown = event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier);
    if (event->key() == Qt::Key_F4 || isAltDown) {
        event->accept();
        Shared.Controls.OpenList(Control);
        return;
    }
    PickerField::keyPressEvent(event);
}

DateView::DateView(Device& device, const shell::WindowRecord& record, QWidget* parent)
    : ControlView(device, record.Handle), Field(std::make_unique<DateField>(device, record.Handle, parent)) {
    ShowState(record);
}

void DateView::Take(QDate date) {
    SYSTEMTIME picked;
    picked.Year = static_cast<std::uint16_t>(date.year());
    picked.Month = static_cast<std::uint16_t>(date.month());
    picked.Day = static_cast<std::uint16_t>(date.day());
    Shared.Controls.Pick(Control, picked);
}

void DateView::ShowState(const shell::WindowRecord& record) {
    Field->Show(record);
}

void DateView::OpenList() {
    const shell::WindowRecord* record = Record();
    if (record == nullptr) {
        return;
    }
    const double scale = Shared.Geometry.Scale.Factor / Shared.Geometry.Ratio;
    Popup = std::make_unique<MonthPopup>(Field.get(), scale);
    Popup->SetChosen([this](QDate date) { Take(date); });
    Popup->SetClosed([this] { Shared.Controls.CloseList(Control); });
    const QRect screen = Shared.Geometry.ToolkitPixels(kWholeScreen);
    Popup->Open(ToDate(record->Control->Time), screen.translated(Field->window()->mapToGlobal(QPoint())));
}

void DateView::CloseList() {
    if (Popup) {
        Popup->hide();
    }
}

} // namespace tavo::qt
