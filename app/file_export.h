// The calendar into a file that somebody chose.
#pragma once

#include "platform/calendar_export.h"
#include "platform/file_dialogs.h"
#include "store/program_state.h"

namespace tavo {

// Says what others will not understand of it and asks, writes, and tells what came of it.
void ExportCalendarFile(CProgramState& state, ICalendarExport& file, WrittenFile what = WrittenFile::Export);

} // namespace tavo
