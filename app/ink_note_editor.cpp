// Opening the editor on the memo buffer.
#include "app/ink_note_editor.h"

#include "memo/ink_memo_view.h"

namespace tavo {

int InkNoteEditor::EditInkNote(const InkHome& home) {
    CInkMemoView editor(Pump, State);
    editor.Home = home;
    return editor.DoModal();
}

} // namespace tavo
