// The handwritten memos of a day, for its print.
#pragma once

#include "host/exchange/memo_folder.h"
#include "host/print/page_layout.h"

#include <string>
#include <vector>

namespace tavo::print {

// In the order of their names. `unreadable` gets the names of those that cannot be read.
MemosOfDay ReadMemos(exchange::IMemoFolder& folder, DayNumber day, std::vector<std::string>& unreadable);

} // namespace tavo::print
