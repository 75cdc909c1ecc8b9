// Menus and buttons of the bar that is shown.
#include "host/qt/menu_strip.h"

#include "host/qt/bar_painting.h"
#include "host/shell/chrome/text_placement.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QToolTip>

namespace tavo::qt {
namespace {

constexpr int kMenuPadding = 8;
constexpr int kButtonWidth = 26;
constexpr int kPanelWidth = 30;
constexpr double kGreyedOpacity = 0.4;

// Without the "&" that marks the key of a menu's title.
std::u16string PlainTitle(Font& font, std::u16string_view text) {
    return PlaceText(font, text, kMenuBar, DT_SINGLELINE).front().Text;
}

} // namespace

MenuStrip::MenuStrip(Device& device, QWidget* parent)
    : DeviceWidget(device, parent), TitleFont({u"Arial", -13, 0, 400}) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

bool MenuStrip::TakesInput() const {
    return Shared.State.TakesInput(Shared.State.Tree.Top());
}

void MenuStrip::SetPanelState(bool available, bool shown) {
    if (available != PanelAvailable || shown != PanelShown) {
        PanelAvailable = available;
        PanelShown = shown;
        Refresh();
    }
}

void MenuStrip::AddMenus(const std::vector<MenuItem>& menus, int& left) {
    for (std::size_t i = 0; i < menus.size(); ++i) {
        Part part;
        part.Number = static_cast<int>(i);
        part.Name = PlainTitle(TitleFont, menus[i].Text);
        part.Enabled = menus[i].Enabled;
        const int width = TitleFont.Measure(part.Name) + 2 * kMenuPadding;
        part.Area = {left, kMenuBar.Top + 1, left + width, kMenuBar.Bottom};
        left += width;
        Parts.push_back(std::move(part));
    }
}

void MenuStrip::AddButtons(const shell::MenuBarState& bar, int& left) {
    for (const shell::ButtonState& state : bar.Buttons) {
        const MenuBarButton& button = state.Button;
        Part part;
        part.Kind = PartKind::Button;
        part.Number = button.Id;
        part.Name = button.Name;
        part.Enabled = state.Enabled;
        part.Checked = state.Checked;
        part.Bitmap = button.Bitmap;
        part.Source = Rect::FromSize(button.Picture * button.PictureSize, 0, button.PictureSize, button.PictureSize);
        part.Area = {left, kMenuBar.Top + 1, left + kButtonWidth, kMenuBar.Bottom};
        left += kButtonWidth;
        Parts.push_back(std::move(part));
    }
}

void MenuStrip::Refresh() {
    Parts.clear();
    Held.reset();
    Pressed = false;
    int left = 0;
    if (const shell::MenuBarState* bar = Shared.State.ShownBar(); bar != nullptr) {
        AddMenus(bar->Menus, left);
        AddButtons(*bar, left);
    }
    if (PanelAvailable) {
        Part part;
        part.Kind = PartKind::Panel;
        part.Name = u"Keyboard";
        part.Checked = PanelShown;
        part.Area = {kMenuBar.Right - kPanelWidth, kMenuBar.Top + 1, kMenuBar.Right, kMenuBar.Bottom};
        Parts.push_back(std::move(part));
    }
    Shown.clear();
    for (const Part& part : Parts) {
        PaintedItem item;
        item.Bounds = {part.Area.Left, part.Area.Top - kMenuBar.Top, part.Area.Right, part.Area.Bottom - kMenuBar.Top};
        item.Role = PaintedRole::Button;
        item.Name = part.Name;
        item.Id = part.Number;
        item.Enabled = part.Enabled;
        item.Selected = part.Checked;
        Shown.push_back(std::move(item));
    }
    if (QAccessible::isActive()) {
        QAccessibleEvent changed(this, QAccessible::ObjectReorder);
        QAccessible::updateAccessibility(&changed);
    }
    update();
}

Rect MenuStrip::MenuPlace(int index) const {
    for (const Part& part : Parts) {
        if (part.Kind == PartKind::Menu && part.Number == index) {
            return part.Area;
        }
    }
    return kMenuBar;
}

bool MenuStrip::IsOpen(const Part& part) const {
    const auto& open = Shared.State.Menus.BarMenu;
    return part.Kind == PartKind::Menu && open.has_value() && open->Index == part.Number;
}

void MenuStrip::Draw(QPainter& painter, const QRect&) {
    BarPainter bar(painter, Shared.Geometry);
    bar.Fill(kMenuBar, kMenuBarColor);
    bar.Fill({kMenuBar.Left, kMenuBar.Top, kMenuBar.Right, kMenuBar.Top + 1}, kMenuBarEdgeColor);
    for (const Part& part : Parts) {
        DrawPart(bar, part);
    }
}

void MenuStrip::DrawPart(BarPainter& bar, const Part& part) {
    const bool isHeld = Pressed && Held.has_value() && &part == &Parts[*Held];
    if (isHeld || IsOpen(part)) {
        bar.Fill(part.Area, kMenuBarPressedColor);
    } else if (part.Checked) {
        bar.RoundedFill({part.Area.Left + 2, part.Area.Top + 2, part.Area.Right - 2, part.Area.Bottom - 2}, 3,
                        kMenuBarPressedColor);
    }
    const int middleX = (part.Area.Left + part.Area.Right) / 2;
    const int middleY = (part.Area.Top + part.Area.Bottom) / 2;
    switch (part.Kind) {
    case PartKind::Menu:
        bar.Text(TitleFont, part.Name, part.Area, part.Enabled ? kMenuBarTextColor : kMenuBarGreyedColor, true);
        break;
    case PartKind::Button:
        bar.Picture(Shared.Pictures, part.Bitmap,
                    {middleX - part.Source.Width() / 2, middleY - part.Source.Height() / 2}, part.Source,
                    part.Enabled ? 1.0 : kGreyedOpacity);
        break;
    case PartKind::Panel:
        bar.Frame({middleX - 9, middleY - 6, middleX + 9, middleY + 6}, 1.5, kMenuBarTextColor);
        for (const int key : {-6, -3, 0, 3}) {
            bar.Fill({middleX + key, middleY - 3, middleX + key + 2, middleY - 1}, kMenuBarTextColor);
            bar.Fill({middleX + key + 1, middleY, middleX + key + 3, middleY + 2}, kMenuBarTextColor);
        }
        bar.Fill({middleX - 4, middleY + 3, middleX + 5, middleY + 4}, kMenuBarTextColor);
        break;
    }
}

const MenuStrip::Part* MenuStrip::PartAt(Point screen) const {
    for (const Part& part : Parts) {
        if (part.Area.Contains(screen)) {
            return &part;
        }
    }
    return nullptr;
}

void MenuStrip::Choose(const Part& part) {
    switch (part.Kind) {
    case PartKind::Menu:
        (void)Shared.Navigation.OpenBarMenu(part.Number);
        break;
    case PartKind::Button:
        (void)Shared.Navigation.ChooseCommand(part.Number);
        break;
    case PartKind::Panel:
        if (PanelTapped) {
            PanelTapped();
        }
        break;
    }
}

void MenuStrip::StylusDown(Point screen) {
    const Part* part = TakesInput() ? PartAt(screen) : nullptr;
    if (part == nullptr || !part->Enabled) {
        return;
    }
    if (part->Kind == PartKind::Menu) { // menus open on the tap, not on the release
        Choose(*part);
        return;
    }
    Held = static_cast<std::size_t>(part - Parts.data());
    Pressed = true;
    update();
}

void MenuStrip::StylusMove(Point screen) {
    if (Held.has_value()) {
        Pressed = PartAt(screen) == &Parts[*Held];
        update();
    }
}

void MenuStrip::StylusUp(Point screen) {
    if (!Held.has_value()) {
        return;
    }
    const Part& part = Parts[*Held];
    Held.reset();
    Pressed = false;
    update();
    if (PartAt(screen) == &part) {
        Choose(part);
    }
}

bool MenuStrip::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto& help = *static_cast<QHelpEvent*>(event);
        const Part* part = PartAt(Shared.Geometry.ToLogical(mapTo(window(), QPointF(help.pos()))));
        const bool isButton = part != nullptr && part->Kind != PartKind::Menu;
        QToolTip::showText(help.globalPos(), isButton ? QString::fromStdU16String(part->Name) : QString(), this);
        return true;
    }
    return DeviceWidget::event(event);
}

} // namespace tavo::qt
