// The month page: a grid of days with a mark for each kind of item, and a selected day.
#pragma once

#include "calendar/day_list.h"
#include "calendar/day_menu.h"
#include "calendar/month_grid.h"
#include "framework/drawn_button.h"
#include "page/item_page.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tavo {

class MemoDays;

class CCalendarPage : public CItemPage, private IDayListOwner {
  public:
    CCalendarPage(CMessagePump& pump, CProgramState& state, IMainView& view);

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

    // Appointments or category lists changed: asks the store again and repaints.
    void RebuildAll();
    // The page comes on show: repaints whole, with what changed while it was hidden.
    void OpenFromPageBar();

    // Selects a day of the years that the calendar shows, in its month.
    void GoTo(const CalendarDate& date);

    CalendarDate SelectedDate() const { return {SelectedYear, SelectedMonth, SelectedDay}; }

    // Whether there is such a day; by keys one that does not exist can be selected.
    bool IsDay(const CalendarDate& date) const;

  protected:
    void OnInitDialog() override;
    void Paint() override;
    void RepaintAll() override;

  private:
    // calendar_page.cpp
    void SetToday();
    int LengthOf(int month) const; // in days
    void ComputeGrid();
    void SelectDay(CalendarDate date);
    void SelectAndShow(const CalendarDate& date);
    // Gives the day list the selected day. It reads the day when somebody asks for its rows: nobody sees it before.
    void ReloadDayList();
    CDayList& LoadedDayList();
    void OnDayListLoaded() override;
    CalendarDate Today() const;
    void AwaitNewDay();
    void TakeNewDay();
    int WeekdayOf(const CalendarDate& date) const; // 0 Sunday
    DATE AutomationDate(const CalendarDate& date) const;
    CalendarDate DayBeside(CalendarDate date, int days) const;
    CalendarDate DateAt(int row, int column) const;
    void QueryMonth();
    std::u16string ShortDate(DATE date) const;

    // calendar_page_paint.cpp
    void PaintChrome();
    // Gives its text.
    std::u16string PaintHeader();
    void PaintGrid();
    void PaintCell(int row, int column, const CalendarDate& today, MemoDays& memos);
    void PaintGridLines();
    void DeclareContents(const std::u16string& header);
    std::u16string DescribeDay(const CalendarDate& date, const CalendarDate& today) const;
    std::u16string NameOfCell(std::size_t cell, const CalendarDate& date) const;

    // calendar_page_marks.cpp
    void MarkMonth();
    void MarkAppointment(const DayMinute& start, const DayMinute& end, Oid oid);
    void MarkDay(std::size_t cell, Oid oid);

    // calendar_page_input.cpp
    void TakeStylusDown(Point point);
    void TakeGridPress(Point point);
    void TakeStylusMove(Point point);
    void TakeStylusUp(Point point);
    void TakeKeyDown(const Message& key);
    bool MoveDisplayedDate(int key);
    void ShowMonth(CalendarDate month);
    bool MoveSelectedDate(int key);
    void OpenSelectedDay();
    void TakeScroll(const Message& scroll);
    void PassLeftToDayList();

    // calendar_page_day_menu.cpp
    void ShowDayMenu(); // at TapPoint
    MenuPlace PlaceOfMenu() override;
    void ViewItem(int command);
    void OpenMemo(int command);
    void AddMemo();

    int DisplayedYear = 0;
    int DisplayedMonth = 0;
    int DisplayedDay = 0;
    int SelectedYear = 0;
    int SelectedMonth = 0;
    int SelectedDay = 0;
    std::array<int, kGridCells> DayGrid{};
    std::array<Rect, kGridCells> CellRect{};
    std::array<std::uint8_t, kGridCells> CellKinds{}; // a bit for each kind of item marked in the cell
    std::bitset<kGridCells> RedNumbers;               // of the cells whose number is drawn as a holiday's

    bool FullPaint = true;
    bool SelectionChanged = true;
    bool MonthChanged = true;
    bool TodayPressed = false;
    bool TodayTracking = false;
    DrawnButton TodayButton;
    bool IsAnalog = true; // the clock's face; kept though the month does not show it
    bool DayListShown = false;
    bool DayListLags = false; // behind the selected day or the store
    Point TapPoint;
    CalendarDate PaintedToday;
    DATE GridStart = 0;
    ComPtr<IPOutlookItemCollection> MonthItems;
    CDayList DayList;
    DayMenu Day;
};

} // namespace tavo
