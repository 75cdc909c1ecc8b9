// The Schedule page.
#pragma once

#include "schedule/main_page.h"

namespace tavo {

class CSchedulePage : public CMainPage {
  public:
    CSchedulePage(CMessagePump& pump, CProgramState& state, IMainView& view);

    // Appointments or category lists changed.
    void RefillLists() { Invalidate(); }

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    void Paint() override;
};

} // namespace tavo
