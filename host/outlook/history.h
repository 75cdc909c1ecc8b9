// What was changed in the store, for people; and single items brought back from it.
#pragma once

#include "host/outlook/store.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tavo::outlook {

enum class PastChange { None, Made, Changed, Deleted };

// One step of undo.
struct PastStep {
    std::int64_t Time = 0; // seconds since 1970
    std::string Name;      // as undo calls it, UTF-8
    bool IsUndone = false;
    std::int64_t Items = 0; // that it made, changed or deleted; 0 once it is undone
    // The first of them, with the subject that it has now, or had when this step took it away.
    Oid First = 0;
    PastChange FirstChange = PastChange::None;
    std::string FirstSubject; // UTF-8
};

// The newest steps first, so many at the most: what the store remembers is at least the last thousand.
Status ListHistory(const StorePtr& store, int most, std::vector<PastStep>& steps);

// Brings an item back as it was before it was deleted or changed last, its kinds with it (by requests for the tags):
// one step of undo. NotFound when the store remembers nothing of it.
Status RestoreItem(const StorePtr& store, Oid oid);

} // namespace tavo::outlook
