// Caption, "ok" and × of the window on top.
#include "host/shell/chrome/navigation_bar.h"

#include "host/shell/chrome/colors.h"

namespace tavo::shell {

namespace {

constexpr int kCaptionLeft = 8;
constexpr Rect kOkFrame{186, 4, 211, 22};
constexpr Spot kCrossMiddle{226.5, 12.5};
constexpr double kCrossReach = 4.0;
constexpr double kCrossWidth = 1.6;

void DrawCross(Pieces& pieces) {
    for (const double down : {kCrossReach, -kCrossReach}) {
        pieces.push_back(LinePiece{{kCrossMiddle.X - kCrossReach, kCrossMiddle.Y - down},
                                   {kCrossMiddle.X + kCrossReach, kCrossMiddle.Y + down},
                                   kCrossWidth,
                                   kBarTextColor});
    }
}

} // namespace

bool NavigationBar::Has(NavigationButton button) const {
    return HasNavigationButton(Buttons, button);
}

bool NavigationBar::TakesInput() const {
    return State.TakesInput(State.Tree.Top()) && !State.Menus.IsMenuOpen();
}

void NavigationBar::Refresh() {
    const WindowRecord* top = State.Tree.Find(State.Tree.Top());
    Caption = top == nullptr ? std::u16string() : top->Text;
    Buttons = top == nullptr ? NavigationButtons::None : top->Buttons;
    Shown.clear();
    Shown.push_back({{0, 0, kNavigationBar.Width(), kNavigationBar.Height()}, PaintedRole::Header, Caption});
    if (Has(NavigationButton::Ok)) {
        Shown.push_back({kOkButton, PaintedRole::Button, u"OK", IDOK});
    }
    if (Has(NavigationButton::Close)) {
        Shown.push_back({kCloseButton, PaintedRole::Button, u"Close", IDCANCEL});
    }
    Tell(PartChange::Items);
}

Pieces NavigationBar::Draw() {
    Pieces pieces{FillPiece{kNavigationBar, kBarColor}};
    const int right = Has(NavigationButton::Ok)      ? kOkButton.Left
                      : Has(NavigationButton::Close) ? kCloseButton.Left
                                                     : kNavigationBar.Right;
    pieces.push_back(MakeLine(Fonts, ChromeFont::Caption, Caption,
                              {kCaptionLeft, kNavigationBar.Top, right - 4, kNavigationBar.Bottom}, kBarTextColor,
                              TextAlign::Left));
    if (Pressed) {
        pieces.push_back(FillPiece{PlaceOf(Held), kBarPressedColor});
    }
    if (Has(NavigationButton::Ok)) {
        pieces.push_back(FramePiece{kOkFrame, 3, kBarTextColor});
        pieces.push_back(MakeLine(Fonts, ChromeFont::Button, u"ok", kOkFrame, kBarTextColor, TextAlign::Centre));
    }
    if (Has(NavigationButton::Close)) {
        DrawCross(pieces);
    }
    return pieces;
}

void NavigationBar::SetPressed(bool pressed) {
    if (pressed != Pressed) {
        Pressed = pressed;
        Tell(PartChange::Look);
    }
}

void NavigationBar::Down(Point screen) {
    Held = TakesInput() ? NavigationButtonAt(Buttons, screen) : NavigationButton::None;
    SetPressed(Held != NavigationButton::None);
    static_cast<void>(Stylus.Down(screen));
}

void NavigationBar::Move(Point screen) {
    SetPressed(Held != NavigationButton::None && NavigationButtonAt(Buttons, screen) == Held);
}

void NavigationBar::Up(Point screen) {
    Held = NavigationButton::None;
    SetPressed(false);
    Stylus.Up(screen); // presses the button it went down on
}

} // namespace tavo::shell
