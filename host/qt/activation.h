// What other processes ask of this one: to come forward, and to show something.
#pragma once

#include "host/posix/instance_lock.h"

#include <QTimer>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace tavo::qt {

class Activation {
  public:
    enum class Moment {
        Start, // it was there before anyone watched; perhaps the program was started for it
        Later,
    };
    using Taker = std::function<void(const posix::ActivationRequest& request, Moment moment)>;

    Activation(posix::InstanceLock& lock, Taker taker);
    ~Activation();
    Activation(const Activation&) = delete;
    Activation& operator=(const Activation&) = delete;

    // From now on requests are taken, each when the program waits with nothing else left to handle. So what comes while
    // it is about to end stays for the next start. Called before each such wait; `isEnding`: the end was asked for, or
    // the wish is on its way.
    void Follow(bool isEnding);

  private:
    void Begin();

    posix::InstanceLock& Lock;
    Taker Take;
    std::unique_ptr<QSocketNotifier> Notifier;
    QTimer Looks; // wakes the program where it cannot be told of requests
    bool HasNews = false;
    bool HasLooked = false;
};

} // namespace tavo::qt
