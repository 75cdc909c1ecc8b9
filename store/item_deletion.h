// Deleting an item as a step that can be taken back by name.
#pragma once

#include "store/program_state.h"

#include <string>

namespace tavo {

// "delete of alarm Wake up", "delete of series Yoga": a long subject is shortened, and line breaks become blanks.
std::u16string NameDeletion(ItemKind kind, const AppointmentData& record);

// "copy of Yoga to alarms", in the same way.
std::u16string NameCopy(ItemKind target, const AppointmentData& record);

// Deletes the item and takes the first equal OID out of the kind's list, as one step. An item that is already gone
// counts as deleted. False when the store took no changes: item and list are then as they were.
bool DeleteItem(CProgramState& state, ItemKind kind, const AppointmentData& record);

// Takes one day out of its series, as such a step. False when the store took no changes.
bool DeleteOccurrence(CProgramState& state, IAppointment& occurrence, const AppointmentData& series);

} // namespace tavo
