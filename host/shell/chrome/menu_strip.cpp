// Menus and buttons of the bar that is shown.
#include "host/shell/chrome/menu_strip.h"

#include "host/shell/chrome/colors.h"

namespace tavo::shell {

namespace {

constexpr Argb kStripColor = 0xFFEDF1F5;
constexpr Argb kStripEdgeColor = 0xFFC3CAD2;
constexpr Argb kStripTextColor = 0xFF333D47;
constexpr Argb kStripGreyedColor = 0xFF9AA5B1;
constexpr int kTop = kMenuBar.Top + 1; // beneath the edge
constexpr int kMenuPadding = 8;
constexpr int kButtonWidth = 26;
constexpr int kPanelWidth = 30;
constexpr double kGreyedOpacity = 0.4;

void DrawKeyboard(Point middle, Pieces& pieces) {
    const auto [x, y] = middle;
    pieces.push_back(FramePiece{{x - 9, y - 6, x + 9, y + 6}, 1.5, kStripTextColor});
    for (const int key : {-6, -3, 0, 3}) {
        pieces.push_back(FillPiece{{x + key, y - 3, x + key + 2, y - 1}, kStripTextColor});
        pieces.push_back(FillPiece{{x + key + 1, y, x + key + 3, y + 2}, kStripTextColor});
    }
    pieces.push_back(FillPiece{{x - 4, y + 3, x + 5, y + 4}, kStripTextColor});
}

} // namespace

bool MenuStrip::TakesInput() const {
    return State.TakesInput(State.Tree.Top());
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
        Segment segment;
        segment.Number = static_cast<int>(i);
        segment.Name = TakeMarksOut(menus[i].Text);
        segment.Enabled = menus[i].Enabled;
        const int width = Fonts.Find(ChromeFont::Plain).Measure(segment.Name) + 2 * kMenuPadding;
        segment.Area = {left, kTop, left + width, kMenuBar.Bottom};
        left += width;
        Segments.push_back(std::move(segment));
    }
}

void MenuStrip::AddButtons(const MenuBarState& bar, int& left) {
    for (const ButtonState& state : bar.Buttons) {
        const MenuBarButton& button = state.Button;
        Segment segment;
        segment.Kind = SegmentKind::Button;
        segment.Number = button.Id;
        segment.Name = button.Name;
        segment.Enabled = state.Enabled;
        segment.Checked = state.Checked;
        segment.Bitmap = button.Bitmap;
        segment.Source = Rect::FromSize(button.Picture * button.PictureSize, 0, button.PictureSize, button.PictureSize);
        segment.Area = {left, kTop, left + kButtonWidth, kMenuBar.Bottom};
        left += kButtonWidth;
        Segments.push_back(std::move(segment));
    }
}

void MenuStrip::AddPanel() {
    Segment segment;
    segment.Kind = SegmentKind::Panel;
    segment.Name = u"Keyboard";
    segment.Checked = PanelShown;
    segment.Area = {kMenuBar.Right - kPanelWidth, kTop, kMenuBar.Right, kMenuBar.Bottom};
    Segments.push_back(std::move(segment));
}

void MenuStrip::Refresh() {
    Segments.clear();
    Held.reset();
    Pressed = false;
    int left = 0;
    if (const MenuBarState* bar = State.ShownBar(); bar != nullptr) {
        AddMenus(bar->Menus, left);
        AddButtons(*bar, left);
    }
    if (PanelAvailable) {
        AddPanel();
    }
    Shown.clear();
    for (const Segment& segment : Segments) {
        PaintedItem item;
        item.Bounds = {segment.Area.Left, segment.Area.Top - kMenuBar.Top, segment.Area.Right,
                       segment.Area.Bottom - kMenuBar.Top};
        item.Role = PaintedRole::Button;
        item.Name = segment.Name;
        item.Id = segment.Number;
        item.Enabled = segment.Enabled;
        item.Selected = segment.Checked;
        Shown.push_back(std::move(item));
    }
    Tell(PartChange::Items);
}

Rect MenuStrip::PlaceOf(SegmentKind kind, int number) const {
    for (const Segment& segment : Segments) {
        if (segment.Kind == kind && segment.Number == number) {
            return segment.Area;
        }
    }
    return kMenuBar;
}

