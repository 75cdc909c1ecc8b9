// The ledger in the appointment store, and with it everything that the scheduler asks of a store.
#pragma once

#include "host/outlook/reminder_finder.h"
#include "host/outlook/store.h"
#include "host/reminders/reminder_store.h"

#include <functional>

namespace tavo::outlook {

// One line of what happened.
struct LedgerEvent {
    reminders::Moment Time = 0;
    std::int32_t Item = 0;
    reminders::Moment At = 0;
    reminders::LedgerState State = reminders::LedgerState::Due;
    reminders::Moment Until = 0;
    std::string Title;
};

class StoreLedger final : public reminders::IReminderStore {
  public:
    // `now` dates what is written.
    StoreLedger(StorePtr store, std::function<reminders::Moment()> now);

    bool ReadProgress(std::optional<reminders::Progress>& progress) override;
    std::int64_t ToWall(reminders::Moment moment) override;
    bool ReadOpen(std::vector<reminders::LedgerRow>& rows) override;
    bool FindDue(reminders::Moment after, reminders::Moment upTo, std::vector<reminders::DueReminder>& found) override;
    bool FindAhead(reminders::Moment now, std::vector<reminders::DueReminder>& found) override;
    bool FindTime(const reminders::ReminderKey& key, std::optional<reminders::Moment>& due) override;
    bool FindNext(reminders::Moment after, std::optional<reminders::Moment>& next) override;
    bool Describe(const reminders::ReminderKey& key, std::optional<reminders::ReminderText>& text) override;
    bool Commit(std::span<const reminders::LedgerRow> rows, std::optional<reminders::Moment> passed) override;
    bool GoBack(const reminders::Retreat& retreat) override;
    bool Purge(reminders::Moment now) override;

    // Everything that the log still holds, oldest first.
    bool ReadLog(const std::function<void(const LedgerEvent&)>& visit);

    ReminderFinder& Finder() { return Find; }

  private:
    using FoundList = std::vector<reminders::DueReminder>;
    // Adds it unless the ledger has it.
    Status AddIfNew(reminders::DueReminder reminder, FoundList& found);
    Status FindSettledAhead(reminders::Moment now, std::vector<reminders::ReminderKey>& found);
    Status RunTransaction(const std::function<Status()>& work);
    Status WriteRow(const reminders::LedgerRow& row);
    Status WriteEvent(const reminders::LedgerRow& row);
    Status WriteProgress(reminders::Moment passed);
    Status TakeBack(const reminders::ReminderKey& key);

    StorePtr Source;
    Database& Db;
    ReminderFinder Find;
    std::function<reminders::Moment()> Now;
};

} // namespace tavo::outlook
