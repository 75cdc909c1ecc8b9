// Tells assistive technology what has changed on the painted screen.
#pragma once

#include "host/qt/device_widget.h"

#include <cstddef>
#include <vector>

namespace tavo::qt {

enum class NewsKind {
    Reordered, // other items than before; of no item
    Renamed,
    Selected,
    GotKeys // selected, and what is typed concerns it
};

struct ItemNews {
    NewsKind Kind = NewsKind::Reordered;
    std::size_t Item = 0;

    friend bool operator==(const ItemNews&, const ItemNews&) = default;
};

enum class Keys { Here, Elsewhere };

// What there is to be told about items that were shown differently before.
std::vector<ItemNews> FindNews(const std::vector<PaintedItem>& before, const std::vector<PaintedItem>& now, Keys keys);

// Tells it, of a widget that shows its items now. Nothing while nobody listens.
void TellChanges(DeviceWidget& widget, const std::vector<PaintedItem>& before);

} // namespace tavo::qt
