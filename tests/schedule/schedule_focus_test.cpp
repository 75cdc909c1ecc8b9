// Where the keys go on the Schedule page, and what follows the stylus there.
#include "platform/typing.h"
#include "tests/schedule/schedule_page_fixture.h"

#include <gtest/gtest.h>

namespace tavo::test {

class ScheduleFocus : public SchedulePage {
  protected:
    // The list on show has it.
    bool IsListFocused() {
        const shell::WindowTree& tree = Desk.Device.Host().State.Tree;
        const WindowHandle focus = Desk.Device.Host().State.Focus;
        const shell::WindowRecord* list = tree.Find(focus);
        return list != nullptr && list->IsPainted() && list->Parent == Desk.Device.See.Top() && tree.IsVisible(focus);
    }

    void FocusPicker(int picker) {
        Desk.Device.TapControl(picker);
        ASSERT_TRUE(Desk.Settle());
        EXPECT_FALSE(IsListFocused());
    }

    // One appointment, whose row is selected.
    void ShowSelectedAppointment() {
        GivenAppointmentsToday(1);
        Desk.Show(ItemKind::Appointment);
        Key(VK_DOWN);
        ASSERT_EQ(Desk.SelectedRow(), 0);
    }

    bool IsNewDrawnPressed() {
        const std::string drawn = ToText(Desk.Device.See.LastFrame()->Calls);
        const bool pressed = drawn.find("bitmap 152 210,8,236,34 from 26,0,52,26\n") != std::string::npos;
        EXPECT_NE(pressed, drawn.find("bitmap 152 210,8,236,34 from 0,0,26,26\n") != std::string::npos) << drawn;
        return pressed;
    }
};

TEST_F(ScheduleFocus, TheListOnShowHasItWhenThePageComes) {
    Desk.Show(ItemKind::Alarm);
    EXPECT_TRUE(IsListFocused());
    Key(VK_LEFT);
    EXPECT_TRUE(IsListFocused());
    Tap(196, 20);
    EXPECT_TRUE(IsListFocused());
    Desk.ShowPage(PageNumber::Clock);
    Desk.ShowPage(PageNumber::Schedule);
    EXPECT_TRUE(IsListFocused());
}

TEST_F(ScheduleFocus, TheListHasItWhenThePeriodIsPicked) {
    Desk.Show(ItemKind::Appointment);
    for (const int picker : {kSchedulePeriodStart, kSchedulePeriodEnd}) {
        FocusPicker(picker);
        Desk.PickPeriodDate(picker, 2004, 11, 4);
        ASSERT_TRUE(Desk.Settle());
        EXPECT_TRUE(IsListFocused());
    }
}

TEST_F(ScheduleFocus, EnterInAPickerLeavesItAndOpensNoRow) {
    ShowSelectedAppointment();
    for (const int picker : {kSchedulePeriodStart, kSchedulePeriodEnd}) {
        FocusPicker(picker);
        Key(VK_RETURN);
        EXPECT_TRUE(IsListFocused());
        EXPECT_FALSE(Desk.Device.See.IsDialogOpen());
    }
    Desk.Device.Key(VK_RETURN);
    Desk.Device.Do([this] { EXPECT_TRUE(Desk.Device.See.IsDialogOpen()); });
    Desk.Device.PressClose();
    ASSERT_TRUE(Desk.Settle());
}

TEST_F(ScheduleFocus, UpAndDownInAPickerGoToTheRows) {
    ShowSelectedAppointment();
    for (const int key : {VK_UP, VK_DOWN}) {
        FocusPicker(kSchedulePeriodStart);
        Key(key);
        EXPECT_TRUE(IsListFocused());
    }
}

TEST_F(ScheduleFocus, TheMenuKeyInAPickerOpensTheMenuOfTheSelectedRow) {
    ShowSelectedAppointment();
    FocusPicker(kSchedulePeriodStart);
    Desk.Device.Key(VK_APPS);
    Desk.Device.Do([this] { EXPECT_EQ(Desk.OpenMenu().front(), u"View..."); });
    Desk.Device.ChooseTracked(0);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_TRUE(IsListFocused());
}

TEST_F(ScheduleFocus, TheMenuKeyOpensItAtTheRowOrAtTheEdgeBeyondWhichItLies) {
    Desk.GivenAlarms(12);
    Desk.Show(ItemKind::Alarm);
    const auto menuTop = [this] {
        int top = 0;
        Desk.Device.Key(VK_APPS);
        Desk.Device.Do([&] { top = Desk.Device.Host().State.Menus.Tracked->At.Y; });
        Desk.Device.ChooseTracked(0);
        EXPECT_TRUE(Desk.Settle());
        return top - 66; // as far below a tap as the menu opens
    };
    Select(0);
    EXPECT_EQ(menuTop(), 25);
    Select(3);
    EXPECT_EQ(menuTop(), 3 * 51 + 25);
    Scroll(SB_PAGEDOWN); // takes the selection along, to row 8
    Key(VK_UP);
    EXPECT_EQ(menuTop(), 2 * 51 + 25);
}

TEST_F(ScheduleFocus, AMenuThatIsClosedSelectsNothingInAListThatWasFilledAnew) {
    Desk.GivenAlarms(2);
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Tap(20, 37 + 51 + 25);
    Desk.Device.ChangeStore();
    Desk.Device.AdvanceClock(500);
    Desk.Device.ChooseTracked(0);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.SelectedRow(), kNoRow);
}

TEST_F(ScheduleFocus, AChoiceSelectsItsRowInAListThatWasFilledAnew) {
    Desk.GivenSeries(u"Yoga", At(2004, 11, 3, 18), At(2004, 11, 3, 19), kRecursDaily);
    Desk.Show(ItemKind::Appointment);
    Desk.Device.Tap(20, 71 + 34 + 10);
    Desk.Device.ChangeStore();
    Desk.Device.AdvanceClock(500);
    Desk.Device.ChooseTracked(kCommandView);
    Desk.Device.PressClose();
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.SelectedRow(), 1);
}

TEST_F(ScheduleFocus, TheNewButtonIsDrawnPressedWhileTheStylusIsOnIt) {
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Press(220, 20);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_TRUE(IsNewDrawnPressed());
    const int drawn = Desk.Device.See.LastFrame()->Count;
    Desk.Device.MoveTo(222, 22);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_EQ(Desk.Device.See.LastFrame()->Count, drawn); // nothing has changed
    Desk.Device.MoveTo(220, 100);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_FALSE(IsNewDrawnPressed());
    Desk.Device.MoveTo(220, 20);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_TRUE(IsNewDrawnPressed());
    Desk.Device.Release(220, 100); // without a move
    ASSERT_TRUE(Desk.Settle());
    EXPECT_FALSE(IsNewDrawnPressed());
}

TEST_F(ScheduleFocus, TheNewButtonIsDrawnUpAgainUnderTheEditorItOpened) {
    Desk.Show(ItemKind::Alarm);
    Desk.Device.Tap(220, 20);
    Desk.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_FALSE(IsNewDrawnPressed());
}

TEST_F(ScheduleFocus, APageThatComesBackShowsItsRowsAsTheyWere) {
    Desk.GivenAlarms(6);
    Desk.Show(ItemKind::Alarm);
    Select(1);
    Scroll(SB_LINEDOWN);
    Desk.ShowPage(PageNumber::Clock);
    Desk.ShowPage(PageNumber::Schedule);
    EXPECT_EQ(Desk.SelectedRow(), 2);
    EXPECT_EQ(Desk.Bar(), (ScrollInfo{0, 2, 1}));
}

} // namespace tavo::test
