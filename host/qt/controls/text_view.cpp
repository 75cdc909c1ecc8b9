// Typed text on its way to the shell and back.
#include "host/qt/controls/text_view.h"

#include "host/qt/menu_fitting.h"

#include <QMenu>

#include <algorithm>

namespace tavo::qt {

void TextView::Connect(QLineEdit& edit) {
    QObject::connect(&edit, &QLineEdit::textEdited, &edit, [this, &edit] { TakeText(edit); });
    QObject::connect(&edit, &QLineEdit::cursorPositionChanged, &edit, [this, &edit] { TakeSelection(edit); });
    QObject::connect(&edit, &QLineEdit::selectionChanged, &edit, [this, &edit] { TakeSelection(edit); });
    edit.setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(&edit, &QLineEdit::customContextMenuRequested, &edit,
                     [this, &edit](QPoint place) { OpenContextMenu(edit, edit.mapToGlobal(place)); });
}

// The toolkit's own menu, as large as the others and within the device's screen.
void TextView::OpenContextMenu(QLineEdit& edit, QPoint place) {
    QMenu* menu = edit.createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    UseMenuFont(*menu, Shared.Geometry);
    menu->popup(place);
    const QRect screen = Shared.Geometry.ToolkitPixels(kWholeScreen);
    FitToScreen(*menu, screen.translated(edit.window()->mapToGlobal(QPoint())));
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
    // Only where it is another: setting it makes the widget forget what can be undone.
    if (const int limit = std::min(record.Control->TextLimit, 32767); edit.maxLength() != limit) {
        edit.setMaxLength(limit);
    }
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
