// A machine of made-up time: a clock, a store and a desktop that follow a script and die where it says.
#pragma once

#include "host/reminders/scheduler.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <vector>

namespace tavo::reminders::test {

// What a kill looks like from inside the process.
struct Killed {};

struct SimulatedItem {
    std::int64_t Start = 0;  // on the device's clock
    std::int64_t Period = 0; // seconds from one occurrence to the next; 0: does not recur
    int Occurrences = 1;
    Moment Lead = 0;
};

// Which reminders there are, by the plainest arithmetic.
class SimulatedCalendar {
  public:
    // Universal time from the device's clock. The zone changes only when the simulation says so.
    Moment ToUtc(std::int64_t wall) const { return wall - Offset; }

    DueReminder ReminderOf(std::int32_t oid, const SimulatedItem& item, int occurrence) const;
    bool Stands(const ReminderKey& key) const;

    template <class Visit> void VisitAll(const Visit& visit) const {
        for (const auto& [oid, item] : Items) {
            for (int index = 0; index < item.Occurrences; ++index) {
                visit(ReminderOf(oid, item, index));
            }
        }
    }

    std::map<std::int32_t, SimulatedItem> Items;
    std::int64_t Offset = 0;
};

// Dies at the nth call, before or after that call has had its effect.
class Fate {
  public:
    void DieAfter(int calls) { Left = calls; }

    void Live() { Left = -1; }

    // Around each call: Step, the effect, Step.
    void Step() {
        if (Left >= 0 && Left-- == 0) {
            throw Killed();
        }
    }

  private:
    int Left = -1;
};

class SimulatedStore final : public IReminderStore {
  public:
    SimulatedStore(SimulatedCalendar& calendar, Fate& fate) : Calendar(calendar), Ending(fate) {}

    bool ReadProgress(std::optional<Progress>& progress) override;

    std::int64_t ToWall(Moment moment) override { return moment + Calendar.Offset; }

    bool ReadOpen(std::vector<LedgerRow>& rows) override;
    bool FindDue(Moment after, Moment upTo, std::vector<DueReminder>& found) override;
    bool FindAhead(Moment now, std::vector<DueReminder>& found) override;
    bool FindTime(const ReminderKey& key, std::optional<Moment>& due) override;
    bool FindNext(Moment after, std::optional<Moment>& next) override;
    bool Describe(const ReminderKey& key, std::optional<ReminderText>& text) override;
    bool Commit(std::span<const LedgerRow> rows, std::optional<Moment> passed) override;
    bool GoBack(const Retreat& retreat) override;
    bool Purge(Moment now) override;

    std::map<ReminderKey, LedgerRow> Ledger;
    std::optional<Progress> Passed;
    bool Locked = false; // for those who write

  private:
    void AddIfNew(DueReminder reminder, std::vector<DueReminder>& found) const;

    SimulatedCalendar& Calendar;
    Fate& Ending;
};

struct Display {
    bool Again = false;
    bool AsMissed = false;
};

class SimulatedDesk final : public IDesk {
  public:
    explicit SimulatedDesk(Fate& fate) : Ending(fate) {}

    bool Holds(const std::string& service) override { return service == Name(); }

    Placement Show(const Card& card, std::uint32_t replaced) override;
    void TakeBack(std::uint32_t card) override;

    void Ring(const Card&) override { Ending.Step(); }

    void StopRinging() override {}

    void OpenItem(std::int32_t item) override { Opened.push_back(item); }

    bool Holds(const ReminderKey& key) const;
    // Does what it was asked for while it was slow, and tells the service.
    void Answer(Scheduler& service, Moment now);
    // Tells the service that nobody has taken what it was asked for; it may be taken later all the same.
    void RunOutOfTime(Scheduler& service, Moment now);

    bool IsAsked() const { return !Questions.empty(); }

    // A new process knows nothing of what an earlier one asked for, though the desktop may still do it.
    void ForgetWhoAsked() { Questions.clear(); }

    // The session ends: all cards are gone.
    void Restart();

    bool Works = true;
    bool IsSlow = false;                                     // it answers later
    std::map<std::uint32_t, std::vector<ReminderKey>> Cards; // on the desktop now
    std::vector<std::int32_t> Opened;
    // Told of every reminder that comes to be seen and did not stand on the desktop before.
    std::function<void(const CardLine&, CardKind)> Seen;

  private:
    struct Question {
        std::uint32_t Number;
        Card Asked;
        std::uint32_t Replaced;
        int Generation; // of who was asked
    };

    std::string Name() const { return "desktop " + std::to_string(Generation); }

    std::optional<PlacedCard> Place(const Card& card, std::uint32_t replaced);

    Fate& Ending;
    std::vector<Question> Questions;
    std::uint32_t LastQuestion = 0;
    std::uint32_t LastCard = 0;
    int Generation = 1;
};

} // namespace tavo::reminders::test
