// The machine's own dialogs for choosing files.
#pragma once

#include "platform/system_time.h"

#include <string>

namespace tavo {

// What a file that somebody chose is to hold.
enum class WrittenFile : int { Export, Backup, Print };

// Each returns at once; the answer is a message to the frame. Nothing comes when nothing was chosen.
class IFileDialogs {
  public:
    virtual ~IFileDialogs() = default;

    // Calendar files to be imported: WM_IMPORTFILES.
    virtual void ChooseImport() = 0;
    // Where such a file is to be written, by that name if nobody thinks of another: WM_EXPORTFILE.
    virtual void ChooseWritten(WrittenFile what, const std::u16string& name) = 0;
    // On which printer, or into which file, the month of this day is to be printed: WM_EXPORTFILE.
    virtual void ChoosePrinter(const SYSTEMTIME& day) = 0;
};

} // namespace tavo
