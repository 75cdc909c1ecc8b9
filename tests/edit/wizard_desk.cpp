// Working the wizard.
#include "tests/edit/wizard_desk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace tavo::test {

namespace {

constexpr int kTabWidth = 60;
constexpr int kTabMiddle = 12;

Point MiddleOf(const Rect& bounds) {
    return {(bounds.Left + bounds.Right) / 2, (bounds.Top + bounds.Bottom) / 2};
}

void Expect(Status status) {
    EXPECT_EQ(status, Status::Ok);
}

} // namespace

WizardDesk::WizardDesk(const SYSTEMTIME& start) {
    SYSTEMTIME end = start;
    end.Hour = static_cast<std::uint16_t>(start.Hour + 1);
    Expect(State.Store.OutlookApp->CreateItem(kItemAppointment, OwnItem));
    Expect(OwnItem->put_Start(ToDate(start)));
    Expect(OwnItem->put_End(ToDate(end)));
    Expect(OwnItem->GetRecurrencePattern(OwnPattern));
    Expect(OwnPattern->put_RecurrenceType(kRecursWeekly));
    Expect(OwnPattern->put_NoEndDate(true));
    Expect(OwnPattern->put_Interval(1));
}

void WizardDesk::Rule(std::int32_t type, std::int32_t interval, std::int32_t mask, std::int32_t instance) {
    Expect(OwnPattern->put_RecurrenceType(type));
    Expect(OwnPattern->put_Interval(interval));
    Expect(OwnPattern->put_DayOfWeekMask(mask));
    Expect(OwnPattern->put_Instance(instance));
}

int WizardDesk::RunWizard(int pages) {
    Wizard.emplace(Pump);
    PatternPage.emplace(Pump, *OwnPattern);
    RangePage.emplace(Pump, State, *OwnPattern);
    if (pages > 0) {
        Wizard->AddPage(u" ", *PatternPage, kDialogPattern);
    }
    if (pages > 1) {
        Wizard->AddPage(u" ", *RangePage, kDialogRange);
    }
    const int result = Wizard->DoModal();
    for (const std::string& problem : Device.Problems) {
        ADD_FAILURE() << problem;
    }
    return Pump.HasQuit() ? kLeftOpen : result;
}

SavedPattern WizardDesk::Held() {
    SavedPattern held;
    Expect(OwnPattern->get_RecurrenceType(held.Type));
    Expect(OwnPattern->get_NoEndDate(held.NoEnd));
    Expect(OwnPattern->get_PatternEndDate(held.End));
    Expect(OwnPattern->get_Occurrences(held.Occurrences));
    Expect(OwnPattern->get_Interval(held.Interval));
    Expect(OwnPattern->get_DayOfWeekMask(held.Mask));
    Expect(OwnPattern->get_DayOfMonth(held.DayOfMonth));
    Expect(OwnPattern->get_Instance(held.Instance));
    Expect(OwnPattern->get_MonthOfYear(held.Month));
    return held;
}

std::vector<std::u16string> WizardDesk::Entries(WindowHandle list) {
    const shell::ControlState* control = Device.Host().State.Tree.FindControl(list);
    return control == nullptr ? std::vector<std::u16string>() : control->Items;
}

int WizardDesk::DaysOn() {
    constexpr int toggles[] = {kPatternSunday,   kPatternMonday, kPatternTuesday, kPatternWednesday,
                               kPatternThursday, kPatternFriday, kPatternSaturday};
    int days = 0;
    int bit = 1;
    for (const int toggle : toggles) {
        days += IsOn(OnPattern(toggle)) ? bit : 0;
        bit *= 2;
    }
    return days;
}

int WizardDesk::StripPicture() {
    const headless::Frame* frame = Device.Host().Drawn.LastFrame(PatternWindow());
    int shown = 0;
    if (frame != nullptr) {
        for (const headless::Placed& placed : frame->Picture.Visible()) {
            if (placed.Bitmap != 0) {
                EXPECT_EQ(shown, 0) << "two pictures";
                shown = placed.Bitmap;
            }
        }
    }
    return shown;
}

bool WizardDesk::RangeShowsText(std::u16string_view text) {
    const headless::Frame* frame = Device.Host().Drawn.LastFrame(RangeWindow());
    if (frame == nullptr) {
        return false;
    }
    const std::vector<headless::Placed> visible = frame->Picture.Visible();
    return std::any_of(visible.begin(), visible.end(),
                       [&](const headless::Placed& placed) { return placed.Text == text; });
}

void WizardDesk::TapOn(Where control) {
    Device.Do([this, control = std::move(control)] {
        ASSERT_TRUE(IsShown(control()));
        Device.TapScreen(MiddleOf(Device.Host().State.Tree.ScreenBounds(control())));
    });
}

void WizardDesk::TapButton(int id) {
    TapOn([this, id] { return Button(id); });
}

void WizardDesk::TapPattern(int id) {
    TapOn([this, id] { return OnPattern(id); });
}

void WizardDesk::TapRange(int id) {
    TapOn([this, id] { return OnRange(id); });
}

void WizardDesk::ChooseOnPattern(int id, int entry) {
    TapPattern(id);
    Device.Do([this, id, entry] {
        ASSERT_EQ(Device.Host().State.OpenList, OnPattern(id)) << id;
        Device.Host().ControlActions.Choose(OnPattern(id), entry);
    });
}

void WizardDesk::TypeOnPattern(int id, std::u16string text) {
    Device.Do([this, id, text = std::move(text)] {
        ASSERT_TRUE(Device.Host().State.TakesInput(OnPattern(id))) << id;
        Device.Host().ControlActions.Focus(OnPattern(id));
        Device.Host().ControlActions.Edit(OnPattern(id), text);
    });
}

void WizardDesk::TypeOnRange(int id, std::u16string text) {
    Device.Do([this, id, text = std::move(text)] {
        ASSERT_TRUE(Device.Host().State.TakesInput(OnRange(id))) << id;
        Device.Host().ControlActions.Focus(OnRange(id));
        Device.Host().ControlActions.Edit(OnRange(id), text);
    });
}

void WizardDesk::PickEnd(int year, int month, int day) {
    Device.Do([this, year, month, day] {
        ASSERT_TRUE(Device.Host().State.TakesInput(OnRange(kRangeEndDate)));
        Device.Host().ControlActions.Pick(OnRange(kRangeEndDate), At(year, month, day));
    });
}

void WizardDesk::TapTab(int tab) {
    Device.Tap(tab * kTabWidth + kTabWidth / 2, kTabMiddle);
}

void WizardDesk::Done() {
    Device.Do([this] {
        if (!IsShown(RangeWindow())) {
            TapButton(kWizardNext);
        }
        TapButton(kWizardNext);
    });
}

} // namespace tavo::test
