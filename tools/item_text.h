// One item in words.
#pragma once

#include "host/rules/stored_item.h"

#include <string>

namespace tavo::tools {

// "Wed 2 December 2026 15:00 - 16:00", "Wed 2 December 2026, all day".
std::string DescribeSpan(const rules::StoredItem& item);

// The same behind its subject, made harmless: "Dentist, Wed 2 December 2026 15:00 - 16:00".
std::string DescribeItem(const rules::StoredItem& item);

} // namespace tavo::tools
