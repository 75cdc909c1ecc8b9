// The appointments that touch one day, as a list.
#pragma once

#include "framework/painted_window.h"
#include "store/program_state.h"

#include <vector>

namespace tavo {

// Who shows a day list, and is told when its rows changed.
class IDayListOwner {
  public:
    virtual void OnDayListLoaded() = 0;

  protected:
    ~IDayListOwner() = default;
};

class CDayList : public CPaintedWindow {
  public:
    CDayList(CMessagePump& pump, CProgramState& state);

    // Makes the list, hidden, in the parent's pixels. False when the device cannot make it.
    bool CreateOn(WindowHandle parent, const Rect& bounds);

    // The day that the next Load is for. The list is scrolled to its first row.
    void SetDate(int year, int month, int day);
    // Fills the rows for the day, tells the owner (null: nobody), and repaints at once when the list is on show.
    void Load(IDayListOwner* owner);

    // In the order in which the store gave them; Mark is the running number. Records of a series are the series' own.
    const std::vector<AppointmentData>& Rows() const { return Records; }

    int Count() const { return static_cast<int>(Records.size()); }

    // The first row shown.
    int Top() const { return TopRow; }

    void SetTop(int row);
    // The largest useful first row: with it the last row is fully shown.
    int MaximumTop() const;

    // Up and Down scroll by a row. False for other keys.
    bool TakeKey(int key);

  protected:
    void RepaintAll() override {}

    void Paint() override;

  private:
    void Fill();
    void PaintRow(int row, int top);

    CProgramState& State;
    SYSTEMTIME Date; // at 00:00:00
    int TopRow = 0;
    std::vector<AppointmentData> Records;
};

} // namespace tavo
