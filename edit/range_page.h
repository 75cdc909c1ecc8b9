// The recurrence wizard's second page: when an appointment stops recurring.
#pragma once

#include "edit/appointment_draft.h"
#include "edit/wizard_page.h"
#include "platform/outlook.h"
#include "store/program_state.h"

#include <cstdint>
#include <string>

namespace tavo {

class CRangePage : public CWizardPage {
  public:
    // The pattern must outlive the page.
    CRangePage(CMessagePump& pump, CProgramState& state, IRecurrencePattern& pattern);

    bool UpdateData() override;
    bool WriteToPattern(Validation validation) override;

    // Of the rule as it was written last.
    RuleEnd End() const { return WrittenEnd; }

  protected:
    void OnInitDialog() override;
    void Paint() override;

  private:
    void ReadPattern();
    void SetDefaults();
    void ShowEnd();
    void PushFields();
    void SetEndDate(DATE date);

    CProgramState& State;
    IRecurrencePattern& Pattern;
    bool NoEnd = true;
    DATE PatternStart = 0;
    std::int32_t Occurrences = 0;
    std::int32_t EndMode = -1; // 0 does not end, 1 ends on a date, 2 ends after a count
    std::u16string CountText;
    RuleEnd WrittenEnd = RuleEnd::Never;
};

} // namespace tavo
