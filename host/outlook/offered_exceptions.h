// Exceptions of a series that come to an import by themselves.
#pragma once

#include "host/exchange/item_writer.h"
#include "host/outlook/store_core.h"
#include "host/rules/save_rules.h"

#include <map>
#include <set>

namespace tavo::outlook {

// Whether a file brought it as an entry of its own, not inside its series.
bool CameByItself(const StoredException& exception);

// Collects them, so that each series is written once for all of them, and takes away those that came by themselves
// before and are not offered again.
class OfferedExceptions {
  public:
    explicit OfferedExceptions(StoreCore& core) : Core(core) {}

    void Begin();

    // The file brings this item: what came to it by itself is expected to come again.
    void Expect(const StoredItem& stored);

    Status Put(Oid oid, const StoredException& exception, exchange::ImportOutcome& outcome);

    // Before the series is written by somebody else.
    Status Close(Oid oid);

    // Writes what is left. After a failure the transaction is to be taken back.
    Status Finish();

  private:
    struct OpenSeries {
        StoredItem Before;
        StoredItem Item;
        SaveFault Fault = SaveFault::None;
        std::map<Seconds, std::size_t> Places; // of the exceptions, by recurrence id
        bool Changed = false;
    };

    Status Fetch(Oid oid, OpenSeries*& series);
    Status DropUnoffered();
    Status Drop(Oid oid, const std::set<Seconds>& originals);

    StoreCore& Core;
    std::map<Oid, OpenSeries> Open;
    std::map<Oid, std::set<Seconds>> Unoffered;
};

} // namespace tavo::outlook
