// What is told of a group.
#include "host/qt/accessible_group.h"

#include "host/qt/accessible_widget.h"

#include <algorithm>

namespace tavo::qt {

std::optional<ItemRun> GroupInterface::Run() const {
    if (Widget.isNull()) {
        return std::nullopt;
    }
    const std::vector<ItemRun> runs = FindRuns(Widget->Items());
    const auto found = std::find_if(runs.begin(), runs.end(), [this](const ItemRun& run) {
        return run.First == First && run.Kind != RunKind::Single;
    });
    return found == runs.end() ? std::nullopt : std::optional(*found);
}

QAccessibleInterface* GroupInterface::parent() const {
    return Widget.isNull() ? nullptr : QAccessible::queryAccessibleInterface(Widget);
}

int GroupInterface::childCount() const {
    const std::optional<ItemRun> run = Run();
    return run ? static_cast<int>(run->Count) : 0;
}

QAccessibleInterface* GroupInterface::child(int index) const {
    WidgetInterface* const widget = WidgetInterface::Of(Widget);
    const bool isThere = widget != nullptr && index >= 0 && index < childCount();
    return isThere ? widget->ItemAt(First + static_cast<std::size_t>(index)) : nullptr;
}

int GroupInterface::indexOfChild(const QAccessibleInterface* child) const {
    for (int index = 0; index < childCount(); ++index) {
        if (this->child(index) == child) {
            return index;
        }
    }
    return -1;
}

QAccessibleInterface* GroupInterface::childAt(int x, int y) const {
    for (int index = 0; index < childCount(); ++index) {
        if (QAccessibleInterface* item = child(index); item->rect().contains(x, y)) {
            return item;
        }
    }
    return nullptr;
}

QString GroupInterface::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name || !Run()) {
        return {};
    }
    const std::vector<PaintedItem>& items = Widget->Items();
    const auto heading = std::find_if(items.begin(), items.end(),
                                      [](const PaintedItem& item) { return item.Role == PaintedRole::Header; });
    return heading == items.end() || Run()->Kind == RunKind::Tabs ? Widget->Title()
                                                                  : QString::fromStdU16String(heading->Name);
}

QRect GroupInterface::rect() const {
    QRect all;
    for (int index = 0; index < childCount(); ++index) {
        all |= child(index)->rect();
    }
    return all;
}

QAccessible::Role GroupInterface::role() const {
    const std::optional<ItemRun> run = Run();
    if (!run) {
        return QAccessible::NoRole;
    }
    return run->Kind == RunKind::Table  ? QAccessible::Table
           : run->Kind == RunKind::Tabs ? QAccessible::PageTabList
                                        : QAccessible::List;
}

QAccessible::State GroupInterface::state() const {
    QAccessible::State state;
    state.invalid = !Run();
    state.disabled = !state.invalid && !Widget->TakesInput();
    state.invisible = !state.invalid && !Widget->isVisible();
    return state;
}

void* GroupInterface::interface_cast(QAccessible::InterfaceType type) {
    const bool isTable = type == QAccessible::TableInterface && role() == QAccessible::Table;
    return isTable ? static_cast<QAccessibleTableInterface*>(this) : nullptr;
}

QAccessibleInterface* GroupInterface::cellAt(int row, int column) const {
    for (int index = 0; index < childCount(); ++index) {
        const PaintedItem& item = Widget->Items()[First + static_cast<std::size_t>(index)];
        if (item.Id == row * kTableColumns + column) {
            return child(index);
        }
    }
    return nullptr;
}

QList<QAccessibleInterface*> GroupInterface::selectedCells() const {
    QList<QAccessibleInterface*> selected;
    for (int index = 0; index < childCount(); ++index) {
        if (QAccessibleInterface* item = child(index); item->state().selected) {
            selected.append(item);
        }
    }
    return selected;
}

// The calendar's weeks begin on Sunday.
QString GroupInterface::columnDescription(int column) const {
    constexpr const char* days[kTableColumns] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                 "Thursday", "Friday", "Saturday"};
    return column >= 0 && column < kTableColumns ? QString::fromLatin1(days[column]) : QString();
}

int GroupInterface::rowCount() const {
    int rows = 0;
    for (int index = 0; index < childCount(); ++index) {
        rows = std::max(rows, Widget->Items()[First + static_cast<std::size_t>(index)].Id / kTableColumns + 1);
    }
    return rows;
}

} // namespace tavo::qt
