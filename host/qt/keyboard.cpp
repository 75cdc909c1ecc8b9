// Translation and routing of keys.
#include "host/qt/keyboard.h"

#include "platform/typing.h"

#include <QCoreApplication>
#include <QWidget>

namespace tavo::qt {
namespace {

bool IsPrintable(const QKeyEvent& event) {
    const QList<uint> points = event.text().toUcs4(); // an emoji is one of them, though two units
    return !points.isEmpty() && QChar::isPrint(points.front());
}

} // namespace

int ToDeviceKey(int key) {
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) {
        return key;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) {
        return VK_F1 + (key - Qt::Key_F1);
    }
    switch (key) {
    case Qt::Key_Backspace:
        return VK_BACK;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return VK_TAB;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return VK_RETURN;
    case Qt::Key_Escape:
        return VK_ESCAPE;
    case Qt::Key_Space:
        return VK_SPACE;
    case Qt::Key_PageUp:
        return VK_PRIOR;
    case Qt::Key_PageDown:
        return VK_NEXT;
    case Qt::Key_End:
        return VK_END;
    case Qt::Key_Home:
        return VK_HOME;
    case Qt::Key_Left:
        return VK_LEFT;
    case Qt::Key_Up:
        return VK_UP;
    case Qt::Key_Right:
        return VK_RIGHT;
    case Qt::Key_Down:
        return VK_DOWN;
    case Qt::Key_Delete:
        return VK_DELETE;
    case Qt::Key_Menu:
        return VK_APPS;
    default:
        return 0;
    }
}

int ToModifiers(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? kModifierShift : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? kModifierControl : 0) |
           (modifiers.testFlag(Qt::AltModifier) ? kModifierAlt : 0);
}

bool Keyboard::TakeBarKey(const QKeyEvent& event) {
    AltAlone = event.key() == Qt::Key_Alt;
    if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::NoModifier) {
        return Shared.Navigation.OpenBarMenu(0);
    }
    if (event.key() == Qt::Key_Q && event.modifiers() == Qt::ControlModifier) {
        Shared.Navigation.RequestQuit();
        return true;
    }
    return false;
}

void Keyboard::Press(WindowHandle from, QKeyEvent& event) {
    if (Delivering) { // the control has no use for it
        event.ignore();
        return;
    }
    event.accept();
    Down.insert(event.key());
    Shared.KeyWasLast = true;
    if (TakeBarKey(event)) {
        return;
    }
    const bool isMenuKey = event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
    const int key = isMenuKey ? VK_APPS : ToDeviceKey(event.key());
    const int modifiers = isMenuKey ? 0 : ToModifiers(event.modifiers());
    WindowHandle control = from;
    if (key != 0) {
        control = Shared.Keys.Down(key, modifiers);
    }
    const bool hasCharacter = IsPrintable(event) && (modifiers & (kModifierControl | kModifierAlt)) == 0;
    if (hasCharacter && (key == 0 || control == WindowHandle::None)) {
        for (const QChar unit : event.text()) {
            control = Shared.Keys.Character(unit.unicode());
        }
    }
    // Some desktops have Return press buttons and open lists; here it means what the program says, on all of them.
    const bool isPrograms = key == VK_RETURN || (key == VK_TAB && LeavesTabToProgram());
    if (control != WindowHandle::None && isPrograms) {
        Shared.Keys.Unused(control, key, modifiers);
    } else if (control != WindowHandle::None) {
        Deliver(control, key, modifiers, event);
    }
}

bool Keyboard::LeavesTabToProgram() const {
    const shell::MenuState& menus = Shared.State.Menus;
    return Shared.State.Tree.TopDialog() != WindowHandle::None && menus.Boxes.empty() && !menus.IsMenuOpen();
}

void Keyboard::Deliver(WindowHandle control, int key, int modifiers, QKeyEvent& event) {
    QWidget* widget = Find(control);
    if (widget == nullptr) {
        return;
    }
    if (QWidget* inner = widget->focusProxy(); inner != nullptr) {
        widget = inner;
    }
    if (!widget->hasFocus()) {
        // A tap beside it may have taken the toolkit's focus and not the shell's; the key's release follows the former.
        widget->setFocus(Qt::OtherFocusReason);
    }
    Delivering = true;
    QKeyEvent copy(event.type(), event.key(), event.modifiers(), event.nativeScanCode(), event.nativeVirtualKey(),
                   event.nativeModifiers(), event.text(), event.isAutoRepeat(), static_cast<quint16>(event.count()));
    copy.setAccepted(true);
    QCoreApplication::sendEvent(widget, &copy);
    Delivering = false;
    if (!copy.isAccepted() && key != 0) {
        Shared.Keys.Unused(control, key, modifiers);
    }
}

void Keyboard::Release(QKeyEvent& event) {
    event.accept();
    if (event.isAutoRepeat() || Down.erase(event.key()) == 0) {
        return;
    }
    if (event.key() == Qt::Key_Alt && AltAlone) {
        AltAlone = false;
        static_cast<void>(Shared.Navigation.OpenBarMenu(0));
        return;
    }
    if (const int key = ToDeviceKey(event.key()); key != 0) {
        Shared.Keys.Up(key, ToModifiers(event.modifiers()));
    }
}

} // namespace tavo::qt
