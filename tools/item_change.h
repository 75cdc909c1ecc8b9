// Puts what the command line says of an item into the store, in one step of undo.
#pragma once

#include "host/outlook/import_writer.h"
#include "tools/arguments.h"
#include "tools/item_times.h"

#include <string_view>

namespace tavo::tools {

class ItemChange {
  public:
    // A failure of the store, or a refusal, whose reason is then in GetFault.
    ItemChange(const outlook::StorePtr& store, const ItemOptions& options);

    // One that is not there yet. Until Finish nothing stays.
    Status Make(const ItemTimes& times);

    // The item as it is now; its tags follow from requests that are finished afterwards.
    Status Finish(rules::StoredItem& item);

    // A sentence; "" when nothing was refused.
    const std::string& GetFault() const { return Fault; }

  private:
    Status Put(IAppointment& appointment, const ItemTimes& times);
    Status PutTexts(IAppointment& appointment);

    outlook::StorePtr Store;
    const ItemOptions& Options;
    outlook::ImportWriter Writer;
    Oid Item = 0;
    std::string Fault;
};

} // namespace tavo::tools
