// Shows how far long work is, and lets it be cancelled.
#pragma once

#include "framework/dialog.h"
#include "store/long_work.h"
#include "store/program_state.h"
#include "store/sliced_work.h"

#include <string_view>

namespace tavo {

// What is done one by one: the work itself, or its way back.
using WorkStep = bool (ILongWork::*)();

// DoModal gives IDOK when all is done, IDCANCEL when it was cancelled: the opener then takes it back.
class CProgressDlg : public CDialog, private ISlicedWork {
  public:
    CProgressDlg(CMessagePump& pump, CProgramState& state, ILongWork& work, WorkStep step, std::u16string_view caption);
    ~CProgressDlg() override;

  protected:
    void OnInitDialog() override;

    // Only the work itself ends it well.
    void OnOK() override {}

    void Paint() override;

  private:
    void DoSlice() override;

    CProgramState& State;
    ILongWork& Work;
    WorkStep Step;
    std::u16string Caption;
};

// Does the work in one go where that is quick, else with such a display. What was cancelled is taken back.
void RunLongWork(CMessagePump& pump, CProgramState& state, ILongWork& work, std::u16string_view caption);

} // namespace tavo
