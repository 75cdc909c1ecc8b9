// The ink editor, as the edit dialog opens it.
#pragma once

#include "edit/ink_note_editor.h"
#include "framework/message_pump.h"
#include "store/program_state.h"

namespace tavo {

class InkNoteEditor : public IInkNoteEditor {
  public:
    InkNoteEditor(CMessagePump& pump, CProgramState& state) : Pump(pump), State(state) {}

    int EditInkNote(const InkHome& home) override;

  private:
    CMessagePump& Pump;
    CProgramState& State;
};

} // namespace tavo
