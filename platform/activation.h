// What comes to the program from other processes, besides coming forward and changes of the store.
#pragma once

#include "platform/messages.h"

namespace tavo {

// To the frame: show this item; Id is its OID. Input, so that nobody gets it while a dialog or a message box is open.
constexpr MessageNumber WM_OPENITEM = WM_APP + 3;

// In its Id, instead of an OID: a new item is to be made, of this kind.
enum class NewItemWish : int { Alarm = -1, Holiday = -2, Anniversary = -3, Appointment = -4 };

// To the frame: calendar files were opened with the program, and wait to be imported. Input likewise.
constexpr MessageNumber WM_IMPORTFILES = WM_APP + 4;

// To the frame: a file to be written was chosen; Id is its WrittenFile. Input likewise.
constexpr MessageNumber WM_EXPORTFILE = WM_APP + 5;

// To the main view, as WM_TIMER: the reminder service went on. The program sets a timer of this number too.
constexpr int kTimerReminderSound = 1006;

} // namespace tavo
