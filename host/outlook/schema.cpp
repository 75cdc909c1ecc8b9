// Tables of the store, each version's steps, and the check that a file has them.
#include "host/outlook/schema.h"

#include "host/outlook/row_sum.h"

#include <string>

namespace tavo::outlook {

namespace {

// Version 1: everything but reminders and their ledger, the place of a wished tag and the origin of exceptions.
constexpr const char* kVersion1 = R"sql(
CREATE TABLE setting(
    name TEXT PRIMARY KEY,
    value NOT NULL
) WITHOUT ROWID;

CREATE TABLE change_count(
    kind TEXT PRIMARY KEY,
    count INTEGER NOT NULL
) WITHOUT ROWID;

CREATE TABLE zone(
    id INTEGER PRIMARY KEY,
    name TEXT NOT NULL UNIQUE,
    component TEXT
);

CREATE TABLE item(
    oid INTEGER PRIMARY KEY CHECK (oid BETWEEN 1 AND 2147483647),
    uid TEXT,
    source INTEGER,
    start INTEGER NOT NULL,
    length INTEGER NOT NULL CHECK (length BETWEEN 0 AND 2764800),
    zone INTEGER REFERENCES zone(id),
    zone_start INTEGER,
    zone_length INTEGER,
    flags INTEGER NOT NULL,
    busy INTEGER NOT NULL,
    sensitivity INTEGER NOT NULL,
    reminder_minutes INTEGER NOT NULL,
    reminder_options INTEGER NOT NULL,
    reminder_sound TEXT NOT NULL,
    subject TEXT NOT NULL,
    location TEXT NOT NULL,
    categories TEXT NOT NULL,
    body TEXT NOT NULL
);
CREATE UNIQUE INDEX item_uid ON item(uid) WHERE uid IS NOT NULL;

CREATE TABLE plain(
    span INTEGER NOT NULL,
    start INTEGER NOT NULL,
    oid INTEGER NOT NULL,
    length INTEGER NOT NULL,
    PRIMARY KEY (span, start, oid)
) WITHOUT ROWID;

CREATE TABLE series(
    oid INTEGER PRIMARY KEY REFERENCES item(oid) ON DELETE CASCADE,
    first INTEGER NOT NULL,
    first_length INTEGER NOT NULL,
    until INTEGER NOT NULL,
    start INTEGER NOT NULL,
    length INTEGER NOT NULL,
    zone INTEGER REFERENCES zone(id),
    type INTEGER NOT NULL,
    interval INTEGER NOT NULL,
    mask INTEGER NOT NULL,
    day INTEGER NOT NULL,
    instance INTEGER NOT NULL,
    month INTEGER NOT NULL,
    end_kind INTEGER NOT NULL,
    occurrences INTEGER NOT NULL,
    last_day INTEGER NOT NULL,
    has_exceptions INTEGER NOT NULL
);

CREATE TABLE foreign_rule(
    oid INTEGER PRIMARY KEY REFERENCES item(oid) ON DELETE CASCADE,
    rule TEXT NOT NULL
);

CREATE TABLE exception(
    oid INTEGER NOT NULL REFERENCES item(oid) ON DELETE CASCADE,
    original INTEGER NOT NULL,
    kind INTEGER NOT NULL,
    start INTEGER NOT NULL,
    length INTEGER NOT NULL,
    subject TEXT,
    location TEXT,
    PRIMARY KEY (oid, original)
) WITHOUT ROWID;

CREATE TABLE ink(
    oid INTEGER PRIMARY KEY REFERENCES item(oid) ON DELETE CASCADE,
    data BLOB NOT NULL CHECK (length(data) <= 4194304)
);

CREATE TABLE tag(
    list INTEGER NOT NULL CHECK (list BETWEEN 0 AND 2),
    place INTEGER NOT NULL,
    oid INTEGER NOT NULL,
    PRIMARY KEY (list, place)
) WITHOUT ROWID;
CREATE INDEX tag_oid ON tag(oid);

CREATE TABLE request(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    list INTEGER NOT NULL CHECK (list BETWEEN 0 AND 2),
    oid INTEGER NOT NULL,
    wish INTEGER NOT NULL
);

CREATE TABLE journal_group(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    name TEXT NOT NULL,
    time INTEGER NOT NULL,
    undone INTEGER NOT NULL
);

CREATE TABLE journal_change(
    group_id INTEGER NOT NULL REFERENCES journal_group(id) ON DELETE CASCADE,
    step INTEGER NOT NULL,
    kind INTEGER NOT NULL,
    oid INTEGER NOT NULL,
    last_oid INTEGER NOT NULL,
    image BLOB,
    PRIMARY KEY (group_id, step)
) WITHOUT ROWID;

INSERT INTO change_count(kind, count) VALUES ('items', 0), ('ledger', 0);
INSERT INTO setting(name, value) VALUES ('next_oid', 1), ('device_zone', '');
)sql";

constexpr const char* kToVersion2 = R"sql(
ALTER TABLE exception ADD COLUMN source INTEGER NOT NULL DEFAULT 0;
ALTER TABLE request ADD COLUMN position INTEGER NOT NULL DEFAULT -1;

CREATE TABLE ledger(
    oid INTEGER NOT NULL,
    original INTEGER NOT NULL,
    due INTEGER NOT NULL,
    state INTEGER NOT NULL,
    until INTEGER NOT NULL,
    PRIMARY KEY (oid, original)
) WITHOUT ROWID;
CREATE TRIGGER ledger_insert AFTER INSERT ON ledger BEGIN
    UPDATE change_count SET count = count + 1 WHERE kind = 'ledger'; END;
CREATE TRIGGER ledger_update AFTER UPDATE ON ledger BEGIN
    UPDATE change_count SET count = count + 1 WHERE kind = 'ledger'; END;
CREATE TRIGGER ledger_delete AFTER DELETE ON ledger BEGIN
    UPDATE change_count SET count = count + 1 WHERE kind = 'ledger'; END;
)sql";

