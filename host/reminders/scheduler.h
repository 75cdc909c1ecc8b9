// Decides what is shown when, and writes each step into the ledger before and after it is done.
#pragma once

#include "host/reminders/desk.h"
#include "host/reminders/reminder_store.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace tavo::reminders {

constexpr Moment kGrace = kMinute;        // shown later than this, it was missed
constexpr Moment kPatience = kMinute / 2; // a store that cannot be written for so long does not hold reminders back
constexpr Moment kLongestSnooze = kHour;
constexpr std::size_t kMostSingleCards = 3; // more at once become one card

enum class Look { Clock, Items }; // what may have changed: the time only, or items too

// Waits for nothing, and keeps nothing that the ledger does not have, except what the ledger could not take yet.
class Scheduler {
  public:
    Scheduler(IReminderStore& store, IDesk& desk) : Store(store), Desk(desk) {}

    // Does what is to be done now. Gives when to be called again at the latest.
    Moment Run(Moment now, Look look);
    // The desk knows by now what became of a card, and perhaps better when it is told a second time. Gives when to call
    // Run at the latest; nothing when that stays.
    std::optional<Moment> TakePlacement(std::uint32_t question, const std::optional<PlacedCard>& placed, Moment now);
    // A card stands elsewhere now. False when none of it is known, as when it was answered meanwhile.
    bool TakeMove(std::uint32_t card, const PlacedCard& placed, Moment now);

    // Whether the desk was asked and has not answered.
    bool WaitsForDesk() const { return !Questions.empty(); }

    // Somebody answered a card; `snooze` in minutes. Run is to follow.
    void Take(std::uint32_t card, Answer answer, int snooze, Moment now);
    // At an orderly end: writes the progress down.
    bool Leave(Moment now);

  private:
    struct Collected {
        std::vector<CardLine> Fresh;
        std::vector<CardLine> Missed;
        std::vector<CardLine> Listed; // stand in the list already
        bool MissedRings = false;
    };

    // What the desk was asked to show.
    struct Question {
        Card Asked;
        std::vector<LedgerRow> Before; // as they were when it was asked
        std::uint32_t Replaced = 0;    // the card that it stands in for
        bool Rings = false;
        std::uint32_t Redrawn = 0; // a card that stands already; 0 for one that is offered
        Moment ReturnedAt = 0;     // nobody had taken it in time
    };

    bool Load();
    void PassQuietTime(Moment now);
    bool FollowClock(Moment now);
    void FollowZone(Moment now);
    bool MayComeAnew(const LedgerRow& row, Moment now);
    void GoBack(const Retreat& retreat);
    bool WriteGoingBack();
    void ShortenSnoozes(Moment now);
    bool DateAnew(Moment now);
    bool CheckStanding(Moment now);
    bool ShrinkCard(std::uint32_t number, const std::vector<LedgerRow>& gone, Moment now);
    bool Enter(Moment now);
    bool EnterFound(const std::vector<DueReminder>& found, std::optional<Moment> passed,
                    std::optional<Moment> notBefore, Moment now);
    bool Collect(Moment now, Collected& collected);
    bool Present(Moment now);
    bool PresentMissed(Collected& collected, Moment now);
    bool ShowCard(Card card, std::uint32_t replaced, bool rings, Moment now);
    void Ask(Question question, Moment now);
    void Settle(const Question& question, const std::optional<PlacedCard>& placed, Moment now);
    void TakeRedrawing(const Question& question, const std::optional<PlacedCard>& placed, Moment now);
    void ReturnOffer(const Question& question, Moment now);
    std::optional<Moment> TakeLatePlacement(std::uint32_t question, const std::optional<PlacedCard>& placed,
                                            Moment now);

    bool IsAsked(const ReminderKey& key) const { return AskedKeys.contains(key); }

    bool IsListAsked() const;
    bool IsGivenAway(std::uint32_t card) const;
    Moment NextCall(Moment now, bool done);

    bool Commit(const std::vector<LedgerRow>& rows, std::optional<Moment> passed, Moment now);
    // Before a step: false when it is not in the ledger and waiting is still right.
    bool Announce(const std::vector<LedgerRow>& rows, std::optional<Moment> passed, Moment now);
    // After a step: what has happened stays so, whether the ledger takes it now or later.
    void Record(const std::vector<LedgerRow>& rows, Moment now);
    void Flush(Moment now);
    void Keep(const LedgerRow& row);

    IReminderStore& Store;
    IDesk& Desk;
    bool Loaded = false;
    bool JustLoaded = false;
    bool DatesAnew = true;            // rows were dated by another clock
    std::optional<Moment> Passed;     // everything due up to here is entered
    std::int64_t PassedWall = 0;      // as the device's clock showed it
    std::optional<Retreat> WentBack;  // and the ledger does not know yet
    std::optional<Moment> QuietUntil; // nothing that was known was due before
    std::optional<Moment> WrittenProgress;
    std::map<ReminderKey, LedgerRow> Open; // without an answer, or not yet in the ledger
    std::set<ReminderKey> Unwritten;
    std::set<ReminderKey> Inherited;    // on the desk since an earlier process, whose last answers may be lost
    std::optional<Moment> FailingSince; // the ledger takes nothing
    std::optional<Moment> NextTry;      // nobody took a card
    std::map<std::uint32_t, Question> Questions;
    std::map<std::uint32_t, Question> Returned; // may still be taken, late
    std::set<ReminderKey> AskedKeys;            // of what is offered
    bool ItemsChangedMeanwhile = false;         // while the desk was asked
    bool LooksAtItems = false;
    std::uint32_t RingingCard = 0;
};

} // namespace tavo::reminders
