// The timers of all windows.
#pragma once

#include "host/shell/event_source.h"
#include "platform/handles.h"

#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace tavo::shell {

struct TimerKey {
    WindowHandle Window = WindowHandle::None;
    int Id = 0;
    friend auto operator<=>(const TimerKey&, const TimerKey&) = default;
};

class TimerTable {
  public:
    using Filter = std::function<bool(WindowHandle)>;

    void Set(TimerKey key, int milliseconds, Milliseconds now);

    void Kill(TimerKey key) { Timers.erase(key); }

    void KillAll(WindowHandle window);

    // The timer that has been due longest, started anew: periods missed meanwhile are not made up.
    std::optional<TimerKey> TakeDue(Milliseconds now, const Filter& runs);
    std::optional<Milliseconds> NextDue(const Filter& runs) const;

  private:
    struct Timer {
        Milliseconds Period = 0;
        Milliseconds Due = 0;
    };

    std::map<TimerKey, Timer> Timers;
};

} // namespace tavo::shell
