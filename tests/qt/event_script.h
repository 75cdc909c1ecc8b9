// Steps that happen while the program under test waits with nothing left to handle.
#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <deque>
#include <functional>

namespace tavo::qt {

class EventScript final : public QObject {
  public:
    // `ended`: called when the program waits although there is no step left.
    explicit EventScript(std::function<void()> ended);

    void Do(std::function<void()> step) { Steps.push_back(std::move(step)); }

    // The following steps come that much later.
    void Pass(std::chrono::milliseconds time) { NotBefore = std::chrono::steady_clock::now() + time; }

  private:
    void TakeWait();
    void RunNext();

    std::function<void()> Ended;
    std::deque<std::function<void()>> Steps;
    std::chrono::steady_clock::time_point NotBefore;
    QTimer Rest;
    QTimer Turn;
    bool IsScheduled = false;
};

} // namespace tavo::qt
