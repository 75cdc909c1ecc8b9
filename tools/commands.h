// The commands of `tavo`. Each gives the exit status.
#pragma once

#include "tools/arguments.h"
#include "tools/backup_options.h"
#include "tools/item_change.h"

namespace tavo::tools {

int RunAdd(const ItemOptions& options, const ItemPlan& plan);
int RunAgenda(const AgendaOptions& options);
int RunImport(const ImportOptions& options);
int RunExport(const ExportOptions& options);
int RunCheck();
int RunBackup(const BackupOptions& options);
int RunRestore(const BackupOptions& options);
int RunReminders(const RemindersOptions& options);
int RunMemo(const MemoOptions& options);

} // namespace tavo::tools
