// The machine tells when a file of the store was written to; the store's own counts tell whether that matters.
#include "host/outlook/change_watcher.h"

#include "host/outlook/store_core.h"

#include <utility>

namespace tavo::outlook {

struct ChangeWatcher::Work {
    StorePtr Source;
    IChangeNotice& Notice;
    bool IsStarted = false;
    std::int64_t KnownLedger = 0;
};

ChangeWatcher::ChangeWatcher(StorePtr store, IChangeNotice& notice)
    : State(std::make_unique<Work>(Work{std::move(store), notice})) {}

ChangeWatcher::~ChangeWatcher() = default;

Status ChangeWatcher::Start() {
    if (State->IsStarted) {
        return Status::False;
    }
    // The log comes and goes and a restored backup is another file: the folder stays.
    if (const Status status = State->Notice.Watch(AbsolutePath(CoreOf(*State->Source).Path).parent_path());
        Failed(status)) {
        return status;
    }
    State->IsStarted = true;
    std::int64_t items = 0;
    return CoreOf(*State->Source).ReadChangeCounts(items, State->KnownLedger);
}

bool ChangeWatcher::TakeItemChange() {
    State->Notice.Take();
    return CoreOf(*State->Source).TakeForeignItemChange();
}

bool ChangeWatcher::TakeLedgerChange() {
    State->Notice.Take();
    std::int64_t items = 0;
    std::int64_t ledger = State->KnownLedger;
    if (Failed(CoreOf(*State->Source).ReadChangeCounts(items, ledger))) {
        return false; // the next notification asks again
    }
    const bool changed = ledger != State->KnownLedger;
    State->KnownLedger = ledger;
    return changed;
}

} // namespace tavo::outlook
