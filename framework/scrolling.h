// What a scroll bar's message asks for.
#pragma once

#include "platform/messages.h"

#include <optional>

namespace tavo {

// The first row that a list of rows is to show, where `top` is now; it may lie outside the list. Nothing when the
// message asks for no other place.
constexpr std::optional<int> ScrolledTop(const Message& scroll, int top) {
    constexpr int pageOfRows = 5;
    switch (scroll.Code) {
    case SB_LINEUP:
        return top - 1;
    case SB_LINEDOWN:
        return top + 1;
    case SB_PAGEUP:
        return top - pageOfRows;
    case SB_PAGEDOWN:
        return top + pageOfRows;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        return scroll.Value;
    default:
        return std::nullopt;
    }
}

} // namespace tavo
