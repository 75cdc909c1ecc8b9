// Finds items by their texts, as one types, and says which day to go to.
#pragma once

#include "app/found_list.h"
#include "framework/dialog.h"
#include "store/program_state.h"

#include <vector>

namespace tavo {

class CFindDlg : public CDialog, private IFoundListOwner {
  public:
    CFindDlg(CMessagePump& pump, CProgramState& state);

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

    // After IDOK: the day of what was chosen.
    const SYSTEMTIME& Chosen() const { return Day; }

  protected:
    void OnInitDialog() override;
    // Only what is found can be gone to.
    void OnOK() override;
    void Paint() override;

  private:
    void Begin();
    void SearchOn();
    void Tell();
    bool TakeKey(const Message& key);
    void TakeScroll(const Message& scroll);
    void OnRowTapped() override;
    void OnListScrolled() override;

    CProgramState& State;
    CFoundList List;
    ComPtr<IItemSearch> Search; // none: there is nothing more to look at
    bool IsAwaited = false;     // the next part was asked for
    bool HasFailed = false;
    DATE Today = 0;
    SYSTEMTIME Day;
    std::vector<FoundItem> Found; // by the last part
};

} // namespace tavo
