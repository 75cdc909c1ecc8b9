// Tells, without polling, that another process changed items of the store.
#pragma once

#include "host/outlook/store.h"
#include "host/outlook/store_machine.h"

#include <array>
#include <memory>

namespace tavo::outlook {

class ChangeWatcher {
  public:
    // The last sign of a change comes while it is still being made safe on the disk: whoever had a notice looks
    // again after each of these pauses, in milliseconds.
    static constexpr std::array<int, 3> kSecondLooks{40, 200, 1500};

    // `notice` outlives it.
    ChangeWatcher(StorePtr store, IChangeNotice& notice);
    ~ChangeWatcher();
    ChangeWatcher(const ChangeWatcher&) = delete;
    ChangeWatcher& operator=(const ChangeWatcher&) = delete;

    // Ok when there will be a notice whenever the store's files are written to, by whomever.
    Status Start();
    // Call when there is a notice. True when another process changed items, or asked for a tag, since the last
    // call: a change of this process, or of the reminder ledger alone, gives false.
    bool TakeItemChange();
    // True when the reminder ledger was changed since the last call, by whomever.
    bool TakeLedgerChange();

  private:
    struct Work;
    std::unique_ptr<Work> State;
};

} // namespace tavo::outlook
