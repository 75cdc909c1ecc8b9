// What the lists of items have in common: their rows, how far they are scrolled, and painting row by row.
#pragma once

#include "framework/painted_window.h"
#include "store/program_state.h"

#include <string_view>
#include <vector>

namespace tavo {

struct RowListLook {
    Size Extent;
    int RowHeight = 0; // pixels
    int VisibleRows = 0;
    std::u16string_view EmptyText; // in place of the rows when there are none
    Color EmptyInk;
};

class CRowList : public CPaintedWindow {
  public:
    CRowList(CMessagePump& pump, CProgramState& state, const RowListLook& look);

    // Makes the list, hidden, in the parent's pixels. False when the device cannot make it.
    bool CreateOn(WindowHandle parent, const Rect& bounds);

    const std::vector<AppointmentData>& Rows() const { return Records; }

    int Count() const { return static_cast<int>(Records.size()); }

    // The first row shown.
    int Top() const { return TopRow; }

    // The largest useful first row: with it the last row is fully shown.
    int MaximumTop() const;

  protected:
    void RepaintAll() override {}

    void Paint() override;

    // Draws one row and declares it.
    virtual void PaintRow(int row, const Rect& area) = 0;

    void DrawSeparators(const Rect& area);

    CProgramState& State;
    std::vector<AppointmentData> Records;
    int TopRow = 0;

  private:
    RowListLook OwnLook;
};

} // namespace tavo
