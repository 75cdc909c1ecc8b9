// How the edit dialog has an item's ink note changed by hand.
#pragma once

#include "memo/ink_home.h"

namespace tavo {

class IInkNoteEditor {
  public:
    // Lets the person change the ink in the memo buffer, which belongs to `home`: IDOK when the buffer holds the new
    // ink.
    virtual int EditInkNote(const InkHome& home) = 0;

  protected:
    ~IInkNoteEditor() = default;
};

} // namespace tavo
