// Years of made-up life with reminders, and a plain account of what a person would have seen of each.
#pragma once

#include "tests/reminders/simulated_world.h"

#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <set>

namespace tavo::reminders::test {

struct SimulationCounts {
    std::int64_t Reminders = 0; // that people were to see
    std::int64_t Shown = 0;     // by themselves
    std::int64_t Listed = 0;    // as missed
    std::int64_t Snoozes = 0;
    std::int64_t Kills = 0;
    std::int64_t DoubledAllowed = 0; // after a kill between the desktop's acceptance and the commit; said "again"
    std::int64_t PutUpAgain = 0;     // because the desktop that held them was gone; said "again"
    std::int64_t ClockJumps = 0;
    std::int64_t ZoneChanges = 0;
    std::int64_t Lost = 0;
    std::int64_t Doubled = 0; // of any other kind
    std::int64_t Stale = 0;   // shown although moved or deleted, or before its time
    std::int64_t Late = 0;    // listed as missed although nothing was wrong
};

class Simulation {
  public:
    explicit Simulation(std::uint64_t seed);

    void LiveThrough(int days);

    const SimulationCounts& Counts() const { return Result; }

  private:
    // What a person saw of one reminder.
    struct Life {
        bool Shown = false;
        bool Listed = false;
        bool Undecided = false; // killed after the desktop took it, before that was written
        bool InDoubt = false;   // so killed: to the service it stays open whether it was shown by itself
        bool Reopened = false; // listed only or in doubt, and the clock was set back since: it may still come by itself
        bool Gone = false;     // the desktop that held it is
        Moment SnoozedUntil = 0;
    };

    bool Happens(double chance);
    std::int64_t Pick(std::int64_t low, std::int64_t high);

    std::int64_t WallNow() const { return Now + Calendar.Offset; }

    void KillService();
    void WaitForDesk();
    void Settle(Look look);
    void Answer();
    void EditItems();
    SimulatedItem MakeItem();
    void DisturbMachine();
    void JumpClock(Moment by);
    void FollowClock(Look look);
    void ReopenLists();
    void ShortenSnoozes();
    void ChangeZone();
    void PassTime();
    void NoteFuture();
    void NoteSeen(const CardLine& line, CardKind kind);
    void Judge();

    std::mt19937_64 Random;
    SimulationCounts Result;
    SimulatedCalendar Calendar;
    Fate Ending;
    SimulatedStore Store{Calendar, Ending};
    SimulatedDesk Desk{Ending};
    std::unique_ptr<Scheduler> Service;
    Moment Now = 0;
    Moment NextCall = 0;
    Moment LockedUntil = 0;
    Moment BrokenUntil = 0;
    bool Excused = true; // something is wrong with the machine, so a reminder may come late
    std::int32_t LastItem = 0;
    SimulatedItem LastDeleted;
    std::int32_t LastDeletedOid = 0;
    std::map<ReminderKey, Life> Lives;
    std::set<ReminderKey> Future; // stand, and their time is to come
};

} // namespace tavo::reminders::test
