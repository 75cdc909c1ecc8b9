// The appointments that touch one day, as a list.
#pragma once

#include "page/row_list.h"

namespace tavo {

// Who shows a day list, and is told when its rows changed.
class IDayListOwner {
  public:
    virtual void OnDayListLoaded() = 0;

  protected:
    ~IDayListOwner() = default;
};

// Its rows are in the order in which the store gave them; Mark is the running number. Records of a series are the
// series' own.
class CDayList : public CRowList {
  public:
    CDayList(CMessagePump& pump, CProgramState& state);

    // The day that the next Load is for. The list is scrolled to its first row.
    void SetDate(int year, int month, int day);
    // Fills the rows for the day, tells the owner (null: nobody), and repaints at once when the list is on show.
    void Load(IDayListOwner* owner);

    void SetTop(int row);

    // Up and Down scroll by a row. False for other keys.
    bool TakeKey(int key);

  protected:
    void PaintRow(int row, const Rect& area) override;

  private:
    void Fill();

    SYSTEMTIME Date; // at 00:00:00
};

} // namespace tavo
