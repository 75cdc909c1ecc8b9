// Caption, "ok" and × of the window on top.
#include "host/qt/navigation_bar.h"

#include "host/qt/bar_painting.h"

#include <QAccessible>

namespace tavo::qt {
namespace {

constexpr int kCaptionLeft = 8;
constexpr Rect kOkFrame{186, 4, 211, 22};
constexpr QPointF kCrossMiddle{226.5, 12.5};
constexpr double kCrossReach = 4.0;

const Rect& PlaceOf(bool isOk) {
    return isOk ? shell::kOkButton : shell::kCloseButton;
}

} // namespace

NavigationBar::NavigationBar(Device& device, QWidget* parent)
    : DeviceWidget(device, parent), CaptionFont({u"Arial", -14, 0, 700}), ButtonFont({u"Arial", -13, 0, 700}) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

bool NavigationBar::HasButton(Button button) const {
    return button == Button::Close ? Buttons != NavigationButtons::None
                                   : button == Button::Ok && Buttons == NavigationButtons::OkAndClose;
}

NavigationBar::Button NavigationBar::ButtonAt(Point screen) const {
    for (const Button button : {Button::Ok, Button::Close}) {
        if (HasButton(button) && PlaceOf(button == Button::Ok).Contains(screen)) {
            return button;
        }
    }
    return Button::None;
}

bool NavigationBar::TakesInput() const {
    return Shared.State.TakesInput(Shared.State.Tree.Top()) && !Shared.State.Menus.IsMenuOpen();
}

void NavigationBar::Refresh() {
    const shell::WindowRecord* top = Shared.State.Tree.Find(Shared.State.Tree.Top());
    Caption = top == nullptr ? std::u16string() : top->Text;
    Buttons = top == nullptr ? NavigationButtons::None : top->Buttons;
    Shown.clear();
    Shown.push_back({{0, 0, kScreenSize.Width, kNavigationBar.Height()}, PaintedRole::Header, Caption});
    if (HasButton(Button::Ok)) {
        Shown.push_back({shell::kOkButton, PaintedRole::Button, u"OK", IDOK});
    }
    if (HasButton(Button::Close)) {
        Shown.push_back({shell::kCloseButton, PaintedRole::Button, u"Close", IDCANCEL});
    }
    if (QAccessible::isActive()) {
        QAccessibleEvent changed(this, QAccessible::ObjectReorder);
        QAccessible::updateAccessibility(&changed);
    }
    update();
}

void NavigationBar::Draw(QPainter& painter, const QRect&) {
    BarPainter bar(painter, Shared.Geometry);
    bar.Fill(kNavigationBar, kBarColor);
    const int right = HasButton(Button::Ok)      ? shell::kOkButton.Left
                      : HasButton(Button::Close) ? shell::kCloseButton.Left
                                                 : kScreenSize.Width;
    bar.Text(CaptionFont, Caption, {kCaptionLeft, 0, right - 4, kNavigationBar.Bottom}, kBarTextColor, false);
    if (Pressed) {
        bar.Fill(PlaceOf(Held == Button::Ok), kBarPressedColor);
    }
    if (HasButton(Button::Ok)) {
        bar.Frame(kOkFrame, 3, kBarTextColor);
        bar.Text(ButtonFont, u"ok", kOkFrame, kBarTextColor, true);
    }
    if (HasButton(Button::Close)) {
        const QPointF reach(kCrossReach, kCrossReach);
        const QPointF other(kCrossReach, -kCrossReach);
        bar.Line(kCrossMiddle - reach, kCrossMiddle + reach, 1.6, kBarTextColor);
        bar.Line(kCrossMiddle - other, kCrossMiddle + other, 1.6, kBarTextColor);
    }
}

void NavigationBar::SetPressed(bool pressed) {
    if (pressed != Pressed) {
        Pressed = pressed;
        update();
    }
}

void NavigationBar::StylusDown(Point screen) {
    Held = TakesInput() ? ButtonAt(screen) : Button::None;
    SetPressed(Held != Button::None);
    (void)Shared.Stylus.Down(screen);
}

void NavigationBar::StylusMove(Point screen) {
    SetPressed(Held != Button::None && ButtonAt(screen) == Held);
}

void NavigationBar::StylusUp(Point screen) {
    Held = Button::None;
    SetPressed(false);
    Shared.Stylus.Up(screen); // presses the button it went down on
}

} // namespace tavo::qt
