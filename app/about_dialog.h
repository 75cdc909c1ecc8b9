// The About dialog: the program's name and version.
#pragma once

#include "framework/dialog.h"
#include "store/program_state.h"

namespace tavo {

class CAboutDlg : public CDialog {
  public:
    CAboutDlg(CMessagePump& pump, CProgramState& state);

  protected:
    void Paint() override;

  private:
    CProgramState& State;
};

} // namespace tavo
