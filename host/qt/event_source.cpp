// Letting the toolkit work for a while.
#include "host/qt/event_source.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <chrono>

namespace tavo::qt {

EventSource::EventSource() {
    Deadline.setSingleShot(true);
    Deadline.setTimerType(Qt::PreciseTimer);
}

shell::Milliseconds EventSource::GetMilliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<shell::Milliseconds>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

void EventSource::WaitForEvents(std::optional<shell::Milliseconds> deadline) {
    const shell::Milliseconds now = GetMilliseconds();
    const bool waits = !deadline.has_value() || *deadline > now;
    if (Prepare) {
        Prepare(waits);
    }
    if (waits && deadline.has_value()) {
        Deadline.start(std::chrono::milliseconds(*deadline - now));
    }
    QCoreApplication::processEvents(waits ? QEventLoop::WaitForMoreEvents : QEventLoop::AllEvents);
    Deadline.stop();
    // Without a running event loop nobody else deletes what asked to be deleted later.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace tavo::qt
