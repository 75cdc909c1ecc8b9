// The script of taps and choices, its ends and its problems.
#include "tests/headless/device_page.h"

namespace tavo::headless {

namespace {

using DeviceTest = DevicePageTest;

PaintedItem Button(Rect bounds, std::u16string name) {
    PaintedItem item;
    item.Bounds = bounds;
    item.Role = PaintedRole::Button;
    item.Name = std::move(name);
    return item;
}

TEST_F(DeviceTest, StepsHappenInOrderAsTheProgramWaits) {
    std::vector<int> order;
    Page.Hook = [&](const Message& message) {
        if (message.Number == WM_LBUTTONDOWN) {
            order.push_back(2);
        }
    };
    Own.Do([&] { order.push_back(1); });
    Own.Tap(2, 70);
    Own.Do([&] { order.push_back(3); });
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST_F(DeviceTest, ProgramThatWaitsAfterTheScriptIsQuit) {
    EXPECT_EQ(Pump.Run(), kScriptEnded);
}

TEST_F(DeviceTest, FinishFailsWhenAnAnswerIsMissing) {
    Page.Hook = [&](const Message& message) {
        if (message.Number == WM_LBUTTONDOWN) {
            Pump.ShowMessageBox(Page.Handle(), {u"Delete?", u"", MessageBoxButtons::YesNo, {}});
        }
    };
    Own.Tap(2, 70);
    EXPECT_FALSE(Own.Finish(Pump));
}

TEST_F(DeviceTest, StepsThatCannotBeDoneAreProblems) {
    Own.AnswerBox(IDYES);
    Own.ChooseMenu(u"Tools", 57664);
    Own.ChooseTracked(33001);
    Own.TapControl(1020);
    Own.TapItem(PaintedRole::Button, u"Today");
    EXPECT_FALSE(Own.Finish(Pump));
    EXPECT_EQ(Own.Problems, (std::vector<std::string>{
                                "no message box takes the answer 6", "no menu Tools can be opened",
                                "command 57664 cannot be chosen from the menu", "command 33001 is not in an open menu",
                                "cannot tap control 1020", "nothing painted is called Today"}));
}

TEST_F(DeviceTest, ItemsAreFoundAndTappedByTheirName) {
    Page.Declared = {Button({206, 6, 231, 31}, u"Today")};
    Own.TapItem(PaintedRole::Button, u"Today");
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Page.Count(WM_LBUTTONDOWN), 1);
    EXPECT_EQ(Page.Taken[0].Position, (Point{218, 18}));
    EXPECT_FALSE(Own.See.FindItem(PaintedRole::Tab, u"Today").has_value());
    EXPECT_TRUE(Own.See.ShowsText(u"Today"));
    EXPECT_FALSE(Own.See.ShowsText(u"Tomorrow"));
    EXPECT_EQ(Own.See.PixelAt(206, 6), Color{});
    EXPECT_EQ(Own.See.PixelAt(205, 6), std::nullopt); // nothing is painted there
}

TEST_F(DeviceTest, ChosenListEntryIsTheOneOfTheRefilledList) {
    const WindowHandle list = Add(ControlKind::FixedList, 1020, Rect::FromSize(65, 93, 165, 20));
    Page.Hook = [&](const Message& message) {
        if (message.Number == WM_COMMAND && message.Code == CBN_DROPDOWN) {
            const std::vector<std::u16string> entries{u"Once", u"Everyday"};
            Own.Host().Controls().SetListItems(list, entries);
        }
    };
    Own.Choose(1020, u"Everyday");
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Own.See.SelectionOf(1020), 1);
    EXPECT_EQ(Own.See.TextOf(1020), u"Everyday");
    EXPECT_EQ(Own.Host().Seen.Lists, (std::vector<OpenedList>{{1020, {u"Once", u"Everyday"}, -1}}));
    Own.Choose(1020, u"Never");
    EXPECT_FALSE(Own.Finish(Pump));
}

TEST_F(DeviceTest, ControlsAreWorkedById) {
    Add(ControlKind::Edit, 1028, Rect::FromSize(65, 15, 165, 20));
    Add(ControlKind::CheckBox, 1032, Rect::FromSize(65, 88, 165, 20));
    Add(ControlKind::DatePicker, 1026, Rect::FromSize(65, 41, 83, 20));
    Add(ControlKind::TimePicker, 1027, Rect::FromSize(150, 41, 80, 20));
    Own.TypeInto(1028, u"Lunch");
    Own.TypeInto(1028, u"Dinner");
    Own.TapControl(1032);
    Own.PickDate(1026, 2005, 1, 31);
    Own.PickTime(1027, 8, 30);
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Own.See.TextOf(1028), u"Dinner");
    EXPECT_TRUE(Own.See.IsChecked(1032));
    EXPECT_EQ(Own.Host().Controls().GetSystemtime(Own.See.Control(1026)).Day, 31);
    EXPECT_EQ(Own.Host().Controls().GetSystemtime(Own.See.Control(1027)).Minute, 30);
    EXPECT_EQ(Page.Count(WM_NOTIFY), 2);
}

