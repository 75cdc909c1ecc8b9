// Calls that wait until the event at hand is done with.
#pragma once

#include <QTimer>

namespace tavo::qt {

// Makes the call at the next turn of the event loop, unless the owner is gone by then.
template <typename Call> void CallLater(QObject* owner, Call call) {
    auto* timer = new QTimer(owner);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, owner, call);
    QObject::connect(timer, &QTimer::timeout, timer, &QObject::deleteLater);
    timer->start(0);
}

} // namespace tavo::qt
