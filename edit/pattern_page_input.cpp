// Tabs, weekday toggles and lists: what a tap, a key or a choice does on the pattern page, and how it looks.
#include "edit/pattern_page_layout.h"
#include "framework/message_pump.h"

#include <algorithm>
#include <iterator>

namespace tavo {

namespace {

constexpr Rect kTabStrip = Rect::FromSize(0, 0, 240, 24);
constexpr int kTabWidth = 60;
constexpr int kTabCount = 4;
constexpr Point kFirstToggle{19, 84};
constexpr int kToggleStep = 30;
constexpr int kToggleSize = 22;
constexpr int kFocusGap = 2;
constexpr Color kBackground = Color::FromRgb(255, 255, 255);
constexpr Color kFocusColor = Color::FromRgb(38, 100, 180);
constexpr std::u16string_view kNoDay = u"At least one day must be selected.";

Rect ToggleBounds(std::size_t day) {
    return Rect::FromSize(kFirstToggle.X + static_cast<int>(day) * kToggleStep, kFirstToggle.Y, kToggleSize,
                          kToggleSize);
}

void DrawFrame(ISurface& surface, const Rect& frame) {
    const Pen pen{kFocusColor, 1};
    surface.DrawLine({frame.Left, frame.Top}, {frame.Right, frame.Top}, pen);
    surface.DrawLine({frame.Left, frame.Bottom - 1}, {frame.Right, frame.Bottom - 1}, pen);
    surface.DrawLine({frame.Left, frame.Top}, {frame.Left, frame.Bottom}, pen);
    surface.DrawLine({frame.Right - 1, frame.Top}, {frame.Right - 1, frame.Bottom}, pen);
}

} // namespace

const MessageMap& CPatternPage::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&CPatternPage::TakeStylusDown>(WM_LBUTTONDOWN),
        On<&CPatternPage::TakeKey>(WM_KEYDOWN),
        On<&CPatternPage::RenewFocus>(WM_COMMAND),
        OnCommand<&CPatternPage::ToggleDay>(kPatternSunday),
        OnCommand<&CPatternPage::ToggleDay>(kPatternMonday),
        OnCommand<&CPatternPage::ToggleDay>(kPatternTuesday),
        OnCommand<&CPatternPage::ToggleDay>(kPatternWednesday),
        OnCommand<&CPatternPage::ToggleDay>(kPatternThursday),
        OnCommand<&CPatternPage::ToggleDay>(kPatternFriday),
        OnCommand<&CPatternPage::ToggleDay>(kPatternSaturday),
        OnControl<&CPatternPage::TakeChoice>(kPatternDayOfMonth, CBN_SELCHANGE),
        OnControl<&CPatternPage::TakeChoice>(kPatternDayMonths, CBN_SELCHANGE),
        OnControl<&CPatternPage::TakeChoice>(kPatternDayMonths, CBN_EDITCHANGE),
        OnControl<&CPatternPage::TakeChoice>(kPatternTheMonths, CBN_SELCHANGE),
        OnControl<&CPatternPage::TakeChoice>(kPatternTheMonths, CBN_EDITCHANGE),
        OnControl<&CPatternPage::TakeChoice>(kPatternTheOrdinal, CBN_SELCHANGE),
        OnControl<&CPatternPage::TakeChoice>(kPatternTheWeekday, CBN_SELCHANGE),
        OnControl<&CPatternPage::TakeChoice>(kPatternYearDayMonth, CBN_SELCHANGE),
        OnControl<&CPatternPage::TakeChoice>(kPatternYearDay, CBN_SELCHANGE),
        OnControl<&CPatternPage::TakeChoice>(kPatternYearNthMonth, CBN_SELCHANGE),
        OnControl<&CPatternPage::TakeChoice>(kPatternYearNthOrdinal, CBN_SELCHANGE),
        OnControl<&CPatternPage::TakeChoice>(kPatternYearNthWeekday, CBN_SELCHANGE),
    };
    static const MessageMap map{entries, &CWizardPage::Messages()};
    return map;
}

// Hides everything and shows the controls of one mode.
void CPatternPage::ShowMode() {
    for (std::size_t day = 0; day < kDayToggles.size(); ++day) {
        MoveItem(kDayToggles[day], ToggleBounds(day));
    }
    for (const PatternTab& tab : kPatternTabList) {
        for (const int control : tab.Controls) {
            ShowItem(control, false);
        }
    }
    // What is typed while nothing has the focus goes to the list shown last: that is one of the chosen row.
    for (const bool isOfChosenRow : {false, true}) {
        for (const int control : kPatternTabList[static_cast<std::size_t>(PageMode)].Controls) {
            if (LiesInChosenRow(control) == isOfChosenRow) {
                ShowItem(control, true);
            }
        }
    }
    Invalidate();
}

