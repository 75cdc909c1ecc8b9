// The ends that come from outside: signals, the end of the session.
#pragma once

#include "host/posix/file_descriptor.h"

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace tavo::qt {

// SIGTERM, SIGINT, SIGHUP, the session's end and the toolkit's own quit all ask once more, politely.
class QuitSignals final : public QObject {
  public:
    explicit QuitSignals(std::function<void()> asked);
    ~QuitSignals() override;

    // Whether a signal has come that was not asked about yet.
    static bool HasCome();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void TakeSignals();

    std::function<void()> Asked;
    posix::FileDescriptor ReadEnd;
    posix::FileDescriptor WriteEnd;
    std::unique_ptr<QSocketNotifier> Notifier;
};

} // namespace tavo::qt
