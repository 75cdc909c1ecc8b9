// The waiting process: sleeps until the next reminder, a change of the store or the clock, or an answer.
#pragma once

#include "companion/night_round.h"
#include "companion/reminder_desk.h"
#include "host/files/device_root.h"
#include "host/outlook/change_watcher.h"
#include "host/outlook/store_ledger.h"
#include "host/reminders/scheduler.h"

#include <memory>
#include <optional>
#include <set>

namespace tavo::companion {

class Companion {
  public:
    explicit Companion(const files::DeviceRoot& root);
    ~Companion();
    Companion(const Companion&) = delete;
    Companion& operator=(const Companion&) = delete;

    // Until SIGTERM. Gives the exit status.
    int Run();

  private:
    // An open store and what works on it; another one when the file was replaced.
    struct Opened;

    bool Prepare();
    Status OpenStore();
    void LeaveStore();
    void TakeOrphansBack();
    bool IsReplaced() const;
    bool IsFindingDesk();
    void Work(reminders::Look look);
    void SetAlarm(reminders::Moment at);
    void LookAtStore();
    void LookAtZone();
    void Answer(std::uint32_t card, reminders::Answer answer, int snooze);
    bool TakeSignals();
    void TakeRoundsEnd();
    reminders::Moment LookAtRound(reminders::Moment next);
    void TakePlacement(std::uint32_t question, const std::optional<reminders::PlacedCard>& placed);
    void TakeMove(std::uint32_t card, const reminders::PlacedCard& placed);
    void PlanNextLook();
    void Wait(std::optional<Instant> end);
    void WaitForDesk();
    void GiveMemoryBack();

    const files::DeviceRoot Root;
    ReminderDesk Desk;
    NightRound Round;
    std::unique_ptr<Opened> Device;
    posix::FileDescriptor Alarm;
    posix::FileDescriptor Signals;
    posix::FileDescriptor Folder; // of the store, while it is not open
    posix::FileDescriptor Zone;
    std::optional<reminders::Look> Pending;
    std::set<std::uint32_t> Orphans; // cards of a store that was replaced
    std::optional<Instant> NextLook; // at the store, once more
    int SecondLooks = 0;
    reminders::Moment AlarmAt = 0;
    bool Ending = false;
};

} // namespace tavo::companion
