// When an item is, by what the command line says of it and by what it was before.
#pragma once

#include "host/rules/stored_item.h"
#include "tools/arguments.h"

namespace tavo::tools {

struct ItemTimes {
    rules::Seconds Start = 0; // on the device's clock
    rules::Seconds End = 0;   // of whole days as StoredItem has it
    bool AllDay = false;
};

// `stored` is null for a new item, which lasts an hour unless something else is said. Nothing, with a sentence in
// `error`, for times that cannot be together.
std::optional<ItemTimes> WorkOutTimes(const ItemOptions& options, const rules::StoredItem* stored, const Moment& now,
                                      std::string& error);

} // namespace tavo::tools
