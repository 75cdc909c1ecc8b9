// Running the steps from the toolkit's own loop.
#include "tests/qt/event_script.h"

#include <QAbstractEventDispatcher>

#include <algorithm>
#include <utility>

namespace tavo::qt {

EventScript::EventScript(std::function<void()> ended) : Ended(std::move(ended)) {
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] { TakeWait(); });
    Rest.setSingleShot(true);
    Rest.setTimerType(Qt::PreciseTimer);
    Turn.setSingleShot(true);
    // Behind what the toolkit has put off to the next round.
    connect(&Rest, &QTimer::timeout, this, [this] { Turn.start(0); });
    connect(&Turn, &QTimer::timeout, this, [this] { RunNext(); });
}

void EventScript::TakeWait() {
    if (std::exchange(IsScheduled, true)) {
        return;
    }
    using std::chrono::milliseconds;
    const auto rest = std::chrono::ceil<milliseconds>(NotBefore - std::chrono::steady_clock::now());
    Rest.start(std::max(rest, milliseconds(0)));
}

void EventScript::RunNext() {
    if (Steps.empty()) {
        Ended();
    } else {
        const std::function<void()> step = std::move(Steps.front());
        Steps.pop_front();
        step();
    }
    IsScheduled = false;
}

} // namespace tavo::qt