TEST_F(DeviceTest, MenusAndTheirAnswersAreRecordedWhole) {
    MenuItem about;
    about.Id = 57664;
    about.Text = u"About Tavo Calendar...";
    MenuItem tools;
    tools.Text = u"Tools";
    tools.Children.push_back(about);
    Own.Host().Menus().SHCreateMenuBar(Page.Handle(), {tools});
    int chosen = 0;
    Page.Hook = [&](const Message& message) {
        if (message.Number == WM_COMMAND && message.Id == 57664) {
            chosen = Pump.TrackPopupMenu(Page.Handle(), {about}, {114, 149}, MenuAlign::Right);
        }
    };
    Own.ChooseMenu(u"Tools", 57664);
    Own.ChooseTracked(57664);
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(chosen, 57664);
    ASSERT_EQ(Own.Host().Seen.Menus.size(), 1u);
    EXPECT_EQ(Own.Host().Seen.Menus[0].Items, std::vector<MenuItem>{about});
    EXPECT_EQ(Own.Host().Seen.Menus[0].At, (Point{114, 149}));
    EXPECT_EQ(Own.Host().Seen.Menus[0].Align, MenuAlign::Right);
    ASSERT_EQ(Own.Host().Seen.BarMenus.size(), 1u);
    EXPECT_EQ(Own.Host().Seen.BarMenus[0].Menu, tools);
}

TEST_F(DeviceTest, TimersRunOnTheScriptedClock) {
    Own.Host().Windows().SetTimer(Page.Handle(), 1003, 471);
    Own.AdvanceClock(2000);
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Page.Count(WM_TIMER), 4);
    EXPECT_EQ(Own.Host().Clock().GetLocalTime().Second, 2);
    Own.SetClock({2004, 12, 0, 31, 23, 59, 59, 0});
    Own.AdvanceClock(1000);
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Own.Host().Clock().GetLocalTime().Year, 2005);
}

TEST_F(DeviceTest, WhatIsBesideTheStylusAndKeys) {
    Own.Press(10, 10);
    Own.MoveTo(20, 20);
    Own.Release(30, 30);
    Own.Wheel(10, 10, 1);
    Own.Type(u"x");
    Own.PressClose();
    Own.CloseWindow();
    Own.ChangeStore();
    Own.Quit();
    ASSERT_TRUE(Own.Finish(Pump));
    EXPECT_EQ(Page.Count(WM_MOUSEMOVE), 1);
    EXPECT_EQ(Page.Count(WM_LBUTTONUP), 1);
    EXPECT_EQ(Page.Count(WM_MOUSEWHEEL), 1);
    EXPECT_EQ(Page.Count(WM_CHAR), 1);
    EXPECT_EQ(Page.Count(WM_CLOSE), 2);
}

} // namespace

} // namespace tavo::headless