// One row of the ledger for each occurrence and due time, what happened to each, and the reminders in order of lead and
// start, series apart: so the next one of every lead is found at once.
constexpr const char* kToVersion3 = R"sql(
DROP TABLE ledger;
CREATE TABLE ledger(
    oid INTEGER NOT NULL,
    original INTEGER NOT NULL,
    due INTEGER NOT NULL,
    at INTEGER NOT NULL,
    start INTEGER NOT NULL,
    state INTEGER NOT NULL,
    until INTEGER NOT NULL,
    shows INTEGER NOT NULL,
    card INTEGER NOT NULL,
    service TEXT NOT NULL,
    title TEXT NOT NULL,
    PRIMARY KEY (oid, original, due)
) WITHOUT ROWID;
CREATE INDEX ledger_open ON ledger(state) WHERE state < 5;
CREATE TRIGGER ledger_insert AFTER INSERT ON ledger BEGIN
    UPDATE change_count SET count = count + 1 WHERE kind = 'ledger'; END;
CREATE TRIGGER ledger_update AFTER UPDATE ON ledger BEGIN
    UPDATE change_count SET count = count + 1 WHERE kind = 'ledger'; END;
CREATE TRIGGER ledger_delete AFTER DELETE ON ledger BEGIN
    UPDATE change_count SET count = count + 1 WHERE kind = 'ledger'; END;

CREATE TABLE ledger_log(
    id INTEGER PRIMARY KEY,
    time INTEGER NOT NULL,
    oid INTEGER NOT NULL,
    at INTEGER NOT NULL,
    state INTEGER NOT NULL,
    until INTEGER NOT NULL,
    title TEXT NOT NULL
);

CREATE INDEX item_reminder ON item((flags & 4), reminder_minutes, start) WHERE flags & 2;
)sql";

// Checksums of rows.
std::string ToVersion4() {
    std::string steps;
    for (const SummedTable& table : kSummedTablesOfVersion4) {
        steps += std::string("ALTER TABLE ") + table.Name + " ADD COLUMN sum INTEGER NOT NULL DEFAULT 0;";
        steps += SqlToSum(table);
    }
    return steps;
}

// Content lines of other calendars that mean nothing here: of an item, and of occurrences that do not follow its rule.
// And what tells this store from all others, for the UIDs of its exports.
constexpr const char* kToVersion5 = R"sql(
CREATE TABLE carried(
    oid INTEGER NOT NULL REFERENCES item(oid) ON DELETE CASCADE,
    original INTEGER NOT NULL,
    lines TEXT NOT NULL,
    sum INTEGER NOT NULL,
    PRIMARY KEY (oid, original)
) WITHOUT ROWID;
INSERT INTO setting(name, value) VALUES ('store_identity', random());
)sql";

// Asks every table that a file of a version must have for a row: finds a missing one and a damaged first page.
constexpr const char* kTouchVersion1 =
    "SELECT (SELECT 1 FROM setting LIMIT 1), (SELECT 1 FROM change_count LIMIT 1), (SELECT 1 FROM zone LIMIT 1),"
    " (SELECT 1 FROM item LIMIT 1), (SELECT uid FROM item WHERE uid > '' LIMIT 1), (SELECT 1 FROM plain LIMIT 1),"
    " (SELECT 1 FROM series LIMIT 1), (SELECT 1 FROM foreign_rule LIMIT 1), (SELECT 1 FROM exception LIMIT 1),"
    " (SELECT 1 FROM ink LIMIT 1), (SELECT 1 FROM tag LIMIT 1), (SELECT 1 FROM request LIMIT 1),"
    " (SELECT 1 FROM journal_group LIMIT 1), (SELECT 1 FROM journal_change LIMIT 1)";
