// How calendar files come into the program and out of it.
#pragma once

#include "platform/calendar_export.h"
#include "platform/calendar_import.h"
#include "platform/file_dialogs.h"

namespace tavo {

// What a device without such files or dialogs lacks is null.
struct CalendarFiles {
    ICalendarImport* Import = nullptr;
    ICalendarExport* Export = nullptr;
    IFileDialogs* Dialogs = nullptr;
    ICalendarExport* Backup = nullptr; // the same way out, whole
    ICalendarExport* Print = nullptr;  // and on paper
};

} // namespace tavo
