// Opening the editor on the memo buffer.
#include "app/ink_note_editor.h"

#include "memo/ink_memo_view.h"

namespace tavo {

int InkNoteEditor::EditInkNote() {
    CInkMemoView editor(Pump, State);
    return editor.DoModal();
}

} // namespace tavo
