// Showing the box, and its keys.
#include "host/qt/message_box.h"

#include "host/qt/keyboard.h"

#include <QAccessible>
#include <QKeyEvent>

namespace tavo::qt {

MessageBox::MessageBox(Device& device, QWidget* parent) : ChromeWidget(device, device.Chrome.Box, parent) {
    setFocusPolicy(Qt::StrongFocus);
    hide();
}

void MessageBox::Follow() {
    if (!Shared.Chrome.Box.IsOpen()) {
        hide();
        return;
    }
    Place(kWholeScreen);
    show();
    raise();
    setFocus(Qt::OtherFocusReason);
    update();
    if (QAccessible::isActive()) {
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

bool MessageBox::focusNextPrevChild(bool next) {
    Shared.Chrome.Box.Step(next ? 1 : -1);
    return true;
}

void MessageBox::keyPressEvent(QKeyEvent* event) {
    event->accept();
    Shared.Chrome.Box.TakeKey(ToDeviceKey(event->key()), ToModifiers(event->modifiers()));
}

} // namespace tavo::qt
