// The program's one entry: what a host calls.
#pragma once

#include "platform/calendar_import.h"
#include "platform/host.h"

namespace tavo {

// Runs the program on this device until it quits; gives the process's exit status. `files`: the calendar files that
// are opened with it; a device without such files gives none.
int RunTavoCalendar(IHost& host, ICalendarImport* files = nullptr);

} // namespace tavo