Rect MenuStrip::MenuPlace(int index) const {
    return PlaceOf(SegmentKind::Menu, index);
}

Rect MenuStrip::ButtonPlace(int command) const {
    return PlaceOf(SegmentKind::Button, command);
}

bool MenuStrip::CanPress(Point screen) const {
    const Segment* segment = SegmentAt(screen);
    return TakesInput() && segment != nullptr && segment->Enabled;
}

bool MenuStrip::IsOpen(const Segment& segment) const {
    const auto& open = State.Menus.BarMenu;
    return segment.Kind == SegmentKind::Menu && open.has_value() && open->Index == segment.Number;
}

Pieces MenuStrip::Draw() {
    Pieces pieces{FillPiece{kMenuBar, kStripColor},
                  FillPiece{{kMenuBar.Left, kMenuBar.Top, kMenuBar.Right, kTop}, kStripEdgeColor}};
    for (const Segment& segment : Segments) {
        DrawSegment(segment, pieces);
    }
    return pieces;
}

void MenuStrip::DrawSegment(const Segment& segment, Pieces& pieces) {
    const Rect& area = segment.Area;
    const bool isHeld = Pressed && Held.has_value() && &segment == &Segments[*Held];
    if (isHeld || IsOpen(segment)) {
        pieces.push_back(FillPiece{area, kChromePressedColor});
    } else if (segment.Checked) {
        pieces.push_back(
            RoundedFillPiece{{area.Left + 2, area.Top + 2, area.Right - 2, area.Bottom - 2}, 3, kChromePressedColor});
    }
    const Point middle{(area.Left + area.Right) / 2, (area.Top + area.Bottom) / 2};
    switch (segment.Kind) {
    case SegmentKind::Menu:
        pieces.push_back(MakeLine(Fonts, ChromeFont::Plain, segment.Name, area,
                                  segment.Enabled ? kStripTextColor : kStripGreyedColor, TextAlign::Centre));
        break;
    case SegmentKind::Button:
        pieces.push_back(PicturePiece{segment.Bitmap,
                                      {middle.X - segment.Source.Width() / 2, middle.Y - segment.Source.Height() / 2},
                                      segment.Source,
                                      segment.Enabled ? 1.0 : kGreyedOpacity});
        break;
    case SegmentKind::Panel:
        DrawKeyboard(middle, pieces);
        break;
    }
}

const MenuStrip::Segment* MenuStrip::SegmentAt(Point screen) const {
    for (const Segment& segment : Segments) {
        if (segment.Area.Contains(screen)) {
            return &segment;
        }
    }
    return nullptr;
}

void MenuStrip::Choose(const Segment& segment) {
    switch (segment.Kind) {
    case SegmentKind::Menu:
        static_cast<void>(Navigation.OpenBarMenu(segment.Number));
        break;
    case SegmentKind::Button:
        static_cast<void>(Navigation.ChooseCommand(segment.Number));
        break;
    case SegmentKind::Panel:
        if (PanelTapped) {
            PanelTapped();
        }
        break;
    }
}

void MenuStrip::SetPressed(bool pressed) {
    if (pressed != Pressed) {
        Pressed = pressed;
        Tell(PartChange::Look);
    }
}

void MenuStrip::Down(Point screen) {
    const Segment* segment = SegmentAt(screen);
    if (!CanPress(screen)) {
        return;
    }
    if (segment->Kind == SegmentKind::Menu) { // menus open on the tap, not on the release
        Choose(*segment);
        return;
    }
    Held = static_cast<std::size_t>(segment - Segments.data());
    SetPressed(true);
}

void MenuStrip::Move(Point screen) {
    SetPressed(Held.has_value() && SegmentAt(screen) == &Segments[*Held]);
}

void MenuStrip::Up(Point screen) {
    if (!Held.has_value()) {
        return;
    }
    const Segment& segment = Segments[*Held];
    Held.reset();
    SetPressed(false);
    if (SegmentAt(screen) == &segment) {
        Choose(segment);
    }
}

std::u16string MenuStrip::TipAt(Point screen) const {
    const Segment* segment = SegmentAt(screen);
    return segment != nullptr && segment->Kind != SegmentKind::Menu ? segment->Name : std::u16string();
}

} // namespace tavo::shell
