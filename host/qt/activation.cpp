// Watching for requests, and the moment at which one is taken.
#include "host/qt/activation.h"

#include <QSocketNotifier>

#include <utility>

namespace tavo::qt {

Activation::Activation(files::InstanceLock& lock, Taker taker) : Lock(lock), Take(std::move(taker)) {}

Activation::~Activation() = default;

bool Activation::Begin() {
    if (Lock.WatchActivation() != ErrorCode::Success) {
        return false;
    }
    Notifier = std::make_unique<QSocketNotifier>(Lock.ActivationFd(), QSocketNotifier::Read);
    QObject::connect(Notifier.get(), &QSocketNotifier::activated, Notifier.get(), [this] { HasNews = true; });
    return true;
}

void Activation::Follow(bool isEnding) {
    if (Notifier && isEnding) {
        Notifier->setEnabled(false); // it would wake this process without end
        return;
    }
    const Moment moment = Notifier ? Moment::Later : Moment::Start;
    if (isEnding || (moment == Moment::Start && !Begin()) ||
        (moment == Moment::Later && !std::exchange(HasNews, false))) {
        return;
    }
    if (const std::optional<files::ActivationRequest> request = Lock.TakeActivation()) {
        Take(*request, moment);
    }
}

} // namespace tavo::qt
