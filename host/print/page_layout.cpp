// Which pages a request makes, and the first days of weeks and months.
#include "host/print/page_layout.h"

#include "host/print/list_pages.h"
#include "host/print/month_page.h"

namespace tavo::print {

namespace {

constexpr DayNumber kDaysOfWeek = 7;

DayNumber FirstOfWeek(DayNumber day, int firstWeekday) {
    return day - (rules::WeekdayOf(day) - firstWeekday + kDaysOfWeek) % kDaysOfWeek;
}

DayNumber FirstOfMonth(DayNumber day) {
    return day - rules::CivilFromDay(day).Day + 1;
}

DayNumber LastOfMonth(DayNumber day) {
    constexpr DayNumber beyondMonth = 31;
    return FirstOfMonth(FirstOfMonth(day) + beyondMonth) - 1;
}

} // namespace

std::pair<DayNumber, DayNumber> DaysOf(const PrintRequest& request) {
    switch (request.Kind) {
    case PrintKind::Month:
        return {FirstOfWeek(FirstOfMonth(request.First), request.FirstWeekday),
                FirstOfWeek(LastOfMonth(request.First), request.FirstWeekday) + kDaysOfWeek - 1};
    case PrintKind::Week: {
        const DayNumber first = FirstOfWeek(request.First, request.FirstWeekday);
        return {first, first + kDaysOfWeek - 1};
    }
    case PrintKind::Day:
        return {request.First, request.First};
    default:
        return {request.First, request.Last};
    }
}

std::vector<PrintedPage> LayOutPages(const PrintRequest& request, const PrintedDays& days, const MemosOfDay& memos) {
    if (request.Kind == PrintKind::Month) {
        return {LayOutMonth(request, DaysOf(request), days)};
    }
    ListPages pages(request);
    const auto [first, last] = DaysOf(request);
    pages.AddTitle(request.Kind, first, last);
    for (DayNumber day = first; day <= last; ++day) {
        const auto found = days.find(day);
        const bool isEmpty = found == days.end();
        if (isEmpty && request.Kind == PrintKind::List) {
            continue;
        }
        if (request.Kind != PrintKind::Day) {
            pages.AddDay(day);
        }
        if (isEmpty) {
            pages.AddNothing();
            continue;
        }
        for (const PrintedEntry& entry : found->second) {
            pages.AddEntry(entry);
        }
    }
    if (request.Kind == PrintKind::List && days.empty()) {
        pages.AddNothing();
    }
    for (const std::vector<ink::PlacedStroke>& strokes : memos) {
        pages.AddInk(strokes);
    }
    return pages.Finish();
}

} // namespace tavo::print
