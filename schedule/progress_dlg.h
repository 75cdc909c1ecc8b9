// Shows how far a long deletion is, and lets it be cancelled.
#pragma once

#include "framework/dialog.h"
#include "schedule/mass_deletion.h"
#include "store/sliced_work.h"

namespace tavo {

// DoModal gives IDOK when all is deleted, IDCANCEL when it was cancelled: the opener then takes it back.
class CProgressDlg : public CDialog, private ISlicedWork {
  public:
    CProgressDlg(CMessagePump& pump, CProgramState& state, MassDeletion& deletion);
    ~CProgressDlg() override;

  protected:
    void OnInitDialog() override;

    // Only the work itself ends it well.
    void OnOK() override {}

    void Paint() override;

  private:
    void DoSlice() override;

    CProgramState& State;
    MassDeletion& Deletion;
};

} // namespace tavo
