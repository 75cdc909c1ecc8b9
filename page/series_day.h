// One day of a series, as the store has it.
#pragma once

#include "store/program_state.h"

namespace tavo {

// The occurrence of this series that the day shows; of several the one that begins when the record does. Null when
// there is none, or the store cannot be asked.
ComPtr<IAppointment> FindSeriesDay(CProgramState& state, const AppointmentData& series, const SYSTEMTIME& day);

// The record of the series with what the occurrence has of its own. What cannot be read stays the series'.
AppointmentData RecordOfDay(const AppointmentData& series, IAppointment& occurrence, ILocale& locale);

} // namespace tavo
