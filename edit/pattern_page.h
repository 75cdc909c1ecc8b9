// The recurrence wizard's first page: how often an appointment recurs.
#pragma once

#include "edit/wizard_page.h"
#include "platform/outlook.h"

#include <array>
#include <cstdint>
#include <string>

namespace tavo {

enum class PatternMode { Daily, Weekly, Monthly, Yearly };

// Shows the controls of one mode at a time, chosen on a strip of four painted tabs.
class CPatternPage : public CWizardPage {
  public:
    // The pattern must outlive the page.
    CPatternPage(CMessagePump& pump, IRecurrencePattern& pattern);

    bool UpdateData() override;
    bool WriteToPattern(Validation validation) override;
    std::vector<WindowHandle> FocusStops() const override;

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    void OnInitDialog() override;
    void Paint() override;

  private:
    // What the page reads from the pattern when it opens.
    struct PatternValues {
        std::int32_t RecurrenceType = kRecursDaily;
        SYSTEMTIME PatternStart;
        std::int32_t Interval = 0;
        std::int32_t DayOfWeekMask = 0;
        std::int32_t DayOfMonth = 0;
        std::int32_t Instance = 0;
        std::int32_t MonthOfYear = 0;
    };

    // What the controls say.
    struct PatternFields {
        std::u16string DayInterval;
        std::u16string WeekInterval;
        bool MonthlyThe = false;
        std::u16string MonthlyDay;
        std::u16string DayMonths;
        std::u16string TheMonths;
        int TheOrdinal = 0;
        int TheWeekday = 0;
        bool YearlyNth = false;
        std::u16string YearDay;
        int YearDayMonth = 0;
        int NthOrdinal = 0;
        int NthWeekday = 0;
        int NthMonth = 0;
    };

    // pattern_page.cpp
    void ReadPattern();
    void ChooseMode();
    void FillDays();
    void FillMonthly();
    void FillYearly();
    int OpeningOrdinal() const;
    void WriteMode();

    // pattern_page_input.cpp
    void ShowMode();
    bool LiesInChosenRow(int control) const;
    void SetMode(PatternMode mode);
    void TakeStylusDown(Point point);
    bool TakeKey(const Message& key);
    bool RenewFocus(const Message& command);
    void ToggleDay(int control);
    void TakeChoice(int control);
    void ShowNoDay();
    bool AnyDaySelected() const;
    Rect TabBounds(PatternMode mode) const;

    int Choice(int list) const { return Host().Controls().GetCurSel(Item(list)); }

    void Select(int list, int entry) { Host().Controls().SetCurSel(Item(list), entry); }

    IRecurrencePattern& Pattern;
    PatternValues Values;
    PatternFields Fields;
    PatternMode PageMode = PatternMode::Daily;
    std::array<bool, 7> DaySelected{}; // Sunday first
    WindowHandle PaintedFocus = WindowHandle::None;
};

} // namespace tavo
