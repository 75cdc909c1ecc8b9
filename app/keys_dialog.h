// The help page: what each key does.
#pragma once

#include "framework/dialog.h"
#include "res/dialog_templates.h"
#include "store/program_state.h"

namespace tavo {

class CKeysDlg : public CDialog {
  public:
    CKeysDlg(CMessagePump& pump, CProgramState& state) : CDialog(pump, kKeysTemplate), State(state) {}

  protected:
    void OnInitDialog() override;
    void Paint() override;

  private:
    CProgramState& State;
};

} // namespace tavo
