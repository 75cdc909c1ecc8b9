// Dialog templates: what a dialog or page consists of, in dialog units, as plain data.
#pragma once

#include "platform/controls.h"

#include <span>
#include <string_view>

namespace tavo {

struct DialogItem {
    ControlKind Kind = ControlKind::Label;
    int Id = 0;
    std::u16string_view Text;
    Rect Bounds; // dialog units
    bool Visible = true;
    bool StartsGroup = false;
    int PictureOff = 0;
    int PictureOn = 0;
    std::span<const std::u16string_view> ListItems = {};
};

struct DialogTemplate {
    int Id = 0;
    std::u16string_view Title;
    Size Extent; // dialog units
    int FontPoints = 10;
    std::span<const DialogItem> Items = {};
};

// A dialog unit is 1.5 pixels across and 13/8 down, for the 8 and 10 point fonts alike.
constexpr int PixelsAcross(int units) {
    return units * 3 / 2;
}

constexpr int PixelsDown(int units) {
    return units * 13 / 8;
}

constexpr Rect ToPixels(const Rect& units) {
    return {PixelsAcross(units.Left), PixelsDown(units.Top), PixelsAcross(units.Right), PixelsDown(units.Bottom)};
}

} // namespace tavo
