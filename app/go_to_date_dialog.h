// Asks for the day to go to.
#pragma once

#include "framework/dialog.h"
#include "store/program_state.h"

namespace tavo {

class CGoToDateDlg : public CDialog {
  public:
    // Begins with this day.
    CGoToDateDlg(CMessagePump& pump, CProgramState& state, const SYSTEMTIME& day);

    // After IDOK.
    const SYSTEMTIME& Chosen() const { return Day; }

  protected:
    void OnInitDialog() override;
    void OnOK() override;
    void Paint() override;

  private:
    CProgramState& State;
    SYSTEMTIME Day;
};

} // namespace tavo
