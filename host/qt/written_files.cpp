// By what it is to hold.
#include "host/qt/written_files.h"

#include <optional>
#include <utility>

namespace tavo::qt {

void ConnectWritten(HostOptions& options, exchange::CalendarExport& exported, backup::ChosenBackup& backup,
                    PrintJob& printed) {
    options.WantWritten = [&](WrittenFile what, const std::string& path) {
        what == WrittenFile::Backup ? backup.Choose(path) : exported.Choose(path);
    };
    options.WantPrint = [&](std::shared_ptr<QPrinter> printer, const SYSTEMTIME& day) {
        printed.Choose(std::move(printer), day);
    };
    options.FindWritten = [&]() -> std::optional<WrittenFile> {
        if (backup.HasFile()) {
            return WrittenFile::Backup;
        }
        if (printed.HasPrinter()) {
            return WrittenFile::Print;
        }
        return exported.HasFile() ? std::optional(WrittenFile::Export) : std::nullopt;
    };
}

} // namespace tavo::qt
