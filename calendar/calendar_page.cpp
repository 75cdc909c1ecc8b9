// The month page's life: its dates, its day list and its question to the store.
#include "calendar/calendar_page.h"

#include "calendar/calendar_page_look.h"
#include "calendar/clock_page.h"
#include "framework/format.h"
#include "res/dialog_templates.h"
#include "res/resource_ids.h"
#include "res/strings.h"
#include "store/date_pictures.h"
#include "store/midnight.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tavo {

namespace {

constexpr Rect kDayListPlace = Rect::FromSize(0, 30, 240, 210);
constexpr Rect kScrollBarPlace = Rect::FromSize(222, 31, 15, 207);
constexpr int kNewDayPeriod = 10 * 60 * 1000; // milliseconds
constexpr std::u16string_view kMonthRestriction = u"[Start] >= %s and [Start] <= %s and [End] >= %s\n";

} // namespace

CCalendarPage::CCalendarPage(CMessagePump& pump, CProgramState& state, IMainView& view)
    : CItemPage(pump, state, view, kCalendarPageTemplate, kMenuPage),
      TodayButton(kBitmapToday, kTodayButton, kTodayHit, TodayPressed, TodayTracking), DayList(pump, state) {}

const MessageMap& CCalendarPage::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&CCalendarPage::TakeStylusDown>(WM_LBUTTONDOWN),
        On<&CCalendarPage::TakeStylusMove>(WM_MOUSEMOVE),
        On<&CCalendarPage::TakeStylusUp>(WM_LBUTTONUP),
        On<&CCalendarPage::TakeKeyDown>(WM_KEYDOWN),
        OnTimer<&CCalendarPage::TakeNewDay>(kTimerNewDay),
        OnScroll<&CCalendarPage::TakeScroll>(kCalendarScrollBar),
        OnCommand<&CCalendarPage::PassLeftToDayList>(kCommandDayListLeft),
        OnCommand<&CCalendarPage::AddMemo>(kCommandAddMemo),
        OnCommandRange<&CCalendarPage::ViewItem>(kCommandFirstAlarm, kCommandLastAlarm),
        OnCommandRange<&CCalendarPage::ViewItem>(kCommandFirstHoliday, kCommandLastHoliday),
        OnCommandRange<&CCalendarPage::ViewItem>(kCommandFirstAnniversary, kCommandLastAnniversary),
        OnCommandRange<&CCalendarPage::ViewItem>(kCommandFirstSchedule, kCommandLastSchedule),
        OnCommandRange<&CCalendarPage::OpenMemo>(kCommandFirstMemo, kCommandLastMemo),
    };
    static const MessageMap map{entries, &CItemPage::Messages()};
    return map;
}

void CCalendarPage::OnInitDialog() {
    IsAnalog = ReadIsAnalog(Host().Registry());
    SetToday();
    // Without its window the list still holds the day.
    static_cast<void>(DayList.CreateOn(Handle(), kDayListPlace));
    ShowItem(kCalendarScrollBar, false);
    MoveItem(kCalendarScrollBar, kScrollBarPlace);
    ReloadDayList();
    AwaitNewDay();
}

// The sooner of midnight and a while: the clock may be set, and a device that sleeps counts no time.
void CCalendarPage::AwaitNewDay() {
    const SYSTEMTIME now = Host().Clock().GetLocalTime();
    const int secondsLeft = kSecondsPerDay - (now.Hour * 60 + now.Minute) * 60 - now.Second;
    Host().Windows().SetTimer(Handle(), kTimerNewDay, std::min(secondsLeft * 1000, kNewDayPeriod));
}

// A hidden page does the same when it comes on show.
void CCalendarPage::TakeNewDay() {
    if (PaintedToday != Today()) {
        FullPaint = SelectionChanged = true;
        Invalidate();
    }
    AwaitNewDay();
}

void CCalendarPage::RepaintAll() {
    FullPaint = true;
    SelectionChanged = true;
    MonthChanged = true;
}

void CCalendarPage::RebuildAll() {
    RepaintAll();
    ReloadDayList();
    Invalidate();
}

void CCalendarPage::OpenFromPageBar() {
    if (State.ShowsFirstHint) { // where the profile cannot be written it is shown again
        static_cast<void>(Host().Registry().WriteProfileInt(kHelpSection, kHintSeen, 1));
    }
    FullPaint = true;
    if (PaintedToday != Today()) {
        SelectionChanged = true; // midnight passed while another page was on show
    }
    Invalidate();
}

void CCalendarPage::SetToday() {
    const CalendarDate today = Today();
    DisplayedYear = SelectedYear = today.Year;
    DisplayedMonth = SelectedMonth = today.Month;
    DisplayedDay = SelectedDay = today.Day;
    State.SetFebruary(today.Year);
    ComputeGrid();
}

