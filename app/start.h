// The program's one entry: what a host calls.
#pragma once

#include "platform/calendar_files.h"
#include "platform/host.h"

namespace tavo {

// Runs the program on this device until it quits; gives the process's exit status.
int RunTavoCalendar(IHost& host, const CalendarFiles& files = {});

} // namespace tavo
