// The machine's own dialogs for choosing files.
#pragma once

#include <string>

namespace tavo {

// What a file that somebody chose is to hold.
enum class WrittenFile : int { Export, Backup };

// Each returns at once; the answer is a message to the frame. Nothing comes when nothing was chosen.
class IFileDialogs {
  public:
    virtual ~IFileDialogs() = default;

    // Calendar files to be imported: WM_IMPORTFILES.
    virtual void ChooseImport() = 0;
    // Where such a file is to be written, by that name if nobody thinks of another: WM_EXPORTFILE.
    virtual void ChooseWritten(WrittenFile what, const std::u16string& name) = 0;
};

} // namespace tavo
