// Timers in order of their due times.
#include "host/shell/timer_table.h"

#include <algorithm>

namespace tavo::shell {

void TimerTable::Set(TimerKey key, int milliseconds, Milliseconds now) {
    const auto period = static_cast<Milliseconds>(std::max(milliseconds, 1));
    Timers[key] = {period, now + period};
}

void TimerTable::KillAll(WindowHandle window) {
    std::erase_if(Timers, [&](const auto& entry) { return entry.first.Window == window; });
}

std::optional<TimerKey> TimerTable::TakeDue(Milliseconds now, const Filter& runs) {
    auto due = Timers.end();
    for (auto timer = Timers.begin(); timer != Timers.end(); ++timer) {
        if (timer->second.Due <= now && runs(timer->first.Window) &&
            (due == Timers.end() || timer->second.Due < due->second.Due)) {
            due = timer;
        }
    }
    if (due == Timers.end()) {
        return std::nullopt;
    }
    const Milliseconds next = due->second.Due + due->second.Period;
    due->second.Due = next > now ? next : now + due->second.Period;
    return due->first;
}

std::optional<Milliseconds> TimerTable::NextDue(const Filter& runs) const {
    std::optional<Milliseconds> next;
    for (const auto& [key, timer] : Timers) {
        if (runs(key.Window) && (!next || timer.Due < *next)) {
            next = timer.Due;
        }
    }
    return next;
}

} // namespace tavo::shell
