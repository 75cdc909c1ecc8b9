// The machine's own dialogs for choosing files.
#pragma once

#include <string>

namespace tavo {

// Each returns at once; the answer is a message to the frame. Nothing comes when nothing was chosen.
class IFileDialogs {
  public:
    virtual ~IFileDialogs() = default;

    // Calendar files to be imported: WM_IMPORTFILES.
    virtual void ChooseImport() = 0;
    // Where a calendar file is to be written, by that name if nobody thinks of another: WM_EXPORTFILE.
    virtual void ChooseExport(const std::u16string& name) = 0;
};

} // namespace tavo
