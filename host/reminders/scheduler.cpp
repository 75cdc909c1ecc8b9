// Following clock and zone, entering what is due, and keeping to the ledger.
#include "host/reminders/scheduler.h"

#include <algorithm>

namespace tavo::reminders {

namespace {

constexpr Moment kPiece = 31 * kDay;      // a clock that jumped over years is followed in pieces
constexpr Moment kProgressPeriod = kHour; // how far the written progress may lie behind
constexpr Moment kShortRetry = 1;         // while the store was refused to us for a moment only
constexpr Moment kLongRetry = kMinute / 2;
constexpr Moment kLongestSleep = kDay;
constexpr Moment kUnknownTime = 3 * kDay; // looked through again after the clock was set back unseen

} // namespace

bool Scheduler::Load() {
    std::optional<Progress> progress;
    std::vector<LedgerRow> rows;
    if (!Store.ReadProgress(progress) || !Store.ReadOpen(rows)) {
        return false;
    }
    if (progress) {
        Passed = progress->Passed;
        PassedWall = progress->Wall;
    }
    for (LedgerRow& row : rows) {
        if (row.IsOnDesk()) {
            Inherited.insert(row.Key);
        }
        Open.insert_or_assign(row.Key, std::move(row));
    }
    WrittenProgress = Passed;
    Loaded = true;
    JustLoaded = true;
    return true;
}

void Scheduler::Keep(const LedgerRow& row) {
    if (!row.IsOnDesk() && row.State != LedgerState::Offering) {
        Inherited.erase(row.Key);
    }
    if (IsFinal(row.State) && !Unwritten.contains(row.Key)) {
        Open.erase(row.Key);
    } else {
        Open.insert_or_assign(row.Key, row);
    }
}

bool Scheduler::Commit(const std::vector<LedgerRow>& rows, std::optional<Moment> passed, Moment now) {
    if (!passed && Unwritten.empty()) {
        passed = Passed; // no row may be newer than the progress: else a clock that was set back goes unnoticed
    }
    const bool goesBack = WentBack.has_value();
    const bool wentBack = WriteGoingBack();
    if (passed && goesBack && wentBack) {
        passed = std::min(*passed, *Passed);
    }
    if (wentBack && Store.Commit(rows, passed)) {
        FailingSince.reset();
        for (const LedgerRow& row : rows) {
            Unwritten.erase(row.Key);
        }
        WrittenProgress = passed ? passed : WrittenProgress;
        return true;
    }
    FailingSince = std::min(FailingSince.value_or(now), now);
    return false;
}

bool Scheduler::Announce(const std::vector<LedgerRow>& rows, std::optional<Moment> passed, Moment now) {
    const bool written = Commit(rows, passed, now);
    if (!written && now - *FailingSince < kPatience) {
        return false;
    }
    for (const LedgerRow& row : rows) {
        if (!written) {
            Unwritten.insert(row.Key);
        }
        Keep(row);
    }
    return true;
}

void Scheduler::Record(const std::vector<LedgerRow>& rows, Moment now) {
    const bool written = Commit(rows, std::nullopt, now);
    for (const LedgerRow& row : rows) {
        if (!written) {
            Unwritten.insert(row.Key);
        }
        Keep(row);
    }
}

void Scheduler::Flush(Moment now) {
    if (Unwritten.empty()) {
        return;
    }
    std::vector<LedgerRow> rows;
    for (const ReminderKey& key : Unwritten) {
        rows.push_back(Open.at(key));
    }
    if (Commit(rows, Passed, now)) {
        std::for_each(rows.begin(), rows.end(), [this](const LedgerRow& row) { Keep(row); });
    }
}

// Before anything else may be written: later rows must not be forgotten with the earlier ones.
bool Scheduler::WriteGoingBack() {
    if (WentBack && Store.GoBack(*WentBack)) {
        // What the ledger held until now was passed over, and is looked through again.
        Passed = std::min(*Passed, WentBack->Passed);
        PassedWall = Store.ToWall(*Passed);
        QuietUntil.reset();
        WrittenProgress = Passed;
        WentBack.reset();
    }
    return !WentBack;
}

// Not surely shown by itself, so that it has to come at its time. What still waits to be seen stays and waits on.
bool Scheduler::MayComeAnew(const LedgerRow& row, Moment now) {
    const bool waits = row.State == LedgerState::Due || row.State == LedgerState::Offering;
    std::optional<Moment> due;
    // It may have been entered in another zone; in which an item counts that is gone, and may come back, is not known.
    const bool isKnown = Store.FindTime(row.Key, due) && due;
    const bool isAhead = isKnown ? *due > now : row.At > now || row.Key.Due > Store.ToWall(now);
    return isAhead && row.ByItself != Showing::Surely && !waits;
}

void Scheduler::GoBack(const Retreat& retreat) {
    std::map<std::uint32_t, std::vector<LedgerRow>> forgotten; // by card
    for (const auto& [key, row] : Open) {
        if (MayComeAnew(row, retreat.Now)) {
            forgotten[Desk.Holds(row.Service) ? row.Card : 0].push_back(row);
        }
    }
    WentBack =
        WentBack ? Retreat{std::min(WentBack->Now, retreat.Now), std::min(WentBack->Passed, retreat.Passed)} : retreat;
    DatesAnew = true;
    for (const auto& [card, rows] : forgotten) {
        std::for_each(rows.begin(), rows.end(), [this](const LedgerRow& row) { Open.erase(row.Key); });
    }
    std::erase_if(Unwritten, [this](const ReminderKey& key) { return !Open.contains(key); });
    Passed = retreat.Passed;
    PassedWall = Store.ToWall(*Passed);
    LooksAtItems = true;
    for (const auto& [card, rows] : forgotten) {
        if (card != 0) {
            // A card that cannot be redrawn now keeps a line too many.
            static_cast<void>(ShrinkCard(card, rows, retreat.Now));
        }
    }
}

// The time that went by asleep was looked through when falling asleep: what was made meanwhile with a time that was
// over already is not missed.
void Scheduler::PassQuietTime(Moment now) {
    if (QuietUntil && Passed) {
        const Moment to = std::max(*Passed, std::min(now, *QuietUntil - 1));
        PassedWall += to - *Passed;
        Passed = to;
    }
    QuietUntil.reset();
}

// Where the device moved east, its clock jumped over reminders without any time passing.
void Scheduler::FollowZone(Moment now) {
    const std::int64_t wall = Store.ToWall(*Passed);
    if (wall > PassedWall) {
        *Passed -= wall - PassedWall;
        if (WentBack) {
            WentBack->Passed -= wall - PassedWall;
        }
    } else if (wall < PassedWall) {
        // It moved west, and some times are to come once more; what of them has gone by since was seen or listed.
        GoBack({now, std::min(now, *Passed)});
    }
    LooksAtItems = LooksAtItems || wall != PassedWall;
    DatesAnew = DatesAnew || wall != PassedWall;
    PassedWall = Store.ToWall(*Passed);
}

void Scheduler::ShortenSnoozes(Moment now) {
    std::vector<LedgerRow> shortened;
    for (const auto& [key, row] : Open) {
        if (row.Waits() && row.Until > now + kLongestSnooze) {
            shortened.push_back(row);
            shortened.back().Until = now + kLongestSnooze;
        }
    }
    if (!shortened.empty()) {
        Record(shortened, now);
    }
}

// After clock or zone changed each is dated by the zone of today. What waits is owed no later and no earlier than
// before, unless its time is ahead again.
bool Scheduler::DateAnew(Moment now) {
    std::vector<LedgerRow> dated;
    for (const auto& [key, row] : Open) {
        const bool waits = row.Waits() && row.Until == 0;
        std::optional<Moment> due;
        if (!Store.FindTime(key, due)) {
            return false;
        }
        if (due && *due != row.At && (!waits || *due > now || row.At > now)) {
            dated.push_back(row);
            dated.back().At = *due;
        }
    }
    if (!dated.empty()) {
        Record(dated, now);
    }
    DatesAnew = false;
    return true;
}

bool Scheduler::FollowClock(Moment now) {
    if (!Passed) {
        // What was due before the service's first day was nobody's duty.
        if (!Commit({}, now, now)) {
            return false;
        }
        Passed = now;
        PassedWall = Store.ToWall(now);
    }
    FollowZone(now);
    if (now < *Passed) {
        GoBack({now, now});
        if (JustLoaded) {
            // Set back while nobody was awake: how long ago cannot be told.
            Passed = now - kUnknownTime;
            PassedWall = Store.ToWall(*Passed);
        }
    }
    JustLoaded = false;
    ShortenSnoozes(now);
    if (DatesAnew && !DateAnew(now)) {
        return false;
    }
    // Waits a while for the ledger to forget what is to come again.
    return !WentBack || Commit({}, std::nullopt, now) || now - *FailingSince >= kPatience;
}

bool Scheduler::EnterFound(const std::vector<DueReminder>& found, std::optional<Moment> passed,
                           std::optional<Moment> notBefore, Moment now) {
    std::vector<LedgerRow> rows;
    for (const DueReminder& reminder : found) {
        if (Open.contains(reminder.Key)) {
            continue; // known, but the ledger could not take it yet
        }
        LedgerRow& row = rows.emplace_back();
        row.Key = reminder.Key;
        row.At = std::max(reminder.At, notBefore.value_or(reminder.At));
        row.Start = reminder.Start;
        row.State = reminder.Again ? LedgerState::Offering : LedgerState::Due;
        row.ByItself = reminder.Again ? Showing::Perhaps : Showing::Never;
    }
    const bool worthWriting = !rows.empty() || (passed && *passed - *WrittenProgress >= kProgressPeriod);
    return !worthWriting || Announce(rows, passed, now);
}

bool Scheduler::Enter(Moment now) {
    std::vector<DueReminder> found;
    while (*Passed < now) {
        const Moment from = *Passed;
        const Moment to = std::min(now, from + kPiece);
        found.clear();
        if (!Store.FindDue(from, to, found) || !EnterFound(found, to, std::nullopt, now)) {
            return false;
        }
        if (*Passed == from) { // else the ledger could go back at last
            Passed = to;
            PassedWall = Store.ToWall(to);
        }
    }
    if (!LooksAtItems) {
        return true;
    }
    found.clear();
    // What was made or moved too late for its own due time is owed from now on.
    return Store.FindAhead(now, found) && EnterFound(found, std::nullopt, now, now);
}

void Scheduler::Take(std::uint32_t card, Answer answer, int snooze, Moment now) {
    std::vector<LedgerRow> rows;
    for (const auto& [key, row] : Open) {
        const bool isThere = row.IsOnDesk() || IsAsked(key); // a list stands until the next one takes its place
        if (isThere && row.Card == card && Desk.Holds(row.Service)) {
            rows.push_back(row);
            rows.back().State = answer == Answer::Snooze ? LedgerState::Snoozed : LedgerState::Dismissed;
            rows.back().Until = answer == Answer::Snooze ? now + snooze * kMinute : row.Until;
        }
    }
    if (rows.empty()) {
        return; // somebody else's card
    }
    if (RingingCard == card) {
        Desk.StopRinging();
    }
    Record(rows, now);
    if (answer != Answer::Closed && !IsGivenAway(card)) {
        Desk.TakeBack(card); // some desktops leave up what was answered
    }
    if (answer == Answer::Open) {
        Desk.OpenItem(rows.size() == 1 ? rows.front().Key.Item : 0); // which of several was meant, nobody knows
    }
}

Moment Scheduler::Run(Moment now, Look look) {
    LooksAtItems = LooksAtItems || look == Look::Items || !Loaded;
    ItemsChangedMeanwhile = !Questions.empty() && (ItemsChangedMeanwhile || LooksAtItems);
    if (!Loaded) {
        static_cast<void>(Store.Purge(now)); // a ledger that takes nothing now is tidied at another start
        if (!Load()) {
            return now + kShortRetry;
        }
    }
    Flush(now);
    PassQuietTime(now);
    const bool done = FollowClock(now) && (!LooksAtItems || CheckStanding(now)) && Enter(now) && Present(now);
    LooksAtItems = LooksAtItems && !done;
    return NextCall(now, done);
}

bool Scheduler::Leave(Moment now) {
    return Loaded && Passed && Commit({}, std::min(*Passed, now), now);
}

Moment Scheduler::NextCall(Moment now, bool done) {
    std::optional<Moment> next;
    if (!done || !Store.FindNext(std::max(now, Passed.value_or(now)), next)) {
        return now + (FailingSince && now - *FailingSince > kPatience ? kLongRetry : kShortRetry);
    }
    QuietUntil = next.value_or(now + kLongestSleep);
    Moment call = std::min(next.value_or(now + kLongestSleep), now + kLongestSleep);
    if (!Unwritten.empty()) {
        call = std::min(call, now + kLongRetry);
    }
    if (NextTry) {
        call = std::min(call, std::max(*NextTry, now + kShortRetry));
    }
    for (const auto& [key, row] : Open) {
        if (row.Waits() && row.OwedAt() > now) {
            call = std::min(call, row.OwedAt());
        }
    }
    return call;
}

} // namespace tavo::reminders
