// The bar at the bottom of the device's screen: menus on the left, buttons beside them, the input panel's button.
#pragma once

#include "host/shell/chrome/chrome_part.h"
#include "host/shell/navigation_input.h"

#include <optional>

namespace tavo::shell {

class MenuStrip final : public ChromePart {
  public:
    MenuStrip(Shell& shell, NavigationInput& navigation, IChromeFonts& fonts)
        : State(shell), Navigation(navigation), Fonts(fonts) {}

    // Takes menus and buttons from the bar that is shown.
    void Refresh();

    // A touch keyboard is wanted: shows its button, pressed or not, and who is told of a tap on it.
    void SetPanelButton(std::function<void()> tapped) { PanelTapped = std::move(tapped); }

    void SetPanelState(bool available, bool shown);

    // Where a menu of the bar opens; the whole bar for an unknown one.
    Rect MenuPlace(int index) const;
    // Where the button with this command lies; the whole bar for an unknown one.
    Rect ButtonPlace(int command) const;
    // Whether a tap there would do something now.
    bool CanPress(Point screen) const;

    Rect Bounds() const override { return kMenuBar; }

    std::u16string Title() const override { return u"Menu bar"; }

    const std::vector<PaintedItem>& Items() const override { return Shown; }

    bool TakesInput() const override;
    Pieces Draw() override;
    void Down(Point screen) override;
    void Move(Point screen) override;
    void Up(Point screen) override;
    std::u16string TipAt(Point screen) const override;

  private:
    enum class SegmentKind { Menu, Button, Panel };

    struct Segment {
        SegmentKind Kind = SegmentKind::Menu;
        int Number = 0; // a menu's index, a button's command
        Rect Area;      // on the screen
        std::u16string Name;
        bool Enabled = true;
        bool Checked = false;
        int Bitmap = 0;
        Rect Source;
    };

    void AddMenus(const std::vector<MenuItem>& menus, int& left);
    void AddButtons(const MenuBarState& bar, int& left);
    void AddPanel();
    void DrawSegment(const Segment& segment, Pieces& pieces);
    const Segment* SegmentAt(Point screen) const;
    Rect PlaceOf(SegmentKind kind, int number) const;
    bool IsOpen(const Segment& segment) const;
    void SetPressed(bool pressed);
    void Choose(const Segment& segment);

    Shell& State;
    NavigationInput& Navigation;
    IChromeFonts& Fonts;
    std::vector<Segment> Segments;
    std::vector<PaintedItem> Shown;
    std::optional<std::size_t> Held; // the stylus went down on it
    bool Pressed = false;            // and is still there
    bool PanelAvailable = false;
    bool PanelShown = false;
    std::function<void()> PanelTapped;
};

} // namespace tavo::shell
