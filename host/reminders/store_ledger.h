// The ledger in the appointment store, and with it everything that the scheduler asks of a store.
#pragma once

#include "host/outlook/store.h"
#include "host/reminders/reminder_finder.h"
#include "host/reminders/reminder_store.h"

#include <functional>

namespace tavo::reminders {

// One line of what happened.
struct LedgerEvent {
    Moment Time = 0;
    std::int32_t Item = 0;
    Moment At = 0;
    LedgerState State = LedgerState::Due;
    Moment Until = 0;
    std::string Title;
};

class StoreLedger final : public IReminderStore {
  public:
    // `now` dates what is written.
    StoreLedger(outlook::StorePtr store, std::function<Moment()> now);

    bool ReadProgress(std::optional<Progress>& progress) override;
    std::int64_t ToWall(Moment moment) override;
    bool ReadOpen(std::vector<LedgerRow>& rows) override;
    bool FindDue(Moment after, Moment upTo, std::vector<DueReminder>& found) override;
    bool FindAhead(Moment now, std::vector<DueReminder>& found) override;
    bool FindTime(const ReminderKey& key, std::optional<Moment>& due) override;
    bool FindNext(Moment after, std::optional<Moment>& next) override;
    bool Describe(const ReminderKey& key, std::optional<ReminderText>& text) override;
    bool Commit(std::span<const LedgerRow> rows, std::optional<Moment> passed) override;
    bool GoBack(const Retreat& retreat) override;
    bool Purge(Moment now) override;

    // Everything that the log still holds, oldest first.
    bool ReadLog(const std::function<void(const LedgerEvent&)>& visit);

    ReminderFinder& Finder() { return Find; }

  private:
    using FoundList = std::vector<DueReminder>;
    // Adds it unless the ledger has it.
    Status AddIfNew(DueReminder reminder, FoundList& found);
    Status FindSettledAhead(Moment now, std::vector<ReminderKey>& found);
    Status RunTransaction(const std::function<Status()>& work);
    Status WriteRow(const LedgerRow& row);
    Status WriteEvent(const LedgerRow& row);
    Status WriteProgress(Moment passed);

    outlook::StorePtr Source;
    outlook::Database& Db;
    ReminderFinder Find;
    std::function<Moment()> Now;
};

} // namespace tavo::reminders
