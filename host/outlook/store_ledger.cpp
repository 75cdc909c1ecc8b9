// Rows of the ledger, their log, and the progress.
#include "host/outlook/store_ledger.h"

#include "host/outlook/store_core.h"

#include <algorithm>
#include <string>

namespace tavo::outlook {

using namespace reminders;

namespace {

constexpr Moment kKept = 90 * kDay; // how long an answered reminder and the log are remembered

// As a column holds it.
template <class Enumeration> constexpr std::int64_t NumberOf(Enumeration value) {
    return static_cast<std::int64_t>(value);
}

} // namespace

StoreLedger::StoreLedger(StorePtr store, std::function<Moment()> now)
    : Source(std::move(store)), Db(CoreOf(*Source).Db), Find(CoreOf(*Source)), Now(std::move(now)) {}

bool StoreLedger::ReadProgress(std::optional<Progress>& progress) {
    Query query(Db, "SELECT a.value, b.value FROM setting a JOIN setting b ON b.name = 'reminders_passed_wall'"
                    " WHERE a.name = 'reminders_passed'");
    progress = query.Next() ? std::optional(Progress{query.Integer(0), query.Integer(1)}) : std::nullopt;
    return Succeeded(query.Result());
}

std::int64_t StoreLedger::ToWall(Moment moment) {
    return CoreOf(*Source).Zones.UtcToWall(moment);
}

bool StoreLedger::ReadOpen(std::vector<LedgerRow>& rows) {
    // The number is written into the text, as the index of open rows has it.
    static const std::string sql = "SELECT oid, original, due, at, start, state, until, shows, card, service, title"
                                   " FROM ledger WHERE state < " +
                                   std::to_string(NumberOf(LedgerState::Dismissed));
    Query query(Db, sql.c_str());
    while (query.Next()) {
        LedgerRow& row = rows.emplace_back();
        row.Key = {query.Small(0), query.Integer(1), query.Integer(2)};
        row.At = query.Integer(3);
        row.Start = query.Integer(4);
        row.State = static_cast<LedgerState>(query.Small(5));
        row.Until = query.Integer(6);
        row.ByItself = static_cast<Showing>(std::min(query.Small(7), static_cast<int>(Showing::Surely)));
        row.Card = static_cast<std::uint32_t>(query.Integer(8));
        row.Service = query.Text(9);
        row.Title = query.Text(10);
    }
    return Succeeded(query.Result());
}

Status StoreLedger::AddIfNew(DueReminder reminder, FoundList& found) {
    Query query(Db, "SELECT state FROM ledger WHERE oid = ? AND original = ? AND due = ?");
    const ReminderKey& key = reminder.Key;
    const bool has = query.Bind(key.Item).Bind(key.Original).Bind(key.Due).Next();
    if (Failed(query.Result())) {
        return query.Result();
    }
    reminder.Again = has && static_cast<LedgerState>(query.Small(0)) == LedgerState::ToReturn;
    if (!has || reminder.Again) {
        found.push_back(reminder);
    }
    return Status::Ok;
}

bool StoreLedger::FindDue(Moment after, Moment upTo, std::vector<DueReminder>& found) {
    Status added = Status::Ok;
    const Status status = Find.FindDue(after, upTo, [&](const DueReminder& reminder) {
        added = Succeeded(added) ? AddIfNew(reminder, found) : added;
    });
    return Succeeded(status) && Succeeded(added);
}

bool StoreLedger::FindAhead(Moment now, std::vector<DueReminder>& found) {
    Status added = Status::Ok;
    const Status status = Find.FindAhead(
        now, [&](const DueReminder& reminder) { added = Succeeded(added) ? AddIfNew(reminder, found) : added; });
    return Succeeded(status) && Succeeded(added);
}

bool StoreLedger::FindTime(const ReminderKey& key, std::optional<Moment>& due) {
    return Succeeded(Find.FindTime(key, due));
}

bool StoreLedger::FindNext(Moment after, std::optional<Moment>& next) {
    return Succeeded(Find.FindNext(after, next));
}

bool StoreLedger::Describe(const ReminderKey& key, std::optional<ReminderText>& text) {
    return Succeeded(Find.Describe(key, text));
}

// Rows of the ledger are no change of items, so nothing that is remembered of items is forgotten for them.
Status StoreLedger::RunTransaction(const std::function<Status()>& work) {
    Status status = Db.Run("BEGIN IMMEDIATE");
    if (Failed(status)) {
        return status;
    }
    status = work();
    if (Succeeded(status)) {
        status = Db.Run("COMMIT");
    }
    if (Failed(status) && Db.InTransaction()) {
        static_cast<void>(Db.Run("ROLLBACK")); // the first failure is the one to report
    }
    return status;
}

Status StoreLedger::WriteRow(const LedgerRow& row) {
    Query query(Db, "INSERT INTO ledger(oid, original, due, at, start, state, until, shows, card, service, title)"
                    " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT (oid, original, due) DO UPDATE SET"
                    " at = excluded.at, start = excluded.start, state = excluded.state, until = excluded.until,"
                    " shows = excluded.shows, card = excluded.card, service = excluded.service,"
                    " title = excluded.title");
    query.Bind(row.Key.Item).Bind(row.Key.Original).Bind(row.Key.Due).Bind(row.At).Bind(row.Start);
    query.Bind(NumberOf(row.State)).Bind(row.Until).Bind(NumberOf(row.ByItself)).Bind(row.Card);
    return query.Bind(row.Service).Bind(row.Title).Finish();
}

Status StoreLedger::WriteEvent(const LedgerRow& row) {
    Query query(Db, "INSERT INTO ledger_log(time, oid, at, state, until, title) VALUES (?, ?, ?, ?, ?, ?)");
    query.Bind(Now()).Bind(row.Key.Item).Bind(row.At).Bind(NumberOf(row.State)).Bind(row.Until);
    return query.Bind(row.Title).Finish();
}

Status StoreLedger::WriteProgress(Moment passed) {
    Query query(Db, "INSERT INTO setting(name, value) VALUES ('reminders_passed', ?), ('reminders_passed_wall', ?)"
                    " ON CONFLICT (name) DO UPDATE SET value = excluded.value");
    return query.Bind(passed).Bind(ToWall(passed)).Finish();
}

bool StoreLedger::Commit(std::span<const LedgerRow> rows, std::optional<Moment> passed) {
    return Succeeded(RunTransaction([&] {
        Status status = Status::Ok;
        for (const LedgerRow& row : rows) {
            status = Succeeded(status) ? WriteRow(row) : status;
            status = Succeeded(status) ? WriteEvent(row) : status;
        }
        return Succeeded(status) && passed ? WriteProgress(*passed) : status;
    }));
}

bool StoreLedger::GoBack(const Retreat& retreat) {
    return Succeeded(RunTransaction([&] {
        std::vector<ReminderKey> ahead;
        Status status = FindSettledAhead(retreat.Now, ahead);
        for (const ReminderKey& key : ahead) {
            status = Succeeded(status) ? TakeBack(key) : status;
        }
        return Succeeded(status) ? WriteProgress(retreat.Passed) : status;
    }));
}

// Perhaps shown by itself: it returns. Never: it stood in a list at most.
Status StoreLedger::TakeBack(const ReminderKey& key) {
    Query perhaps(Db, "UPDATE ledger SET state = ? WHERE oid = ? AND original = ? AND due = ? AND shows = ?");
    perhaps.Bind(NumberOf(LedgerState::ToReturn)).Bind(key.Item).Bind(key.Original).Bind(key.Due);
    const Status status = perhaps.Bind(NumberOf(Showing::Perhaps)).Finish();
    Query never(Db, "DELETE FROM ledger WHERE oid = ? AND original = ? AND due = ? AND shows = ?");
    never.Bind(key.Item).Bind(key.Original).Bind(key.Due).Bind(NumberOf(Showing::Never));
    return Succeeded(status) ? never.Finish() : status;
}

// Rows whose time is ahead in the zone of today, as they may have been entered in another. What waits to be seen waits
// on. In which zone an item counts that is gone, and may come back, is not known.
Status StoreLedger::FindSettledAhead(Moment now, std::vector<ReminderKey>& found) {
    Query query(Db, "SELECT oid, original, due, at FROM ledger WHERE (at > ? OR due > ?) AND shows < ?"
                    " AND state NOT IN (?, ?)");
    query.Bind(now).Bind(ToWall(now) - 2 * kDay); // an item may have a zone of its own
    query.Bind(NumberOf(Showing::Surely)).Bind(NumberOf(LedgerState::Due)).Bind(NumberOf(LedgerState::Offering));
    std::vector<LedgerRow> rows;
    while (query.Next()) {
        LedgerRow& row = rows.emplace_back();
        row.Key = {query.Small(0), query.Integer(1), query.Integer(2)};
        row.At = query.Integer(3);
    }
    Status status = query.Result();
    for (const LedgerRow& row : rows) {
        std::optional<Moment> due;
        status = Succeeded(status) ? Find.FindTime(row.Key, due) : status;
        if (due ? *due > now : row.At > now || row.Key.Due > ToWall(now)) {
            found.push_back(row.Key);
        }
    }
    return status;
}

bool StoreLedger::Purge(Moment now) {
    std::optional<Progress> progress;
    if (!ReadProgress(progress)) {
        return false;
    }
    // What a clock that jumped far ahead has not passed yet is found once more.
    const Moment passed = std::min(now, progress ? progress->Passed : now);
    return Succeeded(RunTransaction([&] {
        Query rows(Db, "DELETE FROM ledger WHERE state NOT IN (?, ?, ?) AND max(at, start, until) < ?");
        rows.Bind(NumberOf(LedgerState::Due)).Bind(NumberOf(LedgerState::Offering));
        Status status = rows.Bind(NumberOf(LedgerState::Snoozed)).Bind(passed - kKept).Finish();
        Query log(Db, "DELETE FROM ledger_log WHERE time < ?");
        return Succeeded(status) ? log.Bind(now - kKept).Finish() : status;
    }));
}

bool StoreLedger::ReadLog(const std::function<void(const LedgerEvent&)>& visit) {
    Query query(Db, "SELECT time, oid, at, state, until, title FROM ledger_log ORDER BY id");
    while (query.Next()) {
        LedgerEvent event;
        event.Time = query.Integer(0);
        event.Item = query.Small(1);
        event.At = query.Integer(2);
        event.State = static_cast<LedgerState>(query.Small(3));
        event.Until = query.Integer(4);
        event.Title = query.Text(5);
        visit(event);
    }
    return Succeeded(query.Result());
}

} // namespace tavo::outlook
