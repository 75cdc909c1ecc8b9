// The kernel tells when a file of the store was written to; the store's own counts tell whether that matters.
#include "host/outlook/change_watcher.h"

#include "host/outlook/store_core.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <sys/inotify.h>
#include <unistd.h>

namespace tavo::outlook {

struct ChangeWatcher::Work {
    explicit Work(StorePtr store) : Source(std::move(store)) {}

    StorePtr Source;
    int Notifier = -1;
    std::int64_t KnownLedger = 0;

    // Empties the notifier; what exactly was written does not matter.
    void Drain() const {
        std::array<std::byte, 4096> events;
        while (Notifier >= 0 && read(Notifier, events.data(), events.size()) > 0) {
        }
    }
};

ChangeWatcher::ChangeWatcher(StorePtr store) : State(std::make_unique<Work>(std::move(store))) {}

ChangeWatcher::~ChangeWatcher() {
    if (State->Notifier >= 0) {
        close(State->Notifier);
    }
}

Status ChangeWatcher::Start() {
    if (State->Notifier >= 0) {
        return Status::False;
    }
    State->Notifier = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (State->Notifier < 0) {
        return Status::Fail;
    }
    // The log comes and goes and a restored backup is another file: the folder stays.
    const std::filesystem::path folder = AbsolutePath(CoreOf(*State->Source).Path).parent_path();
    if (inotify_add_watch(State->Notifier, folder.c_str(), IN_MODIFY | IN_MOVED_TO | IN_CREATE) < 0) {
        close(State->Notifier);
        State->Notifier = -1;
        return Status::Fail;
    }
    std::int64_t items = 0;
    return CoreOf(*State->Source).ReadChangeCounts(items, State->KnownLedger);
}

int ChangeWatcher::Descriptor() const {
    return State->Notifier;
}

bool ChangeWatcher::TakeItemChange() {
    State->Drain();
    return CoreOf(*State->Source).TakeForeignItemChange();
}

bool ChangeWatcher::TakeLedgerChange() {
    State->Drain();
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
