// The time picker.
#include "host/qt/controls/time_view.h"

#include <QKeyEvent>

namespace tavo::qt {

void TimeField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Home && event->modifiers() == Qt::NoModifier) {
        event->accept();
        setSelectedSection(sectionAt(0));
        return;
    }
    const QString letter = event->text().toLower();
    if (letter == QStringLiteral("a") || letter == QStringLiteral("p")) {
        event->accept();
        ChooseHalf(letter == QStringLiteral("p"));
        return;
    }
    QTimeEdit::keyPressEvent(event);
}

// One letter is enough: the toolkit would wait for the second, and know nothing until then.
void TimeField::ChooseHalf(bool afternoon) {
    constexpr int kHalfDay = 12 * 60 * 60;
    if ((time().hour() >= 12) != afternoon) {
        setTime(time().addSecs(kHalfDay));
    }
    setSelectedSection(AmPmSection);
}

// What is typed then replaces the hour: into a part that is full and not selected nothing can be typed.
void TimeField::focusInEvent(QFocusEvent* event) {
    QTimeEdit::focusInEvent(event);
    setSelectedSection(sectionAt(0));
}

TimeView::TimeView(Device& device, const shell::WindowRecord& record, QWidget* parent)
    : ControlView(device, record.Handle), Field(std::make_unique<TimeField>(parent)) {
    Field->setDisplayFormat(QStringLiteral("h:mm AP"));
    Field->setWrapping(true);
    ShowState(record);
    QObject::connect(Field.get(), &QTimeEdit::timeChanged, Field.get(), [this](QTime time) {
        SYSTEMTIME picked;
        picked.Hour = static_cast<std::uint16_t>(time.hour());
        picked.Minute = static_cast<std::uint16_t>(time.minute());
        picked.Second = static_cast<std::uint16_t>(time.second());
        Shared.Controls.Pick(Control, picked);
        if (const shell::WindowRecord* now = Record(); now != nullptr) {
            ShowState(*now);
        }
    });
}

void TimeView::ShowState(const shell::WindowRecord& record) {
    const QSignalBlocker quiet(*Field);
    const SYSTEMTIME& time = record.Control->Time;
    const QTime shown(time.Hour, time.Minute, time.Second);
    if (shown.isValid() && Field->time() != shown) {
        Field->setTime(shown);
    }
}

} // namespace tavo::qt
