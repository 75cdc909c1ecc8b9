// Copies an item of the store into an appointment record.
#pragma once

#include "platform/locale.h"
#include "store/appointment_data.h"

namespace tavo {

// All fields but SpareText and SpareWord, which stay as they were.
void FillRecord(IAppointment& item, ILocale& locale, AppointmentData& record);

} // namespace tavo
