// By comparing item with item.
#include "host/qt/accessible_changes.h"

#include "host/qt/accessible_widget.h"

#include <QAccessible>

#include <algorithm>

namespace tavo::qt {
namespace {

bool IsSameItem(const PaintedItem& one, const PaintedItem& other) {
    return one.Role == other.Role && one.Id == other.Id && one.Bounds == other.Bounds;
}

bool CanBeSelected(const PaintedItem& item) {
    return item.Role == PaintedRole::Row || item.Role == PaintedRole::Cell || item.Role == PaintedRole::Tab;
}

void Tell(QAccessibleInterface* about, QAccessible::Event what) {
    QAccessibleEvent event(about, what);
    QAccessible::updateAccessibility(&event);
}

void TellSelected(QAccessibleInterface* item) {
    QAccessible::State selected;
    selected.selected = true;
    QAccessibleStateChangeEvent changed(item, selected);
    QAccessible::updateAccessibility(&changed);
    Tell(item, QAccessible::Selection);
}

} // namespace

std::vector<ItemNews> FindNews(const std::vector<PaintedItem>& before, const std::vector<PaintedItem>& now, Keys keys) {
    std::vector<ItemNews> news;
    if (!std::equal(now.begin(), now.end(), before.begin(), before.end(), IsSameItem)) {
        news.push_back({NewsKind::Reordered, 0});
    }
    for (std::size_t index = 0; index < now.size(); ++index) {
        const PaintedItem& item = now[index];
        const bool wasThere = index < before.size() && IsSameItem(item, before[index]);
        const bool isRenamed = wasThere && item.Name != before[index].Name;
        if (isRenamed) {
            news.push_back({NewsKind::Renamed, index});
        }
        // Another day, or another appointment, in the same place is another one.
        const bool wasSelected = wasThere && !isRenamed && before[index].Selected;
        if (!item.Selected || wasSelected || !CanBeSelected(item)) {
            continue;
        }
        news.push_back({NewsKind::Selected, index});
        if (keys == Keys::Here && item.Role != PaintedRole::Tab) {
            news.push_back({NewsKind::GotKeys, index});
        }
    }
    return news;
}

void TellChanges(DeviceWidget& widget, const std::vector<PaintedItem>& before) {
    WidgetInterface* const described = QAccessible::isActive() ? WidgetInterface::Of(&widget) : nullptr;
    if (described == nullptr) {
        return;
    }
    if (before.empty() && widget.IsDialog() && widget.HasKeys()) {
        Tell(described, QAccessible::Focus); // it has just opened
    }
    for (const ItemNews& news : FindNews(before, widget.Items(), widget.HasKeys() ? Keys::Here : Keys::Elsewhere)) {
        switch (news.Kind) {
        case NewsKind::Reordered:
            Tell(described, QAccessible::ObjectReorder);
            break;
        case NewsKind::Renamed:
            Tell(described->ItemAt(news.Item), QAccessible::NameChanged);
            break;
        case NewsKind::Selected:
            TellSelected(described->ItemAt(news.Item));
            break;
        case NewsKind::GotKeys:
            Tell(described->ParentOfItem(news.Item), QAccessible::ActiveDescendantChanged);
            Tell(described->ItemAt(news.Item), QAccessible::Focus);
            break;
        }
    }
}

} // namespace tavo::qt
