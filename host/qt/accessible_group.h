// Painted items that belong together as an accessible object.
#pragma once

#include "host/qt/accessible_runs.h"
#include "host/qt/device_widget.h"

#include <QAccessible>
#include <QPointer>

#include <optional>

namespace tavo::qt {

// By the place of its first item. A list or tab list, or a table of seven columns.
class GroupInterface final : public QAccessibleInterface, public QAccessibleTableInterface {
  public:
    GroupInterface(DeviceWidget& widget, std::size_t first) : Widget(&widget), First(first) {}

    bool isValid() const override { return Run().has_value(); }

    QObject* object() const override { return nullptr; }

    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    // That of the heading above it.
    QString text(QAccessible::Text kind) const override;

    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    // As a table.
    QAccessibleInterface* caption() const override { return nullptr; }

    QAccessibleInterface* summary() const override { return nullptr; }

    QAccessibleInterface* cellAt(int row, int column) const override;

    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }

    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override;

    QString rowDescription(int) const override { return {}; }

    int selectedColumnCount() const override { return 0; }

    int selectedRowCount() const override { return 0; }

    int columnCount() const override { return kTableColumns; }

    int rowCount() const override;

    QList<int> selectedColumns() const override { return {}; }

    QList<int> selectedRows() const override { return {}; }

    bool isColumnSelected(int) const override { return false; }

    bool isRowSelected(int) const override { return false; }

    bool selectRow(int) override { return false; }

    bool selectColumn(int) override { return false; }

    bool unselectRow(int) override { return false; }

    bool unselectColumn(int) override { return false; }

    void modelChange(QAccessibleTableModelChangeEvent*) override {}

  private:
    std::optional<ItemRun> Run() const;

    QPointer<DeviceWidget> Widget;
    std::size_t First;
};

} // namespace tavo::qt
