// How the month page is painted, step by step in drawing order.
#include "calendar/calendar_page.h"

#include "calendar/calendar_page_look.h"
#include "framework/format.h"
#include "memo/memo_files.h"
#include "res/resource_ids.h"
#include "store/date_pictures.h"
#include "store/midnight.h"

#include <utility>

namespace tavo {

namespace {

constexpr Rect kHeaderArea{0, 0, 205, 42};
constexpr Rect kHeaderText{20, 5, 220, 30};
constexpr Rect kHintPlace{6, 30, 205, 42};
constexpr Color kHintInk = Color::FromRgb(104, 104, 104);
constexpr std::u16string_view kFirstHint = u"Tap a day, + on Schedule, or Tools > Import";
constexpr Point kWeekdayStrip{0, 42};
constexpr Size kWeekdayStripSize{240, 16};
constexpr Point kBottomStrip{0, 215};
constexpr Size kBottomStripSize{240, 26};
constexpr Point kEraserOffset{1, 21};
constexpr Size kEraserSize{32, 5};
constexpr int kMemoMarkLeft = 26; // from the cell's left edge
constexpr int kMemoMarkRight = 31;
constexpr int kGridLineRight = 236;
constexpr Pen kGridPen{kGridLine, 1};

constexpr std::array<std::pair<ItemKind, std::u16string_view>, 5> kKindWords{{
    {ItemKind::Alarm, u"alarm"},
    {ItemKind::Holiday, u"holiday"},
    {ItemKind::Anniversary, u"anniversary"},
    {ItemKind::Appointment, u"appointment"},
    {ItemKind::Memo, u"memo"},
}};

} // namespace

void CCalendarPage::Paint() {
    DropPainted();
    if (FullPaint) {
        PaintChrome();
    }
    const std::u16string header = PaintHeader();
    if (FullPaint && (MonthChanged || SelectionChanged)) {
        Host().Windows().SetCursor(Cursor::Wait);
        PaintGrid();
        if (MonthChanged) {
            DeclareContents(header);
            PresentSurface(); // the bare grid shows before the marks
            DropPainted();
        }
        MarkMonth();
        Host().Windows().SetCursor(Cursor::Arrow);
    }
    DeclareContents(header);
    PresentSurface();
    if (DayListShown) {
        ShowItem(kCalendarScrollBar, true);
        DayList.Show(ShowCommand::Show);
        DayList.Invalidate();
    }
    FullPaint = false;
    SelectionChanged = false;
    MonthChanged = false;
}

void CCalendarPage::PaintChrome() {
    if (FirstPaint) {
        Surface().FillRect(Rect::Whole(kPageSurface), kPageBackground);
    }
    DrawPageBar();
    Surface().DrawBitmap(kBitmapWeekdays, kWeekdayStrip, Rect::Whole(kWeekdayStripSize));
    Surface().DrawBitmap(kBitmapBottomStrip, kBottomStrip, Rect::Whole(kBottomStripSize));
}

std::u16string CCalendarPage::PaintHeader() {
    Surface().FillRect(kHeaderArea, kPageBackground);
    const SYSTEMTIME date = MidnightOf(SelectedYear, SelectedMonth, SelectedDay);
    std::u16string text =
        Host().Locale().GetDateFormatW(LocaleId::User, date, kPictureHeaderDate, kHeaderDateBuffer).value_or(u"");
    Surface().DrawTextW(text, kHeaderText,
                        {State.Fonts.FontComic13Bold, kHeaderDate, DT_CENTER | DT_VCENTER | DT_SINGLELINE});
    if (State.ShowsFirstHint) {
        Surface().DrawTextW(kFirstHint, kHintPlace, {State.Fonts.FontArial7, kHintInk, DT_VCENTER | DT_SINGLELINE});
    }
    TodayButton.Draw(Surface());
    return text;
}

void CCalendarPage::PaintGrid() {
    const CalendarDate today = Today();
    PaintedToday = today;
    CellKinds.fill(0);
    RedNumbers.reset();
    MemoDays memos(State);
    for (int row = 0; row < kGridRows; ++row) {
        for (int column = 0; column < kGridColumns; ++column) {
            CellRect[CellAt(row, column)] = RectOfCell(row, column);
            PaintCell(row, column, today, memos);
        }
    }
    PaintGridLines();
}

void CCalendarPage::PaintCell(int row, int column, const CalendarDate& today, MemoDays& memos) {
    const auto cell = CellAt(row, column);
    const Rect& rect = CellRect[cell];
    const CalendarDate date = DateAt(row, column);
    if (date.Day == 0) {
        Surface().FillRect(rect, kPageBackground);
        return;
    }
    const bool isSelected = date == SelectedDate();
    const bool isInMonth = date.Month == DisplayedMonth;
    Color background = date == today ? kTodayBackground : kPageBackground;
    Color number = column == 0 ? kSundayNumber : column == kGridColumns - 1 ? kSaturdayNumber : kWeekdayNumber;
    FontHandle font = State.Fonts.FontArial10Bold;
    if (isSelected) {
        background = kSelectedBackground;
        number = kSelectedNumber;
    } else if (!isInMonth) {
        number = kOtherMonthNumber;
        font = State.Fonts.FontArial9Bold;
    }
    Surface().FillRect(rect, background);
    Surface().DrawBitmap(kBitmapMarkEraser, {rect.Left + kEraserOffset.X, rect.Top + kEraserOffset.Y},
                         Rect::Whole(kEraserSize));
    if (memos.Has(date.Year, date.Month, date.Day)) {
        Surface().FillRect(
            {rect.Left + kMemoMarkLeft, rect.Bottom - kMarkHeight, rect.Left + kMemoMarkRight, rect.Bottom}, kMemoMark);
        CellKinds[cell] = KindBit(ItemKind::Memo);
    }
    Surface().DrawTextW(FormatText(u"%d", date.Day), {rect.Left + kCellIndent, rect.Top, rect.Right, rect.Bottom},
                        {font, number, DT_SINGLELINE});
}

// No line runs along the top: the weekday strip ends there.
void CCalendarPage::PaintGridLines() {
    for (int row = 1; row <= kGridRows; ++row) {
        const int y = kGridTop + row * kCellHeight;
        Surface().DrawLine({kGridLeft, y}, {kGridLineRight, y}, kGridPen);
    }
    for (int column = 0; column <= kGridColumns; ++column) {
        const int x = kGridLeft + column * kCellWidth;
        Surface().DrawLine({x, kGridTop}, {x, kGridBottom}, kGridPen);
    }
}

void CCalendarPage::DeclareContents(const std::u16string& header) {
    Declare({kHeaderText, PaintedRole::Header, header});
    if (State.ShowsFirstHint) {
        Declare({kHintPlace, PaintedRole::Text, std::u16string(kFirstHint)});
    }
    Declare(TodayButton.Describe(u"Today"));
    const CalendarDate today = Today();
    for (int row = 0; row < kGridRows; ++row) {
        for (int column = 0; column < kGridColumns; ++column) {
            const auto cell = CellAt(row, column);
            const CalendarDate date = DateAt(row, column);
            if (date.Day == 0) {
                continue;
            }
            PaintedItem item;
            item.Bounds = CellRect[cell];
            item.Role = PaintedRole::Cell;
            item.Name = NameOfCell(cell, date);
            item.Id = static_cast<int>(cell);
            item.Selected = date == SelectedDate();
            item.Description = DescribeDay(date, today);
            Declare(std::move(item));
        }
    }
    DeclarePageBar();
}

// What a sighted person takes from the column and the frame.
std::u16string CCalendarPage::DescribeDay(const CalendarDate& date, const CalendarDate& today) const {
    constexpr std::array<std::u16string_view, kGridColumns> weekdays{u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                                                     u"Thursday", u"Friday", u"Saturday"};
    const std::u16string day(weekdays[static_cast<std::size_t>(WeekdayOf(date))]);
    return date == today ? day + u", today" : day;
}

std::u16string CCalendarPage::NameOfCell(std::size_t cell, const CalendarDate& date) const {
    std::u16string name = FormatText(u"%d-%02d-%02d", date.Year, date.Month, date.Day);
    std::u16string_view separator = u": ";
    for (const auto& [kind, word] : kKindWords) {
        // A holiday that is something else too may show by its red number alone.
        const bool isRed = kind == ItemKind::Holiday && RedNumbers.test(cell);
        if (isRed || (CellKinds[cell] & KindBit(kind)) != 0) {
            name += separator;
            name += word;
            separator = u", ";
        }
    }
    return name;
}

} // namespace tavo
