// A clock that stands until it is told to move: for tests and for the scripted device.
#pragma once

#include "platform/clock.h"

#include <chrono>
#include <cstdint>

namespace tavo::files {

class ScriptedClock final : public IClock {
  public:
    explicit ScriptedClock(const SYSTEMTIME& start) { SetLocalTime(start); }

    SYSTEMTIME GetLocalTime() override; // the weekday is always that of the date

    std::uint32_t GetTickCount() override { return Ticks; }

    // Someone sets the device's clock: the ticks do not move. False for an impossible date or time.
    bool SetLocalTime(const SYSTEMTIME& time);
    // Time passes, on the clock and for the ticks.
    void Advance(std::chrono::milliseconds span);

  private:
    std::int64_t Milliseconds = 0; // since day number 0
    std::uint32_t Ticks = 0;
};

} // namespace tavo::files
