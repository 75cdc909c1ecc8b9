// How the edit dialog has an item's ink note changed by hand.
#pragma once

namespace tavo {

class IInkNoteEditor {
  public:
    // Lets the person change the ink in the memo buffer, which has no name: IDOK when the buffer holds the new ink.
    virtual int EditInkNote() = 0;

  protected:
    ~IInkNoteEditor() = default;
};

} // namespace tavo
