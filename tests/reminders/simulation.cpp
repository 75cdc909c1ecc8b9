// The script of a life, and the account.
#include "tests/reminders/simulation.h"

#include <algorithm>
#include <iterator>

namespace tavo::reminders::test {

namespace {

constexpr Moment kBegin = 46000 * kDay; // some day of this century
constexpr std::size_t kItems = 110;
constexpr std::int64_t kSpread = 12 * kDay; // items begin within these days

} // namespace

Simulation::Simulation(std::uint64_t seed) : Random(seed), Now(kBegin), NextCall(kBegin) {
    Desk.Seen = [this](const CardLine& line, CardKind kind) { NoteSeen(line, kind); };
    Service = std::make_unique<Scheduler>(Store, Desk);
    Settle(Look::Items);
}

bool Simulation::Happens(double chance) {
    return std::uniform_real_distribution<double>(0, 1)(Random) < chance;
}

std::int64_t Simulation::Pick(std::int64_t low, std::int64_t high) {
    return std::uniform_int_distribution<std::int64_t>(low, high)(Random);
}

void Simulation::LiveThrough(int days) {
    const Moment end = Now + days * kDay;
    while (Now < end) {
        EditItems();
        if (Happens(0.06)) {
            DisturbMachine();
        }
        if (Happens(0.5)) {
            Answer();
        }
        PassTime();
    }
}

// To the next call of the service, or to some earlier moment; the service is called at its time if it lives.
void Simulation::PassTime() {
    if (!Service) {
        Now += Happens(0.5) ? Pick(0, 30) : Pick(0, 2 * kDay);
        Service = std::make_unique<Scheduler>(Store, Desk);
        Excused = true;
        ReopenLists();
        ShortenSnoozes();
        Settle(Look::Items);
        return;
    }
    const Moment pause = Pick(1, 6 * kHour);
    if (Happens(0.02)) { // asleep
        Now += Pick(kHour, 3 * kDay);
        Excused = true;
        Settle(Look::Clock);
    } else if (NextCall <= Now + pause) {
        Now = std::max(NextCall, Now);
        Settle(Look::Clock);
    } else {
        Now += pause;
    }
}

void Simulation::KillService() {
    ++Result.Kills;
    Desk.ForgetWhoAsked();
    Service.reset();
    Ending.Live();
    for (auto& [key, life] : Lives) {
        const auto row = Store.Ledger.find(key);
        const LedgerState state = row == Store.Ledger.end() ? LedgerState::Due : row->second.State;
        const bool onDesk = Desk.Holds(key);
        life.Undecided = life.Undecided || (onDesk && state == LedgerState::Offering);
        const bool neverSure = row == Store.Ledger.end() || row->second.ByItself != Showing::Surely;
        life.InDoubt = life.InDoubt || (life.Undecided && neverSure);
        // Taken back, before that was written.
        life.Undecided = life.Undecided || (!onDesk && (state == LedgerState::Shown || state == LedgerState::Listed));
        // An answer that was not written is as if it had not been given.
        const bool willComeAgain = state == LedgerState::Snoozed || (state == LedgerState::Offering && !onDesk);
        life.SnoozedUntil = willComeAgain ? row->second.Until : 0;
    }
}

// Before items or clock change: what it shows then would be old, and nobody could tell whether rightly.
void Simulation::WaitForDesk() {
    if (Service && Desk.IsAsked()) {
        try {
            Desk.Answer(*Service, Now);
        } catch (const Killed&) {
            KillService();
        }
    }
}

void Simulation::Settle(Look look) {
    Store.Locked = Now < LockedUntil;
    Desk.Works = Now >= BrokenUntil;
    Desk.IsSlow = Happens(0.3);
    try {
        if (Happens(0.5)) {
            Desk.Answer(*Service, Now);
        }
        NextCall = Service->Run(Now, look);
        if (Desk.IsAsked() && Happens(0.3)) {
            Excused = true; // it answers when something else happens, or in a while
            NextCall = std::min(NextCall, Now + Pick(1, 5));
            return;
        }
        Desk.IsSlow = false;
        if (Desk.IsAsked()) {
            Desk.Answer(*Service, Now);
            NextCall = Service->Run(Now, Look::Clock);
        }
    } catch (const Killed&) {
        KillService();
        return;
    }
    if (!Store.Locked && Desk.Works) {
        Judge();
        Excused = false;
    }
}

void Simulation::Answer() {
    WaitForDesk();
    if (!Service || Desk.Cards.empty() || Now < LockedUntil) {
        return;
    }
    auto card = Desk.Cards.begin();
    std::advance(card, Pick(0, static_cast<std::int64_t>(Desk.Cards.size()) - 1));
    const std::uint32_t number = card->first;
    const std::vector<ReminderKey> keys = card->second;
    const bool snoozes = Happens(0.3);
    Store.Locked = false;
    Desk.Cards.erase(card);
    try {
        const int minutes = static_cast<int>(Pick(1, 4)) * 15;
        Service->Take(number, snoozes ? tavo::reminders::Answer::Snooze : tavo::reminders::Answer::Dismiss, minutes,
                      Now);
    } catch (const Killed&) {
        KillService();
        for (const ReminderKey& key : keys) {
            const auto row = Store.Ledger.find(key);
            // The card is gone, and so is its answer, if that was not written.
            Lives[key].Undecided = row != Store.Ledger.end() && !IsFinal(row->second.State);
        }
        return;
    }
    for (const ReminderKey& key : keys) {
        const auto row = Store.Ledger.find(key);
        // The orphaned card of a killed service is nobody's any more.
        const bool taken = row != Store.Ledger.end() && row->second.State == LedgerState::Snoozed && snoozes;
        Lives[key].SnoozedUntil = taken ? row->second.Until : Lives[key].SnoozedUntil;
        Result.Snoozes += taken ? 1 : 0;
    }
    Settle(Look::Clock);
}

SimulatedItem Simulation::MakeItem() {
    SimulatedItem item;
    item.Start = (WallNow() + Pick(-kDay, kSpread)) / kMinute * kMinute;
    if (Happens(0.4)) {
        item.Period = Happens(0.7) ? kDay : 7 * kDay;
        item.Occurrences = static_cast<int>(Pick(2, 8));
    }
    constexpr Moment leads[] = {0, 5 * kMinute, 15 * kMinute, 15 * kMinute, kHour, kDay, 40 * kDay};
    item.Lead = leads[Pick(0, 6)];
    return item;
}

void Simulation::EditItems() {
    WaitForDesk();
    std::erase_if(Calendar.Items, [this](const auto& entry) {
        const SimulatedItem& item = entry.second;
        return item.Start + item.Period * item.Occurrences < WallNow() - 3 * kDay; // long over
    });
    bool changed = false;
    while (Calendar.Items.size() < kItems) {
        Calendar.Items[++LastItem] = MakeItem();
        changed = true;
    }
    if (Happens(0.15)) {
        auto chosen = Calendar.Items.begin();
        std::advance(chosen, Pick(0, static_cast<std::int64_t>(Calendar.Items.size()) - 1));
        changed = true;
        switch (Pick(0, 3)) {
        case 0:
            LastDeletedOid = chosen->first;
            LastDeleted = chosen->second;
            Calendar.Items.erase(chosen);
            break;
        case 1:
            chosen->second.Start += Pick(-3 * kHour, 2 * kDay) / kMinute * kMinute;
            break;
        case 2:
            chosen->second.Lead = Pick(0, 3) * 20 * kMinute;
            Excused = true; // it may have the lead again that it had when its time came
            break;
        default: // undo
            if (LastDeletedOid != 0) {
                Calendar.Items[LastDeletedOid] = LastDeleted;
                LastDeletedOid = 0;
                Excused = true; // its time may have come while it was gone
            }
        }
    }
    if (changed) {
        NoteFuture();
        if (Service) {
            Settle(Look::Items);
        }
    }
}

void Simulation::JumpClock(Moment by) {
    ++Result.ClockJumps;
    WaitForDesk();
    Now += by;
    LockedUntil += by; // who holds the store lives by time that passes
    BrokenUntil += by;
    Excused = true;
    if (Service) {
        ShortenSnoozes();
        FollowClock(Look::Clock);
    }
}

// Set back and past again while nobody was awake, or nobody lived to write it down: that cannot be told from time that
// passed.
void Simulation::FollowClock(Look look) {
    const std::set<ReminderKey> future = Future;
    const std::map<ReminderKey, Life> lives = Lives;
    NoteFuture();
    ReopenLists();
    Settle(look);
    const bool isWritten =
        !Store.Passed || (Store.Passed->Passed <= Now && Store.Passed->Wall <= Store.ToWall(Store.Passed->Passed));
    if (Service || isWritten) {
        return;
    }
    Future = future;
    std::erase_if(Future, [this](const ReminderKey& key) { return !Calendar.Stands(key); });
    for (const auto& [key, before] : lives) {
        Lives[key].Listed = Lives[key].Listed || before.Listed;
        Lives[key].Reopened = before.Reopened;
    }
}

// None lasts longer, whatever the clock was set to.
void Simulation::ShortenSnoozes() {
    for (auto& [key, life] : Lives) {
        life.SnoozedUntil = std::min(life.SnoozedUntil, Now + kLongestSnooze);
    }
}

// Listed only, and its time is to come again as the service sees it: then the list does not count.
void Simulation::ReopenLists() {
    for (auto& [key, life] : Lives) {
        life.Reopened = life.Reopened || !life.Shown || life.InDoubt;
        if (!life.Shown && key.Due > WallNow()) {
            life.Listed = false;
        }
    }
}

void Simulation::ChangeZone() {
    ++Result.ZoneChanges;
    WaitForDesk();
    Calendar.Offset = Pick(-10, 12) * kHour;
    Excused = true;
    if (Service) {
        FollowClock(Look::Items);
    } else {
        NoteFuture();
    }
}

void Simulation::DisturbMachine() {
    switch (Pick(0, 9)) {
    case 0:
        JumpClock(Happens(0.1) ? 300 * kDay : Pick(1, kDay));
        break;
    case 1:
        JumpClock(-Pick(1, kDay));
        break;
    case 2:
        ChangeZone();
        break;
    case 3:
        LockedUntil = Now + Pick(1, 20);
        NextCall = std::min(NextCall, Now + 1);
        Excused = true;
        break;
    case 4:
        BrokenUntil = Now + Pick(1, kHour);
        Excused = true;
        break;
    case 5:
        for (const auto& [number, keys] : Desk.Cards) {
            for (const ReminderKey& key : keys) {
                const auto row = Store.Ledger.find(key);
                // The orphaned card of a reminder that was answered or put off on its other card is missed by nobody.
                Lives[key].Gone = row != Store.Ledger.end() && !IsFinal(row->second.State) &&
                                  row->second.State != LedgerState::Snoozed;
            }
        }
        Desk.Restart();
        if (Service) {
            Settle(Look::Clock);
        }
        break;
    default: // the next calls, one of them is the last
        Ending.DieAfter(static_cast<int>(Pick(0, 40)));
    }
}

void Simulation::NoteFuture() {
    std::set<ReminderKey> future;
    Calendar.VisitAll([&](const DueReminder& reminder) {
        if (reminder.Key.Due > WallNow()) {
            future.insert(reminder.Key);
        } else if (Future.contains(reminder.Key)) {
            future.insert(reminder.Key); // its time came, and the service was not asked yet
        }
    });
    Future = std::move(future);
}

void Simulation::NoteSeen(const CardLine& line, CardKind kind) {
    Life& life = Lives[line.Key];
    const bool listed = kind == CardKind::Missed;
    const bool snoozeIsOver = life.SnoozedUntil != 0 && life.SnoozedUntil <= Now;
    if (!Calendar.Stands(line.Key) || (line.Key.Due > WallNow() && !life.Gone && !life.Undecided && !snoozeIsOver)) {
        ++Result.Stale;
    }
    if (!life.Shown && !life.Listed) {
        ++Result.Reminders;
        ++(listed ? Result.Listed : Result.Shown);
        Result.Late += listed && !Excused ? 1 : 0;
    } else if (life.Gone) {
        ++(line.Again ? Result.PutUpAgain : Result.Doubled);
    } else if (life.Undecided && !snoozeIsOver) {
        ++(line.Again ? Result.DoubledAllowed : Result.Doubled);
    } else if (life.InDoubt && life.Reopened && !snoozeIsOver) {
        // Its time came once more, and it cannot be known that it was seen.
        ++(line.Again ? Result.DoubledAllowed : Result.Doubled);
        life.Reopened = false;
        life.InDoubt = listed;
    } else if (!snoozeIsOver && (listed || life.Shown || !life.Reopened)) {
        ++Result.Doubled;
    }
    life.Shown = life.Shown || !listed;
    life.Listed = life.Listed || listed;
    life.Undecided = false;
    life.Gone = false;
    life.SnoozedUntil = 0;
}

// The service has done its work and nothing stood in its way: nobody may be kept waiting now.
void Simulation::Judge() {
    Calendar.VisitAll([this](const DueReminder& reminder) {
        const ReminderKey& key = reminder.Key;
        const bool isPast = key.Due <= WallNow();
        const bool isAhead = key.Due + (reminder.Start - reminder.At) > WallNow();
        if (!isPast || (!Future.contains(key) && !isAhead)) {
            return;
        }
        Life& life = Lives[key];
        // A list that a desktop out of order could not shorten still holds it.
        life.Listed = life.Listed || Desk.Holds(key);
        // Seen, then taken back while its item was gone: nobody is owed it again when the item comes back.
        const auto row = Store.Ledger.find(key);
        life.Gone = life.Gone && row != Store.Ledger.end() && !IsFinal(row->second.State);
        const bool waits = life.SnoozedUntil != 0 && life.SnoozedUntil <= Now;
        if ((!life.Shown && !life.Listed) || waits || life.Gone) {
            ++Result.Lost;
            life.Listed = true; // counted once
            life.SnoozedUntil = 0;
            life.Gone = false;
        }
        Future.erase(key);
    });
    NoteFuture();
    constexpr Moment forgotten = 100 * kDay;
    std::erase_if(Lives, [this](const auto& entry) {
        return entry.first.Due < WallNow() - forgotten && entry.second.SnoozedUntil == 0;
    });
}

} // namespace tavo::reminders::test
