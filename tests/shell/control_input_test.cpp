// What a person does to controls that may not take it.
#include "tests/shell/shell_fixture.h"

namespace tavo::shell {

namespace {

using ControlInputTest = ShellTest;

TEST_F(ControlInputTest, NothingHappensToADisabledControl) {
    const WindowHandle edit = MakeControl(ControlKind::Edit, 1, Rect::FromSize(0, 0, 50, 20));
    const WindowHandle check = MakeControl(ControlKind::CheckBox, 2, Rect::FromSize(0, 30, 50, 20));
    const WindowHandle picker = MakeControl(ControlKind::DatePicker, 3, Rect::FromSize(0, 60, 50, 20));
    for (const WindowHandle control : {edit, check, picker}) {
        Windows.EnableWindow(control, false);
    }
    Input.Focus(edit);
    Input.Edit(edit, u"text");
    Input.Click(check, {});
    Input.Pick(picker, {2005, 1, 0, 1, 0, 0, 0, 0});
    Input.OpenList(picker);
    EXPECT_TRUE(Drain().empty());
    EXPECT_EQ(Controls.GetWindowTextW(edit), u"");
    EXPECT_FALSE(Controls.GetCheck(check));
    EXPECT_EQ(Controls.GetSystemtime(picker).Year, 2004);
    EXPECT_EQ(Windows.GetFocus(), WindowHandle::None);
}

TEST_F(ControlInputTest, PickersStartNow) {
    const WindowHandle picker = MakeControl(ControlKind::TimePicker, 3, {});
    EXPECT_EQ(Controls.GetSystemtime(picker), (SYSTEMTIME{2004, 11, 3, 17, 10, 5, 0, 0}));
}

TEST_F(ControlInputTest, SameDateAgainIsNoChange) {
    const WindowHandle picker = MakeControl(ControlKind::DatePicker, 3, Rect::FromSize(0, 60, 50, 20));
    Input.Pick(picker, {2004, 11, 0, 17, 0, 0, 0, 0});
    EXPECT_TRUE(Drain().empty());
    Input.Pick(picker, {2004, 2, 0, 30, 0, 0, 0, 0}); // there is no such day
    EXPECT_TRUE(Drain().empty());
    Input.Pick(picker, {2004, 11, 0, 18, 0, 0, 0, 0});
    EXPECT_EQ(Drain(), std::vector<Message>({{Page, WM_NOTIFY, 3, DTN_DATETIMECHANGE, 0, {}}}));
}

TEST_F(ControlInputTest, PictureButtonTellsWhereItWasTapped) {
    const WindowHandle header = MakeControl(ControlKind::PictureButton, 1003, Rect::FromSize(0, 0, 240, 24));
    Input.Click(header, {65, 12});
    EXPECT_EQ(Drain(), std::vector<Message>({{Page, WM_COMMAND, 1003, BN_CLICKED, 0, {65, 12}}}));
}

TEST_F(ControlInputTest, ScrollValuesStayInTheRange) {
    const WindowHandle bar = MakeControl(ControlKind::ScrollBar, 1021, Rect::FromSize(222, 31, 15, 207));
    Controls.SetScrollInfo(bar, {0, 8, 20});
    EXPECT_EQ(Controls.GetScrollInfo(bar), (ScrollInfo{0, 8, 8}));
    Input.Scroll(bar, SB_THUMBPOSITION, 99);
    EXPECT_EQ(Drain(), std::vector<Message>({{Page, WM_VSCROLL, 1021, SB_THUMBPOSITION, 8, {}}}));
}

TEST_F(ControlInputTest, OpeningOneListClosesTheOther) {
    const WindowHandle one = MakeControl(ControlKind::FixedList, 1, Rect::FromSize(0, 0, 50, 20));
    const WindowHandle other = MakeControl(ControlKind::EditableList, 2, Rect::FromSize(0, 30, 50, 20));
    Input.OpenList(one);
    Drain();
    Input.OpenList(other);
    EXPECT_EQ(State.OpenList, WindowHandle::None);
    Drain();
    EXPECT_EQ(State.OpenList, other);
}

TEST_F(ControlInputTest, TypedTextOfAnEditableListOutlivesARefill) {
    const WindowHandle list = MakeControl(ControlKind::EditableList, 2, Rect::FromSize(0, 30, 50, 20));
    Input.Edit(list, u"12");
    const std::vector<std::u16string> entries{u"1", u"2"};
    Controls.SetListItems(list, entries);
    EXPECT_EQ(Controls.GetWindowTextW(list), u"12");
}

TEST_F(ControlInputTest, FixedListShowsItsEntryAndNothingElse) {
    const WindowHandle list = MakeControl(ControlKind::FixedList, 2, Rect::FromSize(0, 30, 50, 20));
    const std::vector<std::u16string> entries{u"Yes", u"No"};
    Controls.SetListItems(list, entries);
    Controls.SetCurSel(list, 1);
    Windows.SetWindowTextW(list, u"Maybe");
    EXPECT_EQ(Controls.GetWindowTextW(list), u"No");
    Input.Edit(list, u"Maybe");
    EXPECT_EQ(Controls.GetWindowTextW(list), u"No");
}

TEST_F(ControlInputTest, RadioGroupsEndWhereTheNextBegins) {
    std::vector<WindowHandle> buttons;
    for (int id = 1; id <= 5; ++id) {
        ControlDescription description;
        description.Kind = ControlKind::RadioButton;
        description.Id = id;
        description.StartsGroup = id == 1 || id == 4;
        buttons.push_back(Controls.CreateControl(Page, description));
    }
    EXPECT_EQ(RadioGroup(State.Tree, buttons[1]), (std::vector<WindowHandle>{buttons[0], buttons[1], buttons[2]}));
    EXPECT_EQ(RadioGroup(State.Tree, buttons[4]), (std::vector<WindowHandle>{buttons[3], buttons[4]}));
}

} // namespace

} // namespace tavo::shell
