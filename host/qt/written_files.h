// What becomes of a file, or a printer, that was chosen.
#pragma once

#include "host/backup/chosen_backup.h"
#include "host/exchange/calendar_export.h"
#include "host/qt/host.h"
#include "host/qt/print_job.h"

namespace tavo::qt {

// Each gets what was chosen for it, and the program is told of it. All three must outlive the host.
void ConnectWritten(HostOptions& options, exchange::CalendarExport& exported, backup::ChosenBackup& backup,
                    PrintJob& printed);

} // namespace tavo::qt
