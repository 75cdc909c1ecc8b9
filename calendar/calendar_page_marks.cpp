// The marks of the month: which days each appointment touches, and what it leaves there.
#include "calendar/calendar_page.h"

#include "calendar/calendar_page_look.h"
#include "framework/format.h"

#include <algorithm>
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

constexpr int kAllMarks = KindBit(ItemKind::Alarm) | KindBit(ItemKind::Holiday) | KindBit(ItemKind::Anniversary) |
                          KindBit(ItemKind::Appointment);

} // namespace

void CCalendarPage::MarkMonth() {
    if (MonthChanged) {
        QueryMonth();
    }
    if (!MonthItems) {
        return;
    }
    ComPtr<IAppointment> item;
    for (std::int32_t index = 1; Succeeded(MonthItems->Item(index, item)) && item; ++index) {
        DATE start = 0;
        DATE end = 0;
        Oid oid = 0;
        if (Failed(item->get_Start(start)) || Failed(item->get_End(end)) || Failed(item->get_Oid(oid))) {
            continue;
        }
        // The months beside are in the collection too; a day is room enough for any rounding.
        if (end >= GridStart - 1 && start <= GridStart + kGridCells + 1) {
            MarkAppointment(SplitDate(start), SplitDate(end), oid);
        }
    }
}

void CCalendarPage::MarkAppointment(const DayMinute& start, const DayMinute& end, Oid oid) {
    int days = end.Day - start.Day;
    if (start.Minute == end.Minute && days > 0) {
        --days; // it ends as the day begins that would be its last
    }
    // The grid starts on a Sunday, so the days since then are the cell.
    const int first = start.Day - static_cast<int>(GridStart);
    const int last = std::min(first + days, kGridCells - 1);
    for (int cell = std::max(first, 0); cell <= last; ++cell) {
        MarkDay(static_cast<std::size_t>(cell), oid);
    }
}

void CCalendarPage::MarkDay(std::size_t cell, Oid oid) {
    if ((CellKinds[cell] & kAllMarks) == kAllMarks && RedNumbers.test(cell)) {
        return; // nothing is left that an item could add
    }
    const CalendarDate date =
        DateOfCell(static_cast<int>(cell) / kGridColumns, DayGrid[cell], DisplayedYear, DisplayedMonth);
    if (date.Day == 0) {
        return; // beyond the calendar's end the cell stays blank
    }
    const Rect& rect = CellRect[cell];
    const int left = rect.Left + kCellIndent;
    const ItemKind kind = State.Categories.KindOf(oid);
    // Once: the same number again would grow bolder at its edges. An alarm may be a holiday too.
    if (!RedNumbers.test(cell) && kind != ItemKind::Appointment && State.Categories.IsHoliday(oid)) {
        RedNumbers.set(cell);
        const FontHandle font = date.Month == DisplayedMonth ? State.Fonts.FontArial10Bold : State.Fonts.FontArial9Bold;
        Surface().DrawTextW(FormatText(u"%d", DayGrid[cell]), {left, rect.Top, rect.Right, rect.Bottom},
                            {font, kHolidayNumber, DT_SINGLELINE});
    }
    if ((CellKinds[cell] & KindBit(kind)) != 0) {
        return; // the same mark again would change nothing
    }
    const Mark& mark = kMarks[static_cast<std::size_t>(kind)];
    Surface().FillRect({left + mark.Offset, rect.Bottom - kMarkHeight, left + mark.Offset + kMarkWidth, rect.Bottom},
                       mark.Ink);
    CellKinds[cell] = static_cast<std::uint8_t>(CellKinds[cell] | KindBit(kind));
}

} // namespace tavo
