// The nightly round: the full check of the store, and the clearing away of what has had its time.
#pragma once

#include "host/files/device_root.h"
#include "host/outlook/store.h"
#include "host/reminders/reminder.h"

#include <cstdint>
#include <optional>
#include <string>
#include <sys/types.h>

namespace tavo::companion {

// Also the exit status of the round's process; 1 is that of a process that could not even begin.
enum class RoundResult { Sound = 0, Undone = 2, Damaged = 3 };

// Does it all now, in this process; what is wrong goes to standard error.
RoundResult GoRound(const files::DeviceRoot& root);

// The hour of the night in which it is due, by the device's clock.
constexpr std::int64_t kRoundHour = 3;

// When the next round is due; all in seconds since 1899-12-30, the last two on the device's clock. `last` is when the
// full check was made last: 0 when one is wanted at once.
reminders::Moment NextRound(reminders::Moment last, reminders::Moment nowWall);

// Starts the round in a process of its own at the lowest priority: reading a large store takes seconds, and no reminder
// waits for that.
class NightRound {
  public:
    explicit NightRound(std::string program) : Program(std::move(program)) {}

    ~NightRound() { Stop(); }

    NightRound(const NightRound&) = delete;
    NightRound& operator=(const NightRound&) = delete;

    // Starts it when it is due. Gives the moment of the next look; none while it runs.
    std::optional<reminders::Moment> Run(outlook::Store& store, reminders::Moment now, reminders::Moment nowWall);
    // After SIGCHLD, and before others are reaped: how it ended, if it did.
    std::optional<RoundResult> Reap();
    // Of another store, or at our own end.
    void Stop();

  private:
    const std::string Program;
    pid_t Process = -1;
    reminders::Moment NotBefore = 0; // one that could not be made is tried again later
    bool Failed = false;
};

} // namespace tavo::companion
