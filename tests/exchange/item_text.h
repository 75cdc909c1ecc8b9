// Items and what became of a calendar file, as text that tests compare.
#pragma once

#include "host/exchange/calendar_file.h"

#include <string>

namespace tavo::exchange {

// Every field that is not at its usual value, a line each.
std::string DescribeItem(const rules::StoredItem& item);

// All that a sink is told while the file is read, in order, and how the reading ended.
std::string DescribeFile(IByteSource& source, Manner manner = Manner::Lenient);

// "2026-03-14 09:00", with seconds where there are any.
std::string DescribeTime(rules::Seconds time);

} // namespace tavo::exchange
