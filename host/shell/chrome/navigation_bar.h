// The bar at the top of the device's screen: caption, "ok" and ×.
#pragma once

#include "host/shell/chrome/chrome_part.h"
#include "host/shell/stylus_input.h"

namespace tavo::shell {

class NavigationBar final : public ChromePart {
  public:
    NavigationBar(Shell& shell, StylusInput& stylus, IChromeFonts& fonts)
        : State(shell), Stylus(stylus), Fonts(fonts) {}

    // Takes caption and buttons from the window on top.
    void Refresh();

    Rect Bounds() const override { return kNavigationBar; }

    std::u16string Title() const override { return Caption; }

    const std::vector<PaintedItem>& Items() const override { return Shown; }

    bool TakesInput() const override;
    Pieces Draw() override;
    void Down(Point screen) override;
    void Move(Point screen) override;
    void Up(Point screen) override;

  private:
    bool Has(NavigationButton button) const;
    void SetPressed(bool pressed);

    Shell& State;
    StylusInput& Stylus;
    IChromeFonts& Fonts;
    std::u16string Caption;
    NavigationButtons Buttons = NavigationButtons::None;
    NavigationButton Held = NavigationButton::None; // the stylus went down on it
    bool Pressed = false;                           // and is still there
    std::vector<PaintedItem> Shown;
};

} // namespace tavo::shell
