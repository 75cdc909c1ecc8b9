// Tells, without polling, that another process changed items of the store.
#pragma once

#include "host/outlook/store.h"

#include <array>
#include <memory>

namespace tavo::outlook {

class ChangeWatcher {
  public:
    // The last sign of a change comes while it is still being made safe on the disk: whoever found the descriptor
    // readable looks again after each of these pauses, in milliseconds.
    static constexpr std::array<int, 3> kSecondLooks{40, 200, 1500};

    explicit ChangeWatcher(StorePtr store);
    ~ChangeWatcher();
    ChangeWatcher(const ChangeWatcher&) = delete;
    ChangeWatcher& operator=(const ChangeWatcher&) = delete;

    // Ok when notification works; the descriptor is -1 otherwise.
    Status Start();
    // Becomes readable when the store's files were written to, by whomever.
    int Descriptor() const;
    // Call when the descriptor is readable. True when another process changed items, or asked for a tag, since the last
    // call: a change of this process, or of the reminder ledger alone, gives false.
    bool TakeItemChange();
    // True when the reminder ledger was changed since the last call, by whomever.
    bool TakeLedgerChange();

  private:
    struct Work;
    std::unique_ptr<Work> State;
};

} // namespace tavo::outlook
