// Which keys a picker gets, and when its parent hears of it.
#include "tests/shell/shell_fixture.h"

namespace tavo::shell {
namespace {

class PickerInputTest : public ShellTest {
  protected:
    PickerInputTest() {
        Picker = MakeControl(ControlKind::DatePicker, 7, Rect::FromSize(0, 0, 80, 20));
        Controls.SetSystemtime(Picker, {2026, 12, 0, 5, 0, 0, 0, 0});
        Windows.SetFocus(Picker);
        Drain();
    }

    int CountTold() {
        int told = 0;
        for (const Message& message : Drain()) {
            told += message.Number == WM_NOTIFY && message.Id == 7 && message.Code == DTN_DATETIMECHANGE ? 1 : 0;
        }
        return told;
    }

    void Type(std::u16string_view characters) {
        for (const char16_t character : characters) {
            EXPECT_EQ(Keys.Down(character, 0), WindowHandle::None);
            EXPECT_EQ(Keys.Character(character), WindowHandle::None);
        }
    }

    WindowHandle Picker = WindowHandle::None;
};

TEST_F(PickerInputTest, TheEndOfTypingIsToldOnce) {
    Type(u"1");
    EXPECT_EQ(CountTold(), 0);
    Navigation.PressOk();
    EXPECT_EQ(CountTold(), 1);
    EXPECT_EQ(Controls.GetSystemtime(Picker), (SYSTEMTIME{2026, 1, 1, 5, 0, 0, 0, 0}));
    Navigation.PressOk();
    EXPECT_EQ(CountTold(), 0);
}

TEST_F(PickerInputTest, EveryWayOutOfItTellsWhatWasTyped) {
    const WindowHandle edit = MakeControl(ControlKind::Edit, 8, Rect::FromSize(0, 30, 80, 20));
    const std::vector<std::function<void()>> ways{
        [&] { Windows.SetFocus(edit); },           [&] { Stylus.Down({10, 66}); },
        [&] { Keys.Down(VK_RETURN, 0); },          [&] { Keys.Down(VK_TAB, 0); },
        [&] { Input.OpenList(Picker); },           [&] { Navigation.RequestQuit(); },
        [&] { Keys.Down('S', kModifierControl); }, [&] { Windows.ShowWindow(Picker, ShowCommand::Hide); },
    };
    std::u16string_view month = u"1";
    for (std::size_t way = 0; way < ways.size(); ++way) {
        Windows.ShowWindow(Picker, ShowCommand::Show);
        State.CloseList();
        Windows.SetFocus(Picker);
        Keys.Down(VK_HOME, 0);
        Drain();
        month = way % 2 == 0 ? u"1" : u"2/"; // another one each time
        Type(month.substr(0, 1));
        EXPECT_EQ(CountTold(), 0) << way;
        ways[way]();
        EXPECT_EQ(CountTold(), 1) << way;
    }
}

TEST_F(PickerInputTest, APressOnThePickerItselfTellsNothing) {
    Type(u"1");
    EXPECT_EQ(Stylus.Down({10, 36}), Picker);
    EXPECT_EQ(CountTold(), 0);
}

TEST_F(PickerInputTest, NothingTypedIsNothingTold) {
    Keys.Down(VK_RIGHT, kModifierControl);
    Windows.SetFocus(WindowHandle::None);
    EXPECT_EQ(CountTold(), 0);
}

TEST_F(PickerInputTest, OnAPageTheArrowsAreThePages) {
    for (const int key : {VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN}) {
        EXPECT_EQ(Keys.Down(key, 0), Picker); // which has no use for it
        Keys.Unused(Picker, key, 0);
        EXPECT_EQ(Drain(), std::vector<Message>({{Page, WM_KEYDOWN, key, 0, 0, {}}}));
    }
    EXPECT_EQ(Controls.GetSystemtime(Picker), (SYSTEMTIME{2026, 12, 6, 5, 0, 0, 0, 0}));
    EXPECT_EQ(Keys.Down(VK_DOWN, kModifierAlt), Picker); // opens the month calendar
    State.OpenList = Picker;
    EXPECT_EQ(Keys.Down(VK_LEFT, 0), Picker);
    EXPECT_TRUE(Drain().empty());
}

TEST_F(PickerInputTest, InADialogTheArrowsAreThePickers) {
    const WindowHandle dialog = Make(WindowKind::Dialog, Page, {});
    ControlDescription description;
    description.Kind = ControlKind::DatePicker;
    description.Id = 7;
    const WindowHandle inDialog = Controls.CreateControl(dialog, description);
    Controls.SetSystemtime(inDialog, {2026, 12, 0, 5, 0, 0, 0, 0});
    Windows.SetFocus(inDialog);
    Drain();
    Keys.Down(VK_UP, 0);
    EXPECT_EQ(CountTold(), 1);
    EXPECT_EQ(Controls.GetSystemtime(inDialog).Month, 1);
}

TEST_F(PickerInputTest, ItIsEnteredAtItsFirstPart) {
    Keys.Down(VK_END, 0);
    Windows.SetFocus(WindowHandle::None);
    Windows.SetFocus(Picker);
    Type(u"3");
    EXPECT_EQ(Controls.GetSystemtime(Picker).Month, 3);
}

TEST_F(PickerInputTest, ADateFromTheCalendarOvertakesWhatWasTyped) {
    Type(u"11");
    Input.Pick(Picker, {2026, 12, 0, 5, 0, 0, 0, 0}); // back to what the program knows
    EXPECT_EQ(CountTold(), 1);
    Windows.SetFocus(WindowHandle::None);
    EXPECT_EQ(CountTold(), 0);
    EXPECT_EQ(Controls.GetSystemtime(Picker).Month, 12);
}

} // namespace
} // namespace tavo::shell
