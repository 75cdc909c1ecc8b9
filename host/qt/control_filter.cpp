// What reaches the native controls.
#include "host/qt/control_filter.h"

#include "host/qt/keyboard.h"

#include <QMouseEvent>
#include <QWidget>

namespace tavo::qt {
namespace {

constexpr const char* kControlProperty = "tavoControl";

} // namespace

void ControlFilter::Watch(WindowHandle control, QWidget& widget) {
    QList<QWidget*> parts = widget.findChildren<QWidget*>();
    parts.append(&widget);
    for (QWidget* part : parts) {
        if (part->window() != widget.window()) {
            continue; // in a list of its own, which has its keys to itself
        }
        part->setProperty(kControlProperty, static_cast<unsigned>(control));
        part->installEventFilter(this);
    }
}

bool ControlFilter::TakePress(WindowHandle control, QWidget& widget, QPointF position) {
    const Point screen = Shared.Geometry.ToLogical(widget.mapTo(widget.window(), position));
    static_cast<void>(Shared.Stylus.Down(screen));
    if (!Shared.State.TakesInput(control) || Shared.State.Menus.IsMenuOpen()) {
        return true;
    }
    Shared.Controls.Focus(control);
    return false;
}

// Turning the wheel over a list or picker must not change it by accident.
bool ControlFilter::TakeWheel(WindowHandle control) {
    const shell::ControlState* state = Shared.State.Tree.FindControl(control);
    return !Shared.State.TakesInput(control) || state == nullptr ||
           (state->Kind != ControlKind::ScrollBar && state->Kind != ControlKind::Ink);
}

// Only a line of text has one that does not wait for its own end.
bool ControlFilter::TakeContextMenu(WindowHandle control) {
    const shell::ControlState* state = Shared.State.Tree.FindControl(control);
    return !Shared.State.TakesInput(control) || state == nullptr || !shell::IsTextControl(state->Kind);
}

bool ControlFilter::eventFilter(QObject* object, QEvent* event) {
    const auto control = static_cast<WindowHandle>(object->property(kControlProperty).toUInt());
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr || control == WindowHandle::None) {
        return false;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return TakePress(control, *widget, static_cast<QMouseEvent*>(event)->position());
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        return !Shared.State.TakesInput(control);
    case QEvent::ContextMenu:
        return TakeContextMenu(control);
    case QEvent::Wheel:
        return TakeWheel(control);
    case QEvent::KeyPress:
        if (Keys.IsDelivering()) {
            return false;
        }
        Keys.Press(control, *static_cast<QKeyEvent*>(event));
        return true;
    case QEvent::KeyRelease:
        Keys.Release(*static_cast<QKeyEvent*>(event));
        return false;
    case QEvent::FocusIn:
        if (!Paused && Shared.State.Focus != control) {
            Shared.Controls.Focus(control); // reached with Tab
        }
        return false;
    default:
        return false;
    }
}

} // namespace tavo::qt
