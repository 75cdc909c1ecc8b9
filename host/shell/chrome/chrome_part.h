// A part of the device's own chrome: what it shows, and what a tap does to it.
#pragma once

#include "host/shell/chrome/piece.h"
#include "platform/drawing.h"

#include <functional>
#include <string>
#include <vector>

namespace tavo::shell {

enum class PartChange {
    Look,  // to be painted anew
    Items, // and what it shows is something else
};

class ChromePart {
  public:
    virtual ~ChromePart() = default;

    // Where it lies on the device's screen.
    virtual Rect Bounds() const = 0;
    // Its own name, for assistive technology.
    virtual std::u16string Title() const = 0;
    // What it shows, for assistive technology and tests; counted from its corner.
    virtual const std::vector<PaintedItem>& Items() const = 0;
    // Whether a tap would reach it now.
    virtual bool TakesInput() const = 0;
    // What it looks like, in the order of painting; places are those of the device's screen.
    virtual Pieces Draw() = 0;

    // The stylus, in pixels of the screen.
    virtual void Down(Point screen) = 0;
    virtual void Move(Point screen) = 0;
    virtual void Up(Point screen) = 0;

    // What is said of the thing there to whoever waits over it; empty for nothing.
    virtual std::u16string TipAt(Point) const { return {}; }

    // Told of every change; must not change the part.
    void SetWatch(std::function<void(PartChange)> watch) { Watch = std::move(watch); }

  protected:
    void Tell(PartChange change) const {
        if (Watch) {
            Watch(change);
        }
    }

  private:
    std::function<void(PartChange)> Watch;
};

} // namespace tavo::shell
