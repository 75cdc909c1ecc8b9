// Rows of menus, lists and days.
#include "host/bare/popup.h"

#include "host/bare/colors.h"
#include "host/locale/calendar_math.h"
#include "host/shell/chrome/chrome.h"

#include <algorithm>
#include <cstdint>

namespace tavo::bare {

namespace {

constexpr int kRowHeight = 18;
constexpr int kTextLeft = 6;
constexpr int kDaysAround = 60; // that a picker offers, before its own day and after it
constexpr std::u16string_view kIndent = u"    ";
constexpr std::u16string_view kCheckMark = u"\u2022 ";

// That day of the calendar, at the picker's time; its own where there is no such day.
SYSTEMTIME MoveDays(SYSTEMTIME time, int days) {
    const locale::CivilDate date =
        locale::DateOfDayNumber(static_cast<int>(locale::DayNumberOf(time.Year, time.Month, time.Day)) + days);
    time.Year = static_cast<std::uint16_t>(date.Year);
    time.Month = static_cast<std::uint16_t>(date.Month);
    time.Day = static_cast<std::uint16_t>(date.Day);
    return time;
}

} // namespace

void Popup::Note(shell::Change change) {
    if (change == shell::Change::ListOpened || change == shell::Change::BarMenuOpened ||
        change == shell::Change::MenuTracked) {
        IsNew = true;
    }
}

void Popup::AddMenu(const std::vector<MenuItem>& items, const std::u16string& indent) {
    for (const MenuItem& item : items) {
        const bool isHeading = item.IsPopup || !item.Children.empty();
        std::u16string text = indent + std::u16string(item.Checked ? kCheckMark : u"") + shell::TakeMarksOut(item.Text);
        Rows.push_back({std::move(text), item.Id, item.Enabled && !isHeading, false, item.IsSeparator});
        AddMenu(item.Children, indent + std::u16string(kIndent));
    }
}

void Popup::AddDays(const shell::ControlState& picker) {
    for (int day = -kDaysAround; day <= kDaysAround; ++day) {
        const SYSTEMTIME time = MoveDays(picker.Time, day);
        Rows.push_back({shell::FaceOf(shell::PickerFields::Date, time, {}).Text, day, true, day == 0});
    }
}

void Popup::PlaceBeside(const Rect& anchor, int width) {
    const int below = kScreenSize.Height - anchor.Bottom;
    const bool opensAbove = static_cast<int>(Rows.size()) * kRowHeight + 2 > below && anchor.Top > below;
    const int room = (opensAbove ? anchor.Top : below) - 2;
    const int height = std::min(static_cast<int>(Rows.size()), room / kRowHeight) * kRowHeight + 2;
    const int left = std::clamp(anchor.Left, 0, std::max(kScreenSize.Width - width, 0));
    Area = Rect::FromSize(left, opensAbove ? anchor.Top - height : anchor.Bottom, width, height);
}

void Popup::Place() {
    int width = 0;
    for (const Row& row : Rows) {
        width = std::max(width, Host.Find(shell::ChromeFont::Plain).Measure(row.Text) + 2 * kTextLeft + 2);
    }
    const shell::MenuState& menus = Host.State.Menus;
    if (menus.BarMenu) {
        const Rect menu = Host.Chrome().Menus.MenuPlace(menus.BarMenu->Index);
        PlaceBeside({menu.Left, kMenuBar.Top, menu.Right, kMenuBar.Bottom}, width);
    } else if (menus.Tracked) {
        const int left = menus.Tracked->At.X - (menus.Tracked->Align == MenuAlign::Right ? width : 0);
        PlaceBeside({left, menus.Tracked->At.Y, left, menus.Tracked->At.Y}, width);
    } else {
        const Rect list = Host.State.Tree.ScreenBounds(Host.State.OpenList);
        PlaceBeside(list, std::max(width, list.Width()));
    }
}

void Popup::Refresh() {
    Rows.clear();
    Area = {};
    const shell::MenuState& menus = Host.State.Menus;
    const shell::ControlState* control = Host.State.Tree.FindControl(Host.State.OpenList);
    const shell::MenuBarState* bar = Host.State.ShownBar();
    if (menus.BarMenu && bar != nullptr) {
        AddMenu(bar->Menus[static_cast<std::size_t>(menus.BarMenu->Index)].Children, {});
    } else if (menus.Tracked) {
        AddMenu(menus.Tracked->Items, {});
    } else if (control != nullptr && shell::IsPicker(control->Kind)) {
        AddDays(*control);
    } else if (control != nullptr) {
        for (std::size_t entry = 0; entry < control->Items.size(); ++entry) {
            const int number = static_cast<int>(entry);
            Rows.push_back({control->Items[entry], number, true, number == control->Current});
        }
    }
    if (Rows.empty()) {
        return;
    }
    Place();
    const auto seen = static_cast<std::size_t>(Area.Height() / kRowHeight);
    const std::size_t last = Rows.size() - std::min(seen, Rows.size());
    if (std::exchange(IsNew, false)) {
        const auto chosen = std::find_if(Rows.begin(), Rows.end(), [](const Row& row) { return row.Chosen; });
        const auto before = static_cast<std::size_t>(chosen == Rows.end() ? 0 : chosen - Rows.begin());
        First = before - std::min(before, seen / 2);
    }
    First = std::min(First, last);
}

Rect Popup::Bounds() {
    Refresh();
    return Area;
}

Rect Popup::PlaceOfRow(std::size_t row) const {
    const int top = Area.Top + 1 + (static_cast<int>(row) - static_cast<int>(First)) * kRowHeight;
    const Rect place = Rect::FromSize(Area.Left + 1, top, Area.Width() - 2, kRowHeight);
    return place.Top > Area.Top && place.Bottom < Area.Bottom ? place : Rect{};
}

Rect Popup::PlaceOf(int number) {
    Refresh();
    const auto found = std::find_if(Rows.begin(), Rows.end(), [number](const Row& row) {
        return row.Enabled && !row.IsSeparator && row.Number == number;
    });
    return found == Rows.end() ? Rect{} : PlaceOfRow(static_cast<std::size_t>(found - Rows.begin()));
}

shell::Pieces Popup::Draw() {
    Refresh();
    if (Rows.empty()) {
        return {};
    }
    shell::Pieces pieces{shell::FillPiece{Area, kFieldColor}};
    for (std::size_t row = First; row < Rows.size() && !PlaceOfRow(row).IsEmpty(); ++row) {
        const Rect place = PlaceOfRow(row);
        if (Rows[row].IsSeparator) {
            const int middle = (place.Top + place.Bottom) / 2;
            pieces.emplace_back(shell::FillPiece{{place.Left, middle, place.Right, middle + 1}, kEdgeColor});
            continue;
        }
        if (Rows[row].Chosen) {
            pieces.emplace_back(shell::FillPiece{place, shell::kChromePressedColor});
        }
        pieces.emplace_back(shell::MakeLine(Host, shell::ChromeFont::Plain, Rows[row].Text,
                                            {place.Left + kTextLeft, place.Top, place.Right, place.Bottom},
                                            Rows[row].Enabled ? kTextColor : kGreyedColor, shell::TextAlign::Left));
    }
    pieces.emplace_back(shell::FramePiece{Area, 0, kEdgeColor});
    return pieces;
}

void Popup::Tap(Point screen) {
    if (!Bounds().Contains(screen)) {
        return;
    }
    const std::size_t at = First + static_cast<std::size_t>(std::max(screen.Y - Area.Top - 1, 0) / kRowHeight);
    if (at >= Rows.size() || !Rows[at].Enabled || Rows[at].IsSeparator) {
        return;
    }
    const int number = Rows[at].Number;
    const WindowHandle list = Host.State.OpenList;
    if (Host.State.Menus.BarMenu) {
        static_cast<void>(Host.Navigation.ChooseCommand(number)); // the shell knows whether it still can be
        Host.Navigation.CloseBarMenu();
    } else if (Host.State.Menus.Tracked) {
        static_cast<void>(Host.Navigation.ChooseTracked(number)); // the same
    } else if (const shell::ControlState& control = *Host.State.Tree.FindControl(list); shell::IsPicker(control.Kind)) {
        Host.ControlActions.Pick(list, MoveDays(control.Time, number));
        Host.ControlActions.CloseList(list);
    } else {
        Host.ControlActions.Choose(list, number);
    }
}

void Popup::Scroll(int rows) {
    Refresh();
    First =
        rows > 0 ? First - std::min(First, static_cast<std::size_t>(rows)) : First + static_cast<std::size_t>(-rows);
}

} // namespace tavo::bare
