// What the stylus and the keys do on the month page.
#include "calendar/calendar_page.h"

#include "calendar/calendar_page_look.h"
#include "framework/scrolling.h"
#include "platform/device_paths.h"
#include "res/resource_ids.h"

#include <algorithm>
#include <optional>

namespace tavo {

namespace {

constexpr int kFirstYearBelow = 1901; // kept: going below this year lands on the lowest one
constexpr Rect kHeaderHit{31, 6, 195, 31};

// How far an arrow moves the selected day; nothing for other keys.
std::optional<int> DaysOfKey(int key) {
    switch (key) {
    case VK_LEFT:
        return -1;
    case VK_RIGHT:
        return 1;
    case VK_UP:
        return -kGridColumns;
    case VK_DOWN:
        return kGridColumns;
    default:
        return std::nullopt;
    }
}

} // namespace

void CCalendarPage::TakeStylusDown(Point point) {
    if (TakePageBarPress(point)) {
        return;
    }
    if (point.Y > kGridTop && point.Y < kGridBottom && !DayListShown) {
        TakeGridPress(point);
    } else if (kHeaderHit.Contains(point)) {
        // Not waited for, and a device without a clock program just does nothing.
        static_cast<void>(Host().Processes().CreateProcessW(kClockProgram, u""));
        FullPaint = true;
        MonthChanged = true;
    } else if (TodayButton.TakeDown(point)) {
        Invalidate(TodayButton.Place());
    }
}

void CCalendarPage::TakeGridPress(Point point) {
    const int column = (point.X - kGridLeft) / kCellWidth; // toward zero: x 0..3 is still Sunday
    if (column < 0 || column >= kGridColumns) {
        return;
    }
    SelectDay(DateAt((point.Y - kGridTop) / kCellHeight, column));
    ReloadDayList();
    SelectionChanged = true;
    FullPaint = true;
    TapPoint = point;
    Invalidate();
    ShowDayMenu();
}

void CCalendarPage::TakeStylusMove(Point point) {
    if (TodayButton.TakeMove(point)) {
        Invalidate(TodayButton.Place());
    }
}

void CCalendarPage::TakeStylusUp(Point point) {
    if (TodayButton.TakeUp(point)) {
        SetToday();
        ReloadDayList();
        FullPaint = true;
        MonthChanged = true;
        Invalidate();
    }
}

void CCalendarPage::TakeKeyDown(const Message& key) {
    if (TakePageKey(key)) {
        return;
    }
    if ((key.Code & kModifierControl) != 0 && MoveSelectedDate(key.Id)) {
        ReloadDayList();
        Invalidate();
        return;
    }
    if (MoveDisplayedDate(key.Id)) {
        SelectDay({DisplayedYear, DisplayedMonth, DisplayedDay});
        FullPaint = true;
        MonthChanged = true;
    }
    State.SetFebruary(DisplayedYear);
    // The selected day was taken before this and stays: a 31st may stand over a shorter month.
    DisplayedDay = std::min(DisplayedDay, LengthOf(DisplayedMonth));
    ComputeGrid();
    ReloadDayList();
    Invalidate();
    if (key.Id == VK_RETURN) {
        OpenSelectedDay();
    }
}

// By a day or a week; the grid follows into another month.
bool CCalendarPage::MoveSelectedDate(int key) {
    const std::optional<int> days = DaysOfKey(key);
    if (!days) {
        return false;
    }
    CalendarDate moved = DayBeside(SelectedDate(), *days);
    if (SelectedYear < kLowestYear) { // a blank cell of the first month was tapped, or of the last
        moved = {kLowestYear, kJanuary, 1};
    } else if (SelectedYear > kHighestYear) {
        moved = {kHighestYear, kDecember, LengthOf(kDecember)};
    } else if (moved.Year < kLowestYear || moved.Year > kHighestYear) {
        return true;
    }
    SelectAndShow(moved);
    return true;
}

// As if the selected cell were tapped in its middle. A day that its month lacks has no cell.
void CCalendarPage::OpenSelectedDay() {
    for (int row = 0; row < kGridRows; ++row) {
        for (int column = 0; column < kGridColumns; ++column) {
            if (DateAt(row, column) == SelectedDate()) {
                TapPoint = {kGridLeft + column * kCellWidth + kCellWidth / 2,
                            kGridTop + row * kCellHeight + kCellHeight / 2};
                ShowDayMenu();
                return;
            }
        }
    }
}

bool CCalendarPage::MoveDisplayedDate(int key) {
    switch (key) {
    case VK_LEFT:
        ShowMonth(MonthBefore({DisplayedYear, DisplayedMonth}));
        return true;
    case VK_UP:
        DisplayedYear = DisplayedYear - 1 < kFirstYearBelow ? kLowestYear : DisplayedYear - 1;
        return true;
    case VK_RIGHT:
        ShowMonth(MonthAfter({DisplayedYear, DisplayedMonth}));
        return true;
    case VK_DOWN:
        DisplayedYear = std::min(DisplayedYear + 1, kHighestYear);
        return true;
    default:
        return false;
    }
}

// Past its ends the calendar goes on to its last year, not to the last one whose neighbours it shows.
void CCalendarPage::ShowMonth(CalendarDate month) {
    if (month.Year < DisplayedYear && month.Year < kFirstYearBelow) {
        month = {kLowestYear, kJanuary};
    } else if (month.Year > DisplayedYear && month.Year >= kHighestYear) {
        month = {kHighestYear, kDecember};
    }
    DisplayedYear = month.Year;
    DisplayedMonth = month.Month;
}

void CCalendarPage::TakeScroll(const Message& scroll) {
    CDayList& list = LoadedDayList(); // which sets the bar
    const WindowHandle bar = Item(kCalendarScrollBar);
    ScrollInfo info = Host().Controls().GetScrollInfo(bar);
    const int top = std::clamp(ScrolledTop(scroll, list.Top()).value_or(list.Top()), 0, info.Maximum);
    if (top != list.Top()) {
        list.SetTop(top);
        info.Position = list.Top();
        Host().Controls().SetScrollInfo(bar, info);
        list.Invalidate();
    }
}

void CCalendarPage::PassLeftToDayList() {
    if (DayListShown) {
        DayList.TakeKey(VK_LEFT);
    }
}

} // namespace tavo
