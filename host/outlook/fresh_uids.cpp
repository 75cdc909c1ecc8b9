// Which UIDs an empty store has been given.
#include "host/outlook/fresh_uids.h"

#include <functional>

namespace tavo::outlook {

namespace {

constexpr std::size_t kMost = 200'000; // a few megabytes

std::size_t HashOf(const std::string& uid) {
    return std::hash<std::string>()(uid);
}

} // namespace

void FreshUids::Begin(Database& database) {
    Query query(database, "SELECT 1 FROM item WHERE uid IS NOT NULL LIMIT 1");
    Added.clear();
    IsComplete = !query.Next() && Succeeded(query.Result());
}

bool FreshUids::MayHold(const std::string& uid) const {
    return !IsComplete || Added.contains(HashOf(uid));
}

void FreshUids::Add(const std::string& uid) {
    if (IsComplete) {
        Added.insert(HashOf(uid));
        IsComplete = Added.size() < kMost;
    }
}

} // namespace tavo::outlook
