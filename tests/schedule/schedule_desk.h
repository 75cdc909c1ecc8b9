// The Schedule page of the running program, and the words in which its tests work it.
#pragma once

#include "res/resource_ids.h"
#include "store/item_kind.h"
#include "tests/support/running_program.h"

#include <string>
#include <vector>

namespace tavo::test {

constexpr int kNoRow = -1;

class ScheduleDesk : public RunningProgram {
  public:
    // The device's clock stands on Wednesday, 3 November 2004, 17:10.
    ScheduleDesk() = default;
    using RunningProgram::RunningProgram;

    // Puts the item into the kind's list, as the program itself would.
    void Tag(ItemKind kind, Oid oid);
    // So many alarms, "Alarm 1" and on, at noon of days in a row from 4 November 2004.
    std::vector<Oid> GivenAlarms(int count);
    std::vector<Oid> ListOf(ItemKind kind);
    bool Exists(Oid oid);

    // Starts the program if it does not run, and shows this kind.
    void Show(ItemKind kind);

    std::vector<std::u16string> Rows() const; // as declared: heading and lines
    std::vector<std::u16string> Headings() const;
    int SelectedRow() const;
    std::vector<std::u16string> ListTexts(); // what is drawn in the list on show
    // The menu that is open, as "View...", "(Copy to Alarm)" where greyed, "-" for a separator.
    std::vector<std::u16string> OpenMenu();
    std::vector<std::u16string> Boxes(); // all message boxes so far, as "caption|text"
    ScrollInfo Bar();
    SYSTEMTIME Picked(int picker);
    void PickPeriodDate(int picker, int year, int month, int day); // from the open month calendar
    void LetNoticesArrive();                                       // half a second passes
    // Taps a row of one of the lists with four rows, and chooses from its menu.
    void ChooseInRow(int row, int command);
};

} // namespace tavo::test
