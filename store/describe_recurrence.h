// The words of a recurrence pattern.
#pragma once

#include "store/appointment_data.h"

#include <string>

namespace tavo {

// One English line for the recurrence of the appointment; empty for a rule that has no words.
// Kept on purpose: the kinds that name a weekday or a month take it from the start, not from the pattern.
std::u16string DescribeRecurrence(const AppointmentData& record);

} // namespace tavo
