// The recurrence wizard on its own, over the pattern of an item that is not saved yet.
#pragma once

#include "edit/pattern_page.h"
#include "edit/range_page.h"
#include "edit/recurrence_wizard.h"
#include "tests/edit/edit_desk.h"

#include <functional>
#include <optional>
#include <string>

namespace tavo::test {

class WizardDesk : public EditDesk {
  public:
    // The item lasts an hour and recurs weekly on its start's weekday, without end.
    explicit WizardDesk(const SYSTEMTIME& start = At(2026, 11, 21, 9, 30)); // a Saturday, the third of its month

    IRecurrencePattern& Pattern() { return *OwnPattern; }

    // Another rule, put before the wizard opens.
    void Rule(std::int32_t type, std::int32_t interval, std::int32_t mask = 0, std::int32_t instance = 0);

    // Opens the wizard with its first pages, lets the script run to its end, and gives the wizard's result.
    int RunWizard(int pages = 2);
    // What the pattern holds now.
    SavedPattern Held();

    bool Saves() { return Succeeded(OwnItem->Save()); }

    // While the wizard is open.
    WindowHandle Button(int id) { return Wizard->Item(id); }

    WindowHandle OnPattern(int id) { return PatternPage->Item(id); }

    WindowHandle OnRange(int id) { return RangePage->Item(id); }

    WindowHandle PatternWindow() { return PatternPage->Handle(); }

    WindowHandle RangeWindow() { return RangePage->Handle(); }

    std::u16string Text(WindowHandle control) { return Device.Host().Controls().GetWindowTextW(control); }

    int Selection(WindowHandle list) { return Device.Host().Controls().GetCurSel(list); }

    bool IsOn(WindowHandle button) { return Device.Host().Controls().GetCheck(button); }

    bool IsShown(WindowHandle window) { return Device.Host().State.Tree.IsVisible(window); }

    std::vector<std::u16string> Entries(WindowHandle list);
    // The toggles that are on: Sunday bit 0.
    int DaysOn();
    // The picture of the tab strip as painted last.
    int StripPicture();
    // Painted last on the range page.
    bool RangeShowsText(std::u16string_view text);

    bool PanelIsUp() { return Device.Host().InputPanel().SipGetInfo().Shown; }

    // Steps of the script.
    using Where = std::function<WindowHandle()>;
    void TapOn(Where control); // in its middle
    void TapButton(int id);
    void TapPattern(int id);
    void TapRange(int id);
    void ChooseOnPattern(int id, int entry); // opens the list by a tap
    void TypeOnPattern(int id, std::u16string text);
    void TypeOnRange(int id, std::u16string text);
    void PickEnd(int year, int month, int day);
    void TapTab(int tab);
    void Done(); // pages on to the last page and finishes

  private:
    ComPtr<IAppointment> OwnItem;
    ComPtr<IRecurrencePattern> OwnPattern;
    std::optional<CRecurrenceWizard> Wizard;
    std::optional<CPatternPage> PatternPage;
    std::optional<CRangePage> RangePage;
};

} // namespace tavo::test
