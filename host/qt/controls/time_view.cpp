// The time picker.
#include "host/qt/controls/time_view.h"

namespace tavo::qt {

TimeView::TimeView(Device& device, const shell::WindowRecord& record, QWidget* parent)
    : ControlView(device, record.Handle), Field(std::make_unique<QTimeEdit>(parent)) {
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
