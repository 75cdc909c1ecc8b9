// A short way past looking for items by their UIDs.
#pragma once

#include "host/outlook/database.h"

#include <string>
#include <unordered_set>

namespace tavo::outlook {

// What a store that had no UIDs holds of them since, by their hashes: at the first import of all nearly every look for
// one is in vain.
class FreshUids {
  public:
    void Begin(Database& database);

    // Whether to look.
    bool MayHold(const std::string& uid) const;

    void Add(const std::string& uid);

  private:
    bool IsComplete = false;
    std::unordered_set<std::size_t> Added;
};

} // namespace tavo::outlook
