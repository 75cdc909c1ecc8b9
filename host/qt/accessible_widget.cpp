// Items, groups, and then what the toolkit knows of by itself.
#include "host/qt/accessible_widget.h"

#include "host/qt/accessible_group.h"
#include "host/qt/accessible_item.h"

#include <algorithm>

namespace tavo::qt {
namespace {

// The registry owns it from here on.
template <class Interface>
QAccessibleInterface* Take(std::map<std::size_t, QAccessible::Id>& made, DeviceWidget& widget, std::size_t place) {
    auto found = made.find(place);
    if (found == made.end()) {
        // NOLINTBEGIN(clang-analyzer-cplusplus.*)
        auto* fresh = new Interface(widget, place);
        found = made.emplace(place, QAccessible::registerAccessibleInterface(fresh)).first;
        // NOLINTEND(clang-analyzer-cplusplus.*)
    }
    return QAccessible::accessibleInterface(found->second);
}

} // namespace

WidgetInterface::~WidgetInterface() {
    for (const auto& [place, id] : Items) {
        QAccessible::deleteAccessibleInterface(id);
    }
    for (const auto& [place, id] : Groups) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

WidgetInterface* WidgetInterface::Of(DeviceWidget* widget) {
    return widget == nullptr ? nullptr : dynamic_cast<WidgetInterface*>(QAccessible::queryAccessibleInterface(widget));
}

QAccessibleInterface* WidgetInterface::ItemAt(std::size_t index) const {
    return Take<ItemInterface>(Items, Widget(), index);
}

QAccessibleInterface* WidgetInterface::GroupAt(std::size_t first) const {
    return Take<GroupInterface>(Groups, Widget(), first);
}

QAccessibleInterface* WidgetInterface::ParentOfItem(std::size_t index) {
    for (const ItemRun& run : Runs()) {
        if (run.Holds(index) && run.Kind != RunKind::Single) {
            return GroupAt(run.First);
        }
    }
    return this;
}

int WidgetInterface::childCount() const {
    return static_cast<int>(Runs().size()) + QAccessibleWidget::childCount();
}

QAccessibleInterface* WidgetInterface::child(int index) const {
    const std::vector<ItemRun> runs = Runs();
    const int ours = static_cast<int>(runs.size());
    if (index < 0) {
        return nullptr;
    }
    if (index >= ours) {
        return QAccessibleWidget::child(index - ours);
    }
    const ItemRun& run = runs[static_cast<std::size_t>(index)];
    return run.Kind == RunKind::Single ? ItemAt(run.First) : GroupAt(run.First);
}

int WidgetInterface::indexOfChild(const QAccessibleInterface* child) const {
    const int ours = static_cast<int>(Runs().size());
    for (int i = 0; i < ours; ++i) {
        if (this->child(i) == child) {
            return i;
        }
    }
    const int below = QAccessibleWidget::indexOfChild(child);
    return below < 0 ? below : below + ours;
}

QAccessibleInterface* WidgetInterface::childAt(int x, int y) const {
    const int ours = static_cast<int>(Runs().size());
    for (int i = 0; i < ours; ++i) {
        if (QAccessibleInterface* item = child(i); item->rect().contains(x, y)) {
            return item;
        }
    }
    return QAccessibleWidget::childAt(x, y);
}

QString WidgetInterface::text(QAccessible::Text kind) const {
    return kind == QAccessible::Name ? Widget().Title() : QAccessibleWidget::text(kind);
}

} // namespace tavo::qt
