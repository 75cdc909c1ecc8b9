// Edits.
#include "host/qt/controls/edit_view.h"

#include <QRegularExpressionValidator>

namespace tavo::qt {

EditView::EditView(Device& device, const shell::WindowRecord& record, QWidget* parent)
    : ControlView(device, record.Handle), Text(device, record.Handle), Edit(std::make_unique<QLineEdit>(parent)) {
    if (record.Control->Kind == ControlKind::NumberEdit) {
        Edit->setAlignment(Qt::AlignRight);
        Edit->setInputMethodHints(Qt::ImhDigitsOnly);
        Edit->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), Edit.get()));
    }
    Text.Connect(*Edit);
}

} // namespace tavo::qt
