// The Settings page: deleting whole classes of items.
#pragma once

#include "page/main_page.h"
#include "settings/mass_deletion.h"

namespace tavo {

class CSettingsPage : public CMainPage {
  public:
    CSettingsPage(CMessagePump& pump, CProgramState& state, IMainView& view);

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

    // Comes on show, with the numbers of now.
    void Open();
    // Appointments or category lists changed.
    void TakeChange();

  protected:
    void OnInitDialog() override;
    void Paint() override;

  private:
    struct DeletionOutcome {
        bool IsRefused = false;    // nothing is deleted
        bool IsIncomplete = false; // a memo could not be brought back
    };

    void Recount();
    void DeleteChecked();
    DeletionOutcome Delete(const DeletionClasses& classes);
    DeletionClasses ReadClasses() const;

    bool IsChecked(int box) const { return Host().Controls().GetCheck(Item(box)); }
};

} // namespace tavo
