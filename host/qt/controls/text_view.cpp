// Typed text on its way to the shell and back.
#include "host/qt/controls/text_view.h"

#include <algorithm>

namespace tavo::qt {

void TextView::Connect(QLineEdit& edit) {
    QObject::connect(&edit, &QLineEdit::textEdited, &edit, [this, &edit] { TakeText(edit); });
    QObject::connect(&edit, &QLineEdit::cursorPositionChanged, &edit, [this, &edit] { TakeSelection(edit); });
    QObject::connect(&edit, &QLineEdit::selectionChanged, &edit, [this, &edit] { TakeSelection(edit); });
}

void TextView::TakeText(QLineEdit& edit) {
    Shared.Controls.Edit(Control, edit.text().toStdU16String());
    const shell::WindowRecord* record = Shared.State.Tree.Find(Control);
    if (record == nullptr) {
        return;
    }
    if (record->Text == edit.text().toStdU16String()) {
        TakeSelection(edit);
    } else {
        ShowText(edit, *record); // not all of it was taken
    }
}

void TextView::TakeSelection(QLineEdit& edit) {
    if (Showing) {
        return;
    }
    const bool isSelected = edit.hasSelectedText();
    const int first = isSelected ? edit.selectionStart() : edit.cursorPosition();
    const int last = isSelected ? edit.selectionEnd() : first;
    Shared.Controls.SelectText(Control, first, last);
}

void TextView::ShowText(QLineEdit& edit, const shell::WindowRecord& record) {
    Showing = true;
    edit.setMaxLength(std::min(record.Control->TextLimit, 32767));
    const QString text = QString::fromStdU16String(record.Text);
    if (edit.text() != text) {
        edit.setText(text);
    }
    const int first = record.Control->SelectionFirst;
    const int last = record.Control->SelectionLast;
    if (first != last) {
        if (edit.selectionStart() != first || edit.selectionEnd() != last) {
            edit.setSelection(first, last - first);
        }
    } else if (edit.hasSelectedText() || edit.cursorPosition() != first) {
        edit.deselect();
        edit.setCursorPosition(first);
    }
    Showing = false;
}

} // namespace tavo::qt