constexpr const char* kTouchVersion2 = "SELECT (SELECT position FROM request LIMIT 1), (SELECT source FROM exception "
                                       "LIMIT 1), (SELECT 1 FROM ledger LIMIT 1)";
constexpr const char* kTouchVersion3 = "SELECT (SELECT shows FROM ledger LIMIT 1), (SELECT 1 FROM ledger_log LIMIT 1)";
constexpr const char* kTouchVersion4 =
    "SELECT (SELECT sum FROM item LIMIT 1), (SELECT sum FROM series LIMIT 1), (SELECT sum FROM foreign_rule LIMIT 1),"
    " (SELECT sum FROM exception LIMIT 1), (SELECT sum FROM ink LIMIT 1), (SELECT sum FROM zone LIMIT 1),"
    " (SELECT sum FROM journal_change LIMIT 1)";
constexpr const char* kTouchVersion5 = "SELECT (SELECT sum FROM carried LIMIT 1)";

// Turns the pragma with its number into one statement.
Status SetNumber(Database& database, const char* pragma, std::int32_t number) {
    const std::string sql = std::string("PRAGMA ") + pragma + "=" + std::to_string(number);
    return database.Run(sql.c_str());
}

bool ReadNumber(Database& database, const char* sql, std::int64_t& number) {
    Query query(database, sql);
    if (!query.Next()) {
        return false;
    }
    number = query.Integer(0);
    return true;
}

// Runs what `chooseSteps` gives for the version that the file has once we hold the writers' lock.
template <class Choose> Status BringForward(Database& database, const Choose& chooseSteps) {
    Status status = database.Run("BEGIN IMMEDIATE");
    std::int64_t version = 0;
    if (Succeeded(status) && !ReadNumber(database, "PRAGMA user_version", version)) {
        status = Failed(database.LastStatus()) ? database.LastStatus() : Status::Corrupt;
    }
    if (Succeeded(status) && version < kSchemaVersion) {
        const std::string steps = chooseSteps(version);
        status = database.Run(steps.c_str());
        if (Succeeded(status)) {
            status = SetNumber(database, "user_version", kSchemaVersion);
        }
    }
    if (Succeeded(status)) {
        status = database.Run("COMMIT");
    }
    if (Failed(status) && database.InTransaction()) {
        static_cast<void>(database.Run("ROLLBACK")); // the first failure is the one to report
    }
    return status;
}

Status Touch(Database& database, const char* sql) {
    const Status status = Query(database, sql).Finish();
    // An SQL error here means that there is no such table.
    return status == Status::Fail ? Status::Corrupt : status;
}

// In a damaged file SQLite may find bytes that are no database any more; by now we know that it is ours.
Status OursButDamaged(Status status) {
    return status == Status::NotOurs ? Status::Corrupt : status;
}

} // namespace

Status CreateSchema(Database& database) {
    if (const Status status = SetNumber(database, "application_id", kApplicationId); Failed(status)) {
        return status;
    }
    return BringForward(database, [](std::int64_t) {
        return std::string(kVersion1) + kToVersion2 + kToVersion3 + ToVersion4() + kToVersion5;
    });
}

Status ReadSchema(Database& database, std::int32_t& version) {
    std::int64_t identity = 0;
    std::int64_t fileVersion = 0;
    if (!ReadNumber(database, "PRAGMA application_id", identity) ||
        !ReadNumber(database, "PRAGMA user_version", fileVersion)) {
        return Failed(database.LastStatus()) ? database.LastStatus() : Status::Corrupt;
    }
    if (identity != kApplicationId) {
        return Status::NotOurs;
    }
    version = static_cast<std::int32_t>(fileVersion);
    if (version > kSchemaVersion) {
        return Status::NewerVersion;
    }
    if (version < 1) {
        return Status::Corrupt;
    }
    Status status = Touch(database, kTouchVersion1);
    if (Succeeded(status) && version >= 2) {
        status = Touch(database, kTouchVersion2);
    }
    if (Succeeded(status) && version >= 3) {
        status = Touch(database, kTouchVersion3);
    }
    if (Succeeded(status) && version >= 4) {
        status = Touch(database, kTouchVersion4);
    }
    if (Succeeded(status) && version >= 5) {
        status = Touch(database, kTouchVersion5);
    }
    return OursButDamaged(status);
}

Status MigrateSchema(Database& database) {
    return BringForward(database, [](std::int64_t version) {
        std::string steps;
        if (version < 2) {
            steps += kToVersion2;
        }
        if (version < 3) {
            steps += kToVersion3;
        }
        if (version < 4) {
            steps += ToVersion4();
        }
        if (version < 5) {
            steps += kToVersion5;
        }
        return steps;
    });
}

} // namespace tavo::outlook
