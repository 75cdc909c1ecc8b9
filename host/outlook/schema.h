// The store file's identity, tables and versions.
#pragma once

#include "host/outlook/database.h"

#include <cstdint>

namespace tavo::outlook {

constexpr std::int32_t kApplicationId = 0x5461766F; // "Tavo"
constexpr std::int32_t kSchemaVersion = 5;
constexpr std::int32_t kSummedVersion = 4;   // from here on rows have their checksums
constexpr std::int32_t kCarryingVersion = 5; // from here on there is the table `carried`
// From here on who only reads finds all it needs in its place.
constexpr std::int32_t kReadableVersion = 3;

// A short item lasts a day at most, a long one up to the 31 days that an appointment may last: two spans of start times
// in which an item that touches a given moment can begin.
constexpr std::int64_t kShortItem = 0;
constexpr std::int64_t kLongItem = 1;

// Builds all tables in an empty database, in one transaction.
Status CreateSchema(Database& database);

// Ok when identity, version and tables are ours; NotOurs, NewerVersion or Corrupt otherwise. Writes nothing.
// `version` gets the file's version.
Status ReadSchema(Database& database, std::int32_t& version);

// Brings an older file to kSchemaVersion, in one transaction; another process may have been faster.
Status MigrateSchema(Database& database);

} // namespace tavo::outlook
