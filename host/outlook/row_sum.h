// The checksum of a row: what a flipped bit in a stored text or time is noticed by.
#pragma once

#include "host/outlook/database.h"

#include <algorithm>
#include <array>
#include <string>

namespace tavo::outlook {

// A table whose rows carry the checksum of their other columns.
struct SummedTable {
    const char* Name = "";
    const char* Key = "";     // the column that says which row it is
    const char* Columns = ""; // what the sum is over, in its order
};

// As version 4 of the schema has them. The step to a version reads the tables of that version, never today's: a later
// column or table comes with a list of its own.
constexpr std::array<SummedTable, 7> kSummedTablesOfVersion4{{
    {"item", "oid",
     "uid, source, start, length, zone, zone_start, zone_length, flags, busy, sensitivity, reminder_minutes,"
     " reminder_options, reminder_sound, subject, location, categories, body, oid"},
    {"series", "oid",
     "oid, first, first_length, until, start, length, zone, type, interval, mask, day, instance, month, end_kind,"
     " occurrences, last_day, has_exceptions"},
    {"foreign_rule", "oid", "oid, rule"},
    {"exception", "oid", "oid, original, kind, start, length, subject, location, source"},
    {"ink", "oid", "oid, data"},
    {"zone", "id", "name, component"},
    {"journal_change", "group_id", "group_id, step, kind, oid, last_oid, image"},
}};

// Of version 5.
constexpr SummedTable kCarriedTable{"carried", "oid", "oid, original, lines"};

// Today's.
constexpr std::array<SummedTable, 8> kSummedTables = [] {
    std::array<SummedTable, 8> tables{};
    std::copy(kSummedTablesOfVersion4.begin(), kSummedTablesOfVersion4.end(), tables.begin());
    tables.back() = kCarriedTable;
    return tables;
}();

// Gives a connection the function `row_sum` of any number of values: 32 bits, different for any two rows that differ in
// a single bit. Only for statements of ours, not for what a file's schema says.
Status AddRowSum(sqlite3* connection);

// The statement that gives every row of the table its sum anew.
std::string SqlToSum(const SummedTable& table);
// The one that gives the keys of rows whose sum is not theirs.
std::string SqlToFindChanged(const SummedTable& table);

} // namespace tavo::outlook
