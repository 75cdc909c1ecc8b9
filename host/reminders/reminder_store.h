// The items and the ledger as the scheduler sees them. Every call may fail, and then it has changed nothing.
#pragma once

#include "host/reminders/reminder.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tavo::reminders {

// Up to when everything due was entered into the ledger, also as the device's clock showed it then: when another zone
// makes that clock show more, people went past what lay between.
struct Progress {
    Moment Passed = 0;
    std::int64_t Wall = 0;
};

// A clock that shows less than before.
struct Retreat {
    Moment Now = 0;
    Moment Passed = 0; // the progress from here on; now or before
};

class IReminderStore {
  public:
    virtual ~IReminderStore() = default;

    // Nothing before the first time.
    virtual bool ReadProgress(std::optional<Progress>& progress) = 0;
    // What the device's clock shows at a moment, in the zone of today.
    virtual std::int64_t ToWall(Moment moment) = 0;
    // Rows that nobody has answered.
    virtual bool ReadOpen(std::vector<LedgerRow>& rows) = 0;

    // Reminders with after < due <= upTo that have no row yet, or one that is to return.
    virtual bool FindDue(Moment after, Moment upTo, std::vector<DueReminder>& found) = 0;
    // Reminders with due <= now < start that have no row yet, or one that is to return.
    virtual bool FindAhead(Moment now, std::vector<DueReminder>& found) = 0;
    // When a reminder is due in the zone of today; nothing when its item is gone.
    virtual bool FindTime(const ReminderKey& key, std::optional<Moment>& due) = 0;
    // When the next reminder after this moment is due.
    virtual bool FindNext(Moment after, std::optional<Moment>& next) = 0;
    // Nothing when the item was moved or deleted, or does not remind any more.
    virtual bool Describe(const ReminderKey& key, std::optional<ReminderText>& text) = 0;

    // One transaction: writes these rows whole and, where it is given, the progress.
    virtual bool Commit(std::span<const LedgerRow> rows, std::optional<Moment> passed) = 0;
    // One transaction: of the rows whose time is ahead of now, forgets those that nobody can have seen by themselves,
    // and lets those return of which that is not known.
    virtual bool GoBack(const Retreat& retreat) = 0;
    // Forgets old rows of what people have seen.
    virtual bool Purge(Moment now) = 0;
};

} // namespace tavo::reminders