bool CPatternPage::LiesInChosenRow(int control) const {
    return std::any_of(std::begin(kRowRadios), std::end(kRowRadios), [&](const RowRadio& row) {
        return row.List == control && Host().Controls().GetCheck(Item(row.Radio));
    });
}

void CPatternPage::SetMode(PatternMode mode) {
    PageMode = mode;
    ShowMode();
}

Rect CPatternPage::TabBounds(PatternMode mode) const {
    return Rect::FromSize(static_cast<int>(mode) * kTabWidth, kTabStrip.Top, kTabWidth, kTabStrip.Height());
}

void CPatternPage::TakeStylusDown(Point point) {
    for (const PatternTab& tab : kPatternTabList) {
        if (TabBounds(tab.Mode).Contains(point)) {
            SetMode(tab.Mode);
            return;
        }
    }
}

bool CPatternPage::TakeKey(const Message& key) {
    const WindowHandle focus = Host().Windows().GetFocus();
    if (focus == Handle() && (key.Id == VK_LEFT || key.Id == VK_RIGHT)) {
        const int step = key.Id == VK_LEFT ? kTabCount - 1 : 1;
        SetMode(static_cast<PatternMode>((static_cast<int>(PageMode) + step) % kTabCount));
        return true;
    }
    if (key.Id == VK_SPACE) {
        for (const int toggle : kDayToggles) {
            if (Item(toggle) == focus) {
                ToggleDay(toggle);
                return true;
            }
        }
    }
    return false;
}

// A control that was tapped may have taken the focus from what is painted with it. The command goes on to its handler.
bool CPatternPage::RenewFocus(const Message&) {
    if (PaintedFocus != Host().Windows().GetFocus()) {
        Invalidate();
    }
    return false;
}

void CPatternPage::ToggleDay(int control) {
    const auto day =
        static_cast<std::size_t>(std::find(kDayToggles.begin(), kDayToggles.end(), control) - kDayToggles.begin());
    DaySelected[day] = !DaySelected[day];
    const bool refused = !AnyDaySelected();
    if (refused) {
        DaySelected[day] = true;
    }
    Host().Controls().SetCheck(Item(control), DaySelected[day]);
    Invalidate();
    if (refused) {
        ShowNoDay();
    }
}

bool CPatternPage::AnyDaySelected() const {
    return std::find(DaySelected.begin(), DaySelected.end(), true) != DaySelected.end();
}

void CPatternPage::ShowNoDay() {
    MessageBoxDescription box;
    box.Text = kNoDay;
    Pump().ShowMessageBox(Handle(), box);
}

// A choice in a row also chooses the row.
void CPatternPage::TakeChoice(int control) {
    for (const RowRadio& row : kRowRadios) {
        if (row.List == control) {
            Host().Controls().SetCheck(Item(row.Radio), true);
        }
    }
    static_cast<void>(UpdateData()); // it cannot be refused: the weekdays are not on show
}

std::vector<WindowHandle> CPatternPage::FocusStops() const {
    std::vector<WindowHandle> stops = CWizardPage::FocusStops();
    stops.insert(stops.begin(), Handle()); // the tab strip, which is painted
    return stops;
}

void CPatternPage::Paint() {
    const WindowHandle focus = Host().Windows().GetFocus();
    DropPainted();
    Surface().FillRect(Rect::Whole(Surface().GetSize()), kBackground);
    Surface().DrawBitmap(kPatternTabList[static_cast<std::size_t>(PageMode)].Picture, {kTabStrip.Left, kTabStrip.Top},
                         Rect::Whole({kTabStrip.Width(), kTabStrip.Height()}));
    for (const PatternTab& tab : kPatternTabList) {
        PaintedItem item;
        item.Bounds = TabBounds(tab.Mode);
        item.Role = PaintedRole::Tab;
        item.Name = tab.Name;
        item.Id = static_cast<int>(tab.Mode);
        item.Selected = tab.Mode == PageMode;
        Declare(std::move(item));
    }
    PaintedFocus = focus;
    if (focus == Handle()) {
        const Rect tab = TabBounds(PageMode);
        DrawFrame(Surface(), {tab.Left + kFocusGap, tab.Top + kFocusGap + 1, tab.Right - kFocusGap, tab.Bottom - 1});
    }
    for (std::size_t day = 0; day < kDayToggles.size(); ++day) {
        if (Item(kDayToggles[day]) == focus) {
            const Rect toggle = ToggleBounds(day);
            DrawFrame(Surface(), {toggle.Left - kFocusGap, toggle.Top - kFocusGap, toggle.Right + kFocusGap,
                                  toggle.Bottom + kFocusGap});
        }
    }
    PresentSurface();
}

} // namespace tavo
