// A store file as version 1 made it, frozen: it must never follow the store's own tables.
#pragma once

namespace tavo::outlook::test {

constexpr const char* kVersion1Store = R"sql(
PRAGMA application_id = 1415673455;
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

UPDATE setting SET value = 3 WHERE name = 'next_oid';
INSERT INTO item(oid, uid, source, start, length, flags, busy, sensitivity, reminder_minutes, reminder_options,
                 reminder_sound, subject, location, categories, body)
VALUES (1, 'uid-1', 77, 3986787600, 3600, 0, 2, 0, 0, 0, '', 'Dentist', '', '', ''),
       (2, NULL, 0, 3987050400, 1800, 4, 2, 0, 0, 0, '', 'Weekly', '', '', '');
INSERT INTO plain(span, start, oid, length) VALUES (0, 3986787600, 1, 3600);
INSERT INTO series(oid, first, first_length, until, start, length, type, interval, mask, day, instance, month, end_kind,
                   occurrences, last_day, has_exceptions)
VALUES (2, 3987050400, 1800, 9223372036854775807, 3987050400, 1800, 1, 1, 2, 4, 1, 5, 0, 0, 0, 0);
INSERT INTO tag(list, place, oid) VALUES (0, 1048576, 2);
INSERT INTO request(list, oid, wish) VALUES (1, 1, 1);
INSERT INTO journal_group(name, time, undone) VALUES ('Import of old.ics', 1700000000, 0);
INSERT INTO journal_change(group_id, step, kind, oid, last_oid, image) VALUES (1, 0, 0, 1, 2, x'');
PRAGMA user_version = 1;
PRAGMA journal_mode = WAL;
)sql";

} // namespace tavo::outlook::test
