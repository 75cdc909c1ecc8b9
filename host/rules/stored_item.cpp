// What can be said of an item at a glance.
#include "host/rules/stored_item.h"

#include <algorithm>

namespace tavo::rules {

bool CarriesLines(const StoredItem& item) {
    return !item.Carried.empty() ||
           (item.IsRecurring() && std::any_of(item.Exceptions.begin(), item.Exceptions.end(),
                                              [](const StoredException& one) { return !one.Carried.empty(); }));
}

} // namespace tavo::rules
