// One painted item as an accessible object.
#pragma once

#include "host/qt/device_widget.h"

#include <QAccessible>
#include <QPointer>

#include <cstddef>

namespace tavo::qt {

// By its place among the items declared last.
class ItemInterface final : public QAccessibleInterface,
                            public QAccessibleActionInterface,
                            public QAccessibleTableCellInterface {
  public:
    ItemInterface(DeviceWidget& widget, std::size_t index) : Widget(&widget), Index(index) {}

    bool isValid() const override { return Item() != nullptr; }

    QObject* object() const override { return nullptr; }

    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    QAccessibleInterface* parent() const override;

    QAccessibleInterface* child(int) const override { return nullptr; }

    int childCount() const override { return 0; }

    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QString text(QAccessible::Text kind) const override;

    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& action) override;

    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    // Of a cell of a table.
    bool isSelected() const override { return state().selected; }

    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }

    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }

    int columnIndex() const override;
    int rowIndex() const override;

    int columnExtent() const override { return 1; }

    int rowExtent() const override { return 1; }

    QAccessibleInterface* table() const override { return parent(); }

  private:
    const PaintedItem* Item() const {
        return Widget.isNull() || Index >= Widget->Items().size() ? nullptr : &Widget->Items()[Index];
    }

    QPointer<DeviceWidget> Widget;
    std::size_t Index;
};

} // namespace tavo::qt
