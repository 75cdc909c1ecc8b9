// The commands of `tavo`. Each gives the exit status.
#pragma once

#include "tools/arguments.h"
#include "tools/backup_options.h"
#include "tools/print_options.h"

namespace tavo::tools {

int RunAdd(const ItemOptions& options);
int RunEdit(const ItemOptions& options);
int RunDelete(const NumbersOptions& options);
int RunRestoreItems(const NumbersOptions& options);
int RunShow(const NumbersOptions& options);
int RunFind(const FindOptions& options);
int RunMonth(const AgendaOptions& options);
int RunHistory(const HistoryOptions& options);
int RunUndo(const CheckOptions& options);
int RunAgenda(const AgendaOptions& options);
int RunImport(const ImportOptions& options);
int RunExport(const ExportOptions& options);
int RunCheck(const CheckOptions& options);
int RunBackup(const BackupOptions& options);
int RunRestore(const BackupOptions& options);
int RunReminders(const RemindersOptions& options);
int RunMemo(const MemoOptions& options);
int RunPrint(const PrintOptions& options);

} // namespace tavo::tools
