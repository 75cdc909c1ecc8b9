// The Settings page.
#pragma once

#include "schedule/main_page.h"

namespace tavo {

class CSettingsPage : public CMainPage {
  public:
    CSettingsPage(CMessagePump& pump, CProgramState& state, IMainView& view);

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    void Paint() override;
};

} // namespace tavo
