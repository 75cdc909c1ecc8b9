// Watching for requests, and the moment at which one is taken.
#include "host/qt/activation.h"

#include <QSocketNotifier>

#include <chrono>
#include <utility>

namespace tavo::qt {
namespace {

constexpr std::chrono::seconds kBetweenLooks{1}; // where no watch tells of a request

} // namespace

Activation::Activation(posix::InstanceLock& lock, Taker taker) : Lock(lock), Take(std::move(taker)) {
    QObject::connect(&Looks, &QTimer::timeout, &Looks, [this] { HasNews = true; });
}

Activation::~Activation() = default;

void Activation::Begin() {
    if (Lock.WatchActivation() != ErrorCode::Success) {
        Looks.start(kBetweenLooks); // all watches of the system are taken
        return;
    }
    Looks.stop();
    Notifier = std::make_unique<QSocketNotifier>(Lock.ActivationFd(), QSocketNotifier::Read);
    QObject::connect(Notifier.get(), &QSocketNotifier::activated, Notifier.get(), [this] { HasNews = true; });
}

void Activation::Follow(bool isEnding) {
    if (isEnding) {
        Looks.stop();
        if (Notifier) {
            Notifier->setEnabled(false); // it would wake this process without end
        }
        return;
    }
    const Moment moment = HasLooked ? Moment::Later : Moment::Start;
    if (!std::exchange(HasNews, false) && std::exchange(HasLooked, true)) {
        return;
    }
    if (!Notifier) {
        Begin(); // at the next look perhaps one is free
    }
    if (const std::optional<posix::ActivationRequest> request = Lock.TakeActivation()) {
        Take(*request, moment);
    }
}

} // namespace tavo::qt
