// What pickers of dates and times have in common.
#include "host/qt/controls/picker_field.h"

#include "host/shell/picker_input.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace tavo::qt {
namespace {

// A tap chooses a part; there is nothing to select or to drag.
class PickerText final : public QLineEdit {
  public:
    PickerText(QWidget* parent, std::function<void(int)> touched) : QLineEdit(parent), Touched(std::move(touched)) {
        setReadOnly(true);
    }

  protected:
    void mousePressEvent(QMouseEvent* event) override {
        event->accept();
        Touched(cursorPositionAt(event->position().toPoint()));
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }

    void mouseMoveEvent(QMouseEvent* event) override { event->accept(); }

    void mouseReleaseEvent(QMouseEvent* event) override { event->accept(); }

  private:
    std::function<void(int)> Touched;
};

} // namespace

PickerField::PickerField(Device& device, WindowHandle control, QWidget* parent)
    : QAbstractSpinBox(parent), Shared(device), Control(control) {
    setLineEdit(new PickerText(this, [this](int character) { Shared.Controls.Touch(Control, character); }));
    setInputMethodHints(Qt::ImhPreferNumbers | Qt::ImhNoPredictiveText);
    setAttribute(Qt::WA_InputMethodEnabled);
}

// What has the keys is selected while the picker has them.
void PickerField::Show(const shell::WindowRecord& picker) {
    const shell::PickerFace face = shell::FaceOf(picker);
    const QSignalBlocker quiet(lineEdit());
    if (const QString text = QString::fromStdU16String(face.Text); lineEdit()->text() != text) {
        lineEdit()->setText(text);
    }
    if (Shared.State.Focus == Control) {
        const shell::PickerFace::Span span = face.Parts[static_cast<std::size_t>(picker.Control->Entry.Part)];
        lineEdit()->setSelection(span.First, span.Last - span.First);
    } else {
        lineEdit()->deselect();
        lineEdit()->setCursorPosition(0);
    }
    lineEdit()->update();
}

void PickerField::ShowNow() {
    if (const shell::WindowRecord* record = Shared.State.Tree.Find(Control); record != nullptr) {
        Show(*record);
    }
}

// The shell had the key, and has no use for it.
void PickerField::keyPressEvent(QKeyEvent* event) {
    event->ignore();
}

// A touch keyboard's characters come without keys.
void PickerField::inputMethodEvent(QInputMethodEvent* event) {
    for (const QChar unit : event->commitString()) {
        static_cast<void>(Shared.Keys.Character(unit.unicode())); // taken here, or of no use
    }
    event->accept();
}

QVariant PickerField::inputMethodQuery(Qt::InputMethodQuery query) const {
    return query == Qt::ImEnabled ? QVariant(isEnabled()) : QAbstractSpinBox::inputMethodQuery(query);
}

void PickerField::focusInEvent(QFocusEvent* event) {
    QAbstractSpinBox::focusInEvent(event);
    ShowNow();
}

void PickerField::focusOutEvent(QFocusEvent* event) {
    QAbstractSpinBox::focusOutEvent(event);
    ShowNow();
}

} // namespace tavo::qt
