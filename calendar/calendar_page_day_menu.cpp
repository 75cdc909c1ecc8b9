// The selected day's menu, and what its commands do.
#include "calendar/calendar_page.h"

#include "memo/ink_memo_view.h"
#include "memo/memo_file_keeper.h"
#include "res/resource_ids.h"
#include "res/strings.h"
#include "store/midnight.h"

namespace tavo {

namespace {

constexpr int kRightHalf = 120; // from here the menu opens to the left of the tap
constexpr int kMenuBeside = 5;
constexpr int kMenuBelow = 29; // on the screen, where the page begins 26 lines down

} // namespace

void CCalendarPage::ShowDayMenu() {
    if (!IsDay(SelectedDate())) {
        return; // the 31st of a short month, or a blank cell: nobody would find a memo there again
    }
    Day.Fill(LoadedDayList().Rows(), State.Categories,
             MemoFiles(State).FindMemos(SelectedYear, SelectedMonth, SelectedDay));
    const MenuPlace place = PlaceOfMenu();
    if (const int command = Pump().TrackPopupMenu(Handle(), Day.Build(), place.At, place.Align)) {
        Post(WM_COMMAND, command, BN_CLICKED, kFromMenuOrKey);
    }
}

MenuPlace CCalendarPage::PlaceOfMenu() {
    const bool opensLeft = TapPoint.X >= kRightHalf;
    return {{TapPoint.X + (opensLeft ? -kMenuBeside : kMenuBeside), TapPoint.Y + kMenuBelow},
            opensLeft ? MenuAlign::Right : MenuAlign::Left};
}

void CCalendarPage::ViewItem(int command) {
    const AppointmentData* chosen = Day.ItemOf(command);
    if (chosen == nullptr) {
        return; // an entry past the 200th, where the next kind has none
    }
    ViewAndAct(*DayMenu::KindOfCommand(command), AppointmentData(*chosen), TimesOf::Series,
               MidnightOf(SelectedYear, SelectedMonth, SelectedDay));
}

void CCalendarPage::OpenMemo(int command) {
    const std::u16string* name = Day.MemoOf(command);
    if (name == nullptr) {
        return; // an entry past the 200th of another kind
    }
    MemoFileKeeper keeper(State);
    keeper.Path = MemoFiles(State).MemoPath(*name);
    if (!MemoFiles(State).ReadMemo(keeper.Path)) {
        Refuse(kMemoUnreadable);
        RepaintAll(); // its mark goes where its file went
        Invalidate();
        return;
    }
    CInkMemoView editor(Pump(), State);
    editor.Keeper = &keeper;
    editor.Home = keeper.Home();
    static_cast<void>(editor.DoModal()); // what it holds at OK is kept by then
}

void CCalendarPage::AddMemo() {
    if (!IsDay(SelectedDate())) {
        return; // a key came between the menu and its choice
    }
    MemoFileKeeper keeper(State);
    keeper.Year = SelectedYear;
    keeper.Month = SelectedMonth;
    keeper.Day = SelectedDay;
    State.Memo.Empty();
    CInkMemoView editor(Pump(), State);
    editor.Keeper = &keeper;
    editor.Home = keeper.Home();
    if (editor.DoModal() == IDOK && !State.Memo.IsEmpty()) {
        FullPaint = true;
        MonthChanged = true;
        Invalidate();
    }
}

} // namespace tavo
