// How an item repeats, in words.
#pragma once

#include "host/rules/stored_item.h"

#include <string>

namespace tavo::tools {

// "daily", "weekly on Mon, Wed until Thu 31 December 2026"; "" of what happens once. A rule of other calendars stays as
// it is written, made harmless.
std::string DescribeRepetition(const rules::StoredItem& item);

} // namespace tavo::tools
