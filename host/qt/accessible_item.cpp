// What is told of an item.
#include "host/qt/accessible_item.h"

#include "host/qt/accessible_runs.h"
#include "host/qt/accessible_widget.h"

namespace tavo::qt {
namespace {

QAccessible::Role ToRole(const std::vector<PaintedItem>& items, std::size_t index) {
    switch (items[index].Role) {
    case PaintedRole::Text:
        return QAccessible::StaticText;
    case PaintedRole::Header:
        return QAccessible::Heading;
    case PaintedRole::Row:
        return IsFormRow(items, index) ? QAccessible::StaticText : QAccessible::ListItem;
    case PaintedRole::Cell:
        // A value of a form is pressed to be changed.
        return LabelOf(items, index).isEmpty() ? QAccessible::Cell : QAccessible::Button;
    case PaintedRole::Tab:
        return QAccessible::PageTab;
    case PaintedRole::Button:
        return QAccessible::Button;
    case PaintedRole::Picture:
        return QAccessible::Graphic;
    }
    return QAccessible::StaticText;
}

bool CanBeSelected(QAccessible::Role role) {
    return role == QAccessible::ListItem || role == QAccessible::Cell || role == QAccessible::PageTab;
}

} // namespace

QAccessibleInterface* ItemInterface::parent() const {
    WidgetInterface* const widget = WidgetInterface::Of(Widget);
    return widget == nullptr ? nullptr : widget->ParentOfItem(Index);
}

QString ItemInterface::text(QAccessible::Text kind) const {
    const PaintedItem* item = Item();
    if (item == nullptr) {
        return {};
    }
    if (kind == QAccessible::Description) {
        return QString::fromStdU16String(item->Description);
    }
    if (kind != QAccessible::Name) {
        return {};
    }
    const QString label = LabelOf(Widget->Items(), Index);
    const QString name = QString::fromStdU16String(item->Name);
    return label.isEmpty() ? name : label + QStringLiteral(": ") + name;
}

QRect ItemInterface::rect() const {
    const PaintedItem* item = Item();
    if (item == nullptr) {
        return {};
    }
    const Rect& widget = Widget->Bounds();
    const Rect screen = Rect::FromSize(widget.Left + item->Bounds.Left, widget.Top + item->Bounds.Top,
                                       item->Bounds.Width(), item->Bounds.Height());
    return Widget->ToolkitPlace(screen).translated(Widget->window()->mapToGlobal(QPoint()));
}

QAccessible::Role ItemInterface::role() const {
    return Item() == nullptr ? QAccessible::NoRole : ToRole(Widget->Items(), Index);
}

QAccessible::State ItemInterface::state() const {
    QAccessible::State state;
    const PaintedItem* item = Item();
    if (item == nullptr) {
        state.invalid = true;
        return state;
    }
    const bool canBeSelected = CanBeSelected(role());
    state.disabled = !item->Enabled || !Widget->TakesInput();
    state.selected = item->Selected;
    state.selectable = canBeSelected;
    state.focusable = canBeSelected;
    state.focused = canBeSelected && item->Selected && Widget->HasKeys();
    state.pressed = item->Pressed;
    state.invisible = !Widget->isVisible() || (item->Name.empty() && IsFormRow(Widget->Items(), Index));
    return state;
}

void* ItemInterface::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ActionInterface) {
        return static_cast<QAccessibleActionInterface*>(this);
    }
    const bool isOfTable = type == QAccessible::TableCellInterface && role() == QAccessible::Cell;
    return isOfTable ? static_cast<QAccessibleTableCellInterface*>(this) : nullptr;
}

QStringList ItemInterface::actionNames() const {
    const PaintedItem* item = Item();
    const bool canPress = item != nullptr && item->Role != PaintedRole::Text && item->Role != PaintedRole::Picture;
    return canPress ? QStringList(pressAction()) : QStringList();
}

void ItemInterface::doAction(const QString& action) {
    if (action == pressAction() && Item() != nullptr && Widget->TakesInput()) {
        Widget->TapItem(Index);
    }
}

int ItemInterface::columnIndex() const {
    return Item() == nullptr ? -1 : Item()->Id % kTableColumns;
}

int ItemInterface::rowIndex() const {
    return Item() == nullptr ? -1 : Item()->Id / kTableColumns;
}

} // namespace tavo::qt
