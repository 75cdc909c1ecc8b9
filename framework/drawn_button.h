// A button that a window draws itself: pressed where the stylus goes down on it, chosen where it is lifted from it.
#pragma once

#include "platform/drawing.h"

#include <string>

namespace tavo {

class DrawnButton {
  public:
    // Drawn at `place` from a bitmap whose two cells stand side by side, the pressed one on the right; the stylus means
    // it within `hit`. Its window keeps the state and outlives it: whether the button is drawn pressed, and whether the
    // stylus went down on it.
    constexpr DrawnButton(int bitmap, const Rect& place, const Rect& hit, bool& pressed, bool& tracking)
        : Bitmap(bitmap), OwnPlace(place), Hit(hit), Pressed(pressed), Tracking(tracking) {}

    DrawnButton(const DrawnButton&) = delete;
    DrawnButton& operator=(const DrawnButton&) = delete;

    const Rect& Place() const { return OwnPlace; }

    // The stylus goes down: true on the button, which then follows the stylus.
    bool TakeDown(Point point);
    // The stylus moves: true while the button follows it.
    bool TakeMove(Point point);
    // The stylus is lifted: true when the button was chosen. It follows no more.
    bool TakeUp(Point point);
    // Lets go of the stylus: nothing is chosen.
    void Release();

    void Draw(ISurface& surface) const;
    PaintedItem Describe(std::u16string name, int id = 0) const;

  private:
    int Bitmap;
    Rect OwnPlace;
    Rect Hit;
    bool& Pressed;
    bool& Tracking;
};

} // namespace tavo
