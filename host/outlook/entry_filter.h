// Judges the lines of a listing by a restriction.
#pragma once

#include "host/outlook/terms.h"
#include "host/rules/restriction.h"
#include "host/rules/series.h"
#include "host/rules/stored_item.h"

namespace tavo::outlook {

class StoreCore;

class EntryFilter {
  public:
    EntryFilter(StoreCore& core, const Restriction& restriction)
        : Core(core), Asked(restriction), TimesOnly(restriction.ComparesTimesOnly()) {}

    // Drops the entries from `since` on that do not match.
    Status Apply(std::vector<Entry>& entries, std::size_t since);

  private:
    bool Matches(const Entry& entry) const;
    bool MatchesCondition(const Condition& condition, const Entry& entry) const;
    bool MatchesText(const Condition& condition, const Entry& entry) const;

    StoreCore& Core;
    const Restriction& Asked;
    bool TimesOnly;
    StoredItem Loaded; // of the entry that is judged, where more than its times is asked for
};

} // namespace tavo::outlook
