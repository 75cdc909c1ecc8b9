// The texts of the edit dialog's recurrence list.
#pragma once

#include "platform/system_time.h"

#include <string>
#include <vector>

namespace tavo {

// One for each recurrence choice, in their order; most name the start's day. Its weekday must be filled in.
std::vector<std::u16string> MakeRecurrenceTexts(const SYSTEMTIME& start);

} // namespace tavo
