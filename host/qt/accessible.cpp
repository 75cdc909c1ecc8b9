// Painted items as accessible objects.
#include "host/qt/accessible.h"

#include "host/qt/device_widget.h"
#include "host/qt/message_box.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

#include <vector>

namespace tavo::qt {
namespace {

QAccessible::Role ToRole(PaintedRole role) {
    switch (role) {
    case PaintedRole::Text:
        return QAccessible::StaticText;
    case PaintedRole::Header:
        return QAccessible::Heading;
    case PaintedRole::Row:
        return QAccessible::ListItem;
    case PaintedRole::Cell:
        return QAccessible::Cell;
    case PaintedRole::Tab:
        return QAccessible::PageTab;
    case PaintedRole::Button:
        return QAccessible::Button;
    case PaintedRole::Picture:
        return QAccessible::Graphic;
    }
    return QAccessible::StaticText;
}

// One item, by its place among the items declared last.
class ItemInterface final : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    ItemInterface(DeviceWidget& widget, std::size_t index) : Widget(&widget), Index(index) {}

    bool isValid() const override { return Item() != nullptr; }

    QObject* object() const override { return nullptr; }

    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(Widget); }

    QAccessibleInterface* child(int) const override { return nullptr; }

    int childCount() const override { return 0; }

    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QString text(QAccessible::Text kind) const override {
        const PaintedItem* item = Item();
        return kind == QAccessible::Name && item != nullptr ? QString::fromStdU16String(item->Name) : QString();
    }

    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override {
        const PaintedItem* item = Item();
        if (item == nullptr) {
            return {};
        }
        const Rect& widget = Widget->Bounds();
        const Rect screen = Rect::FromSize(widget.Left + item->Bounds.Left, widget.Top + item->Bounds.Top,
                                           item->Bounds.Width(), item->Bounds.Height());
        return Widget->ToolkitPlace(screen).translated(Widget->window()->mapToGlobal(QPoint()));
    }

    QAccessible::Role role() const override {
        const PaintedItem* item = Item();
        return item == nullptr ? QAccessible::NoRole : ToRole(item->Role);
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        const PaintedItem* item = Item();
        if (item == nullptr) {
            state.invalid = true;
            return state;
        }
        state.disabled = !item->Enabled || !Widget->TakesInput();
        state.selected = item->Selected;
        state.selectable =
            item->Role == PaintedRole::Row || item->Role == PaintedRole::Cell || item->Role == PaintedRole::Tab;
        state.pressed = item->Pressed;
        state.invisible = !Widget->isVisible();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    QStringList actionNames() const override {
        const PaintedItem* item = Item();
        const bool canPress = item != nullptr && item->Role != PaintedRole::Text && item->Role != PaintedRole::Picture;
        return canPress ? QStringList(pressAction()) : QStringList();
    }

    void doAction(const QString& action) override {
        if (action == pressAction() && Item() != nullptr && Widget->TakesInput()) {
            Widget->TapItem(Index);
        }
    }

    QStringList keyBindingsForAction(const QString&) const override { return {}; }

  private:
    const PaintedItem* Item() const {
        return Widget.isNull() || Index >= Widget->Items().size() ? nullptr : &Widget->Items()[Index];
    }

    QPointer<DeviceWidget> Widget;
    std::size_t Index;
};

// The widget: its items first, then the native controls and windows that lie in it.
class WidgetInterface final : public QAccessibleWidget {
  public:
    WidgetInterface(DeviceWidget& widget, QAccessible::Role role) : QAccessibleWidget(&widget, role) {}

    ~WidgetInterface() override {
        for (const QAccessible::Id id : Ids) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    int childCount() const override { return ItemCount() + QAccessibleWidget::childCount(); }

    QAccessibleInterface* child(int index) const override {
        if (index < 0) {
            return nullptr;
        }
        if (index >= ItemCount()) {
            return QAccessibleWidget::child(index - ItemCount());
        }
        while (static_cast<int>(Ids.size()) <= index) {
            auto* item = new ItemInterface(Widget(), Ids.size());
            // The registry owns it from here on.
            Ids.push_back(QAccessible::registerAccessibleInterface(item)); // NOLINT(clang-analyzer-cplusplus.*)
        }
        return QAccessible::accessibleInterface(Ids[static_cast<std::size_t>(index)]);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        for (int i = 0; i < ItemCount(); ++i) {
            if (this->child(i) == child) {
                return i;
            }
        }
        const int below = QAccessibleWidget::indexOfChild(child);
        return below < 0 ? below : below + ItemCount();
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        for (int i = 0; i < ItemCount(); ++i) {
            if (QAccessibleInterface* item = child(i); item->rect().contains(x, y)) {
                return item;
            }
        }
        return QAccessibleWidget::childAt(x, y);
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? Widget().Title() : QAccessibleWidget::text(kind);
    }

  private:
    DeviceWidget& Widget() const { return static_cast<DeviceWidget&>(*widget()); }

    int ItemCount() const { return static_cast<int>(Widget().Items().size()); }

    mutable std::vector<QAccessible::Id> Ids; // made when first asked for
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    auto* widget = dynamic_cast<DeviceWidget*>(object);
    if (widget == nullptr) {
        return nullptr;
    }
    const bool isBox = dynamic_cast<MessageBox*>(object) != nullptr;
    return new WidgetInterface(*widget, isBox ? QAccessible::AlertMessage : QAccessible::Client);
}

} // namespace

void DescribePaintedWidgets() {
    QAccessible::installFactory(MakeInterface);
}

} // namespace tavo::qt
