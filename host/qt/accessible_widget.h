// A painted widget as an accessible object, with what lies in it.
#pragma once

#include "host/qt/accessible_runs.h"
#include "host/qt/device_widget.h"

#include <QAccessibleWidget>

#include <map>
#include <vector>

namespace tavo::qt {

// Its items first, those that belong together as groups, then the native controls and windows that lie in it.
class WidgetInterface final : public QAccessibleWidget {
  public:
    WidgetInterface(DeviceWidget& widget, QAccessible::Role role) : QAccessibleWidget(&widget, role) {}

    ~WidgetInterface() override;

    // Of a widget that has one; null for others.
    static WidgetInterface* Of(DeviceWidget* widget);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QString text(QAccessible::Text kind) const override;

    // Of the item in this place, and of the group that begins with it.
    QAccessibleInterface* ItemAt(std::size_t index) const;
    QAccessibleInterface* GroupAt(std::size_t first) const;
    // The group in which the item lies, or the widget.
    QAccessibleInterface* ParentOfItem(std::size_t index);

  private:
    DeviceWidget& Widget() const { return static_cast<DeviceWidget&>(*widget()); }

    std::vector<ItemRun> Runs() const { return FindRuns(Widget().Items()); }

    // Made when first asked for.
    mutable std::map<std::size_t, QAccessible::Id> Items;
    mutable std::map<std::size_t, QAccessible::Id> Groups;
};

} // namespace tavo::qt