// Whenever another month is shown, not only when it is painted: a tap may come before that.
void CCalendarPage::ComputeGrid() {
    const CalendarDate first{DisplayedYear, DisplayedMonth, 1};
    const int firstWeekday = WeekdayOf(first);
    DayGrid = ComputeDayGrid(firstWeekday, LengthOf(MonthBefore(first).Month), LengthOf(DisplayedMonth));
    GridStart = AutomationDate(first) - firstWeekday;
}

bool CCalendarPage::IsDay(const CalendarDate& date) const {
    const SYSTEMTIME midnight = MidnightOf(date.Year, date.Month, date.Day);
    DATE converted = 0;
    return date.Year >= kLowestYear && date.Year <= kHighestYear &&
           Host().Locale().SystemTimeToVariantTime(midnight, converted);
}

int CCalendarPage::LengthOf(int month) const {
    return State.DaysInMonth[static_cast<std::size_t>(month - 1)];
}

void CCalendarPage::SelectDay(CalendarDate date) {
    SelectedYear = date.Year;
    SelectedMonth = date.Month;
    SelectedDay = date.Day;
}

void CCalendarPage::SelectAndShow(const CalendarDate& date) {
    SelectDay(date);
    MonthChanged = MonthChanged || date.Year != DisplayedYear || date.Month != DisplayedMonth;
    DisplayedYear = date.Year;
    DisplayedMonth = date.Month;
    DisplayedDay = date.Day;
    State.SetFebruary(DisplayedYear);
    ComputeGrid();
    SelectionChanged = true;
    FullPaint = true;
}

void CCalendarPage::GoTo(const CalendarDate& date) {
    if (IsDay(date)) {
        SelectAndShow(date);
        ReloadDayList();
        Invalidate();
    }
}

void CCalendarPage::ReloadDayList() {
    DayList.SetDate(SelectedYear, SelectedMonth, SelectedDay);
    DayListLags = true;
    if (DayListShown) {
        LoadedDayList();
    }
}

CDayList& CCalendarPage::LoadedDayList() {
    if (std::exchange(DayListLags, false)) {
        DayList.Load(this);
    }
    return DayList;
}

void CCalendarPage::OnDayListLoaded() {
    Host().Controls().SetScrollInfo(Item(kCalendarScrollBar), {0, DayList.MaximumTop(), DayList.Top()});
}

CalendarDate CCalendarPage::Today() const {
    const SYSTEMTIME now = Host().Clock().GetLocalTime();
    return {now.Year, now.Month, now.Day};
}

int CCalendarPage::WeekdayOf(const CalendarDate& date) const {
    SYSTEMTIME time;
    // Only dates of the grid are asked for, and all of them convert.
    static_cast<void>(Host().Locale().VariantTimeToSystemTime(AutomationDate(date), time));
    return time.DayOfWeek;
}

DATE CCalendarPage::AutomationDate(const CalendarDate& date) const {
    DATE result = 0;
    // An impossible date (the 31st of a short month) gives day zero, which lies outside every grid.
    static_cast<void>(Host().Locale().SystemTimeToVariantTime(MidnightOf(date.Year, date.Month, date.Day), result));
    return result;
}

// A day that its month does not have counts as the nearest one that it has.
CalendarDate CCalendarPage::DayBeside(CalendarDate date, int days) const {
    date.Day = std::clamp(date.Day, 1, LengthOf(date.Month));
    SYSTEMTIME time;
    if (!Host().Locale().VariantTimeToSystemTime(AutomationDate(date) + days, time)) {
        return date; // there is no day beyond
    }
    return {time.Year, time.Month, time.Day};
}

CalendarDate CCalendarPage::DateAt(int row, int column) const {
    const int number = DayGrid[CellAt(row, column)];
    return DateOfCell(row, number, DisplayedYear, DisplayedMonth);
}

std::u16string CCalendarPage::ShortDate(DATE date) const {
    SYSTEMTIME time;
    if (!Host().Locale().VariantTimeToSystemTime(date, time)) {
        return {};
    }
    return Host().Locale().GetDateFormatW(LocaleId::System, time, kPictureShortDate, kShortDateBuffer).value_or(u"");
}

// An appointment that began before the month before is not asked for, even if it still runs: none lasts that long.
void CCalendarPage::QueryMonth() {
    const CalendarDate previousMonth = MonthBefore({DisplayedYear, DisplayedMonth, 1});
    MonthItems = State.Store.QueryAppointments(FormatText(kMonthRestriction, ShortDate(AutomationDate(previousMonth)),
                                                          ShortDate(GridStart + kGridCells), ShortDate(GridStart)));
}

} // namespace tavo
