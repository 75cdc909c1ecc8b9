// Press, track, release.
#include "framework/drawn_button.h"

#include <utility>

namespace tavo {

bool DrawnButton::TakeDown(Point point) {
    if (!Hit.Contains(point)) {
        return false;
    }
    Pressed = true;
    Tracking = true;
    return true;
}

bool DrawnButton::TakeMove(Point point) {
    if (Tracking) {
        Pressed = Hit.Contains(point);
    }
    return Tracking;
}

bool DrawnButton::TakeUp(Point point) {
    const bool chosen = Tracking && Hit.Contains(point);
    Release();
    return chosen;
}

void DrawnButton::Release() {
    Pressed = false;
    Tracking = false;
}

void DrawnButton::Draw(ISurface& surface) const {
    const int cell = Pressed ? OwnPlace.Width() : 0;
    surface.DrawBitmap(Bitmap, {OwnPlace.Left, OwnPlace.Top},
                       Rect::FromSize(cell, 0, OwnPlace.Width(), OwnPlace.Height()));
}

PaintedItem DrawnButton::Describe(std::u16string name, int id) const {
    PaintedItem item{OwnPlace, PaintedRole::Button, std::move(name), id};
    item.Pressed = Pressed;
    return item;
}

} // namespace tavo
