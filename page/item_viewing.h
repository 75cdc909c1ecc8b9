// Looking at one item, from the lists and from the day's menu alike.
#pragma once

#include "store/program_state.h"

namespace tavo {

// Which times a record of a series has: those of the series, or of the occurrence that its row stands for.
enum class TimesOf { Series, Occurrence };

// The record as the store has it now: another process may have changed it since it was read. One that is gone, or
// cannot be read, stays as it is.
AppointmentData ReadAnew(OutlookSession& store, const AppointmentData& record, TimesOf times);

struct ViewedItem {
    int Result = 0;         // of the appointment view
    AppointmentData Record; // as the store has it after the view was closed
};

// Opens the appointment view on the item. It may be open for long, so what the opener does then begins with the record
// that is given back, not with the one that was shown.
ViewedItem ViewAppointment(CProgramState& state, const AppointmentData& record, TimesOf times);

} // namespace tavo
