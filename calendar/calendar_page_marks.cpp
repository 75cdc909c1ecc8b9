// The marks of the month: which days each appointment touches, and what it leaves there.
#include "calendar/calendar_page.h"

#include "calendar/calendar_page_look.h"
#include "framework/format.h"

#include <array>
#include <cstddef>

namespace tavo {

namespace {

constexpr int kMarkWidth = 5;

struct Mark {
    int Offset; // from the first mark
    Color Ink;
};

// By ItemKind; the memo's mark stands apart, at the right.
constexpr std::array<Mark, 4> kMarks{{
    {0, kAlarmMark},
    {6, kHolidayMark},
    {12, kAnniversaryMark},
    {18, kAppointmentMark},
}};

} // namespace

void CCalendarPage::MarkMonth() {
    if (MonthChanged) {
        QueryMonth();
    }
    if (!MonthItems) {
        return;
    }
    ILocale& locale = Host().Locale();
    ComPtr<IAppointment> item;
    for (std::int32_t index = 1; Succeeded(MonthItems->Item(index, item)) && item; ++index) {
        DATE start = 0;
        DATE end = 0;
        Oid oid = 0;
        SYSTEMTIME startTime;
        SYSTEMTIME endTime;
        if (Failed(item->get_Start(start)) || Failed(item->get_End(end)) || Failed(item->get_Oid(oid))) {
            continue;
        }
        // The months beside are in the collection too; a day is room enough for any rounding.
        const bool isNearGrid = end >= GridStart - 1 && start <= GridStart + kGridCells + 1;
        if (isNearGrid && locale.VariantTimeToSystemTime(start, startTime) &&
            locale.VariantTimeToSystemTime(end, endTime)) {
            MarkAppointment(startTime, endTime, oid);
        }
    }
}

void CCalendarPage::MarkAppointment(const SYSTEMTIME& start, const SYSTEMTIME& end, Oid oid) {
    const DATE startDay = AutomationDate({start.Year, start.Month, start.Day});
    int days = static_cast<int>(AutomationDate({end.Year, end.Month, end.Day}) - startDay);
    if (start.Hour == end.Hour && start.Minute == end.Minute && days > 0) {
        --days; // it ends as the day begins that would be its last
    }
    for (int day = 0; day <= days; ++day) {
        const DATE date = startDay + day;
        if (date < GridStart) {
            continue;
        }
        // The grid starts on a Sunday, so the days since then are the cell.
        const auto cell = static_cast<std::size_t>(date - GridStart);
        if (cell >= kGridCells) {
            break;
        }
        MarkDay(cell, oid);
    }
}

void CCalendarPage::MarkDay(std::size_t cell, Oid oid) {
    const CalendarDate date =
        DateOfCell(static_cast<int>(cell) / kGridColumns, DayGrid[cell], DisplayedYear, DisplayedMonth);
    if (date.Day == 0) {
        return; // beyond the calendar's end the cell stays blank
    }
    const Rect& rect = CellRect[cell];
    const int left = rect.Left + kCellIndent;
    if (State.Categories.IsHoliday(oid)) {
        const FontHandle font = date.Month == DisplayedMonth ? State.Fonts.FontArial10Bold : State.Fonts.FontArial9Bold;
        Surface().DrawTextW(FormatText(u"%d", DayGrid[cell]), {left, rect.Top, rect.Right, rect.Bottom},
                            {font, kHolidayNumber, DT_SINGLELINE});
    }
    const ItemKind kind = State.Categories.KindOf(oid);
    if ((CellKinds[cell] & KindBit(kind)) != 0) {
        return; // the same mark again would change nothing
    }
    const Mark& mark = kMarks[static_cast<std::size_t>(kind)];
    Surface().FillRect({left + mark.Offset, rect.Bottom - kMarkHeight, left + mark.Offset + kMarkWidth, rect.Bottom},
                       mark.Ink);
    CellKinds[cell] = static_cast<std::uint8_t>(CellKinds[cell] | KindBit(kind));
}

} // namespace tavo
