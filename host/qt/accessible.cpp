// What the toolkit asks for when assistive technology asks it.
#include "host/qt/accessible.h"

#include "host/qt/accessible_widget.h"
#include "host/qt/message_box.h"

#include <QAccessibleWidget>

namespace tavo::qt {
namespace {

QAccessible::Role ToRole(const DeviceWidget& widget) {
    if (dynamic_cast<const MessageBox*>(&widget) != nullptr) {
        return QAccessible::AlertMessage;
    }
    return widget.IsDialog() ? QAccessible::Dialog : QAccessible::Pane;
}

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    if (auto* widget = dynamic_cast<DeviceWidget*>(object); widget != nullptr) {
        return new WidgetInterface(*widget, ToRole(*widget));
    }
    // What only holds others is a panel, which is what people can make something of.
    const bool isPlain = object != nullptr && object->metaObject() == &QWidget::staticMetaObject;
    if (!isPlain) {
        return nullptr;
    }
    auto* plain = static_cast<QWidget*>(object);
    return new QAccessibleWidget(plain, plain->isWindow() ? QAccessible::Window : QAccessible::Pane);
}

} // namespace

void DescribePaintedWidgets() {
    QAccessible::installFactory(MakeInterface);
}

} // namespace tavo::qt
