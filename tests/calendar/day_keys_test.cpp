// Enter and the arrow keys with Ctrl: the selected day and its menu.
#include "tests/calendar/day_menu_desk.h"
#include "tests/support/folder_probe.h"

namespace tavo::test {
namespace {

TEST_F(DayMenuTest, EnterOpensTheSelectedDaysMenuAtItsCell) {
    Open();
    Program.Device.Key(VK_RETURN);
    Check([this] {
        ASSERT_TRUE(Menus().Tracked.has_value());
        EXPECT_EQ(Menus().Tracked->At, (Point{124, 152})); // 5 beside and 29 under the cell's middle
        EXPECT_EQ(Captions()[kEntryAddMemo], u"Add memo...");
    });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, EnterOpensTheMenuOfASundayAtItsCell) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(2004, 8, 1, 10, 0)); // the first cell
    Open();
    const auto placeOfMenu = [this] {
        Point place;
        Program.Device.Key(VK_RETURN);
        Check([&] { place = Menus().Tracked.value_or(shell::TrackedMenu{}).At; });
        Choose(0);
        Settle();
        return place;
    };
    EXPECT_EQ(placeOfMenu(), (Point{25, 100}));
    Program.Device.Key(VK_DOWN, kModifierControl);
    EXPECT_EQ(placeOfMenu(), (Point{25, 126}));
    Program.Device.Key(VK_DOWN, kModifierControl);
    EXPECT_EQ(placeOfMenu(), (Point{25, 152}));
}

TEST_F(DayMenuTest, EnterOpensTheMenuWithControlToo) {
    Open();
    Program.Device.Key(VK_RETURN, kModifierControl);
    Check([this] { EXPECT_TRUE(Menus().Tracked.has_value()); });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, EnterOpensNothingForADayThatItsMonthLacks) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(2004, 1, 31, 10, 0));
    Open();
    Program.Device.Key(VK_RIGHT); // the 31st of February
    Program.Device.Key(VK_RETURN);
    Check([this] { EXPECT_FALSE(Menus().Tracked.has_value()); });
    Program.Device.Key(VK_RIGHT);
    Program.Device.Key(VK_RETURN);
    Check([this] { EXPECT_TRUE(Menus().Tracked.has_value()); }); // the 29th of March
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, ABlankCellHasNoMenu) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(1901, 1, 10, 10, 0));
    Open();
    Program.Device.Tap(10, 70);
    Check([this] { EXPECT_FALSE(Menus().Tracked.has_value()); });
    Program.Device.Key(VK_RETURN);
    Check([this] { EXPECT_FALSE(Menus().Tracked.has_value()); });
    Settle();
}

TEST_F(DayMenuTest, NoMemoIsMadeForADayThatItsMonthLacks) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(2004, 1, 31, 10, 0));
    Open();
    Program.Device.Key(VK_RETURN);
    Check([this] {
        // In one moment the menu's entry is chosen and the month left.
        Program.Device.Host().Keys.Down(VK_ESCAPE, 0);
        Program.Device.Host().Keys.Down(VK_RIGHT, 0);
    });
    Check([this] {
        EXPECT_EQ(Program.Header(), u"");
        Message add;
        add.Window = Program.Device.See.Top();
        add.Number = WM_COMMAND;
        add.Id = kCommandAddMemo;
        Program.Device.Host().Queue().PostMessageW(add);
    });
    Check([this] { EXPECT_FALSE(Program.Device.See.IsDialogOpen()); });
    Settle();
}

TEST_F(DayMenuTest, AKeyAndATapInOneMomentMeanTheSameMonth) {
    Open();
    Check([this] {
        auto& host = Program.Device.Host();
        host.Keys.Down(VK_RIGHT, 0); // October, which is not painted yet
        host.Stylus.Down({kDayX, kDayY + kClientArea.Top});
        host.Stylus.Up({kDayX, kDayY + kClientArea.Top});
    });
    Check([this] { EXPECT_TRUE(Menus().Tracked.has_value()); });
    Choose(0);
    Settle();
    EXPECT_EQ(Program.CellName(2, 3), u"2004-10-13");
    EXPECT_EQ(Program.Header(), u"Wed, Oct, 13, 2004");
    EXPECT_EQ(Program.SelectedCell(), 17);
}

TEST_F(DayMenuTest, TodayAndATapInOneMomentMeanTheSameMonth) {
    Open();
    Program.Device.Key(VK_RIGHT);
    Check([this] {
        auto& host = Program.Device.Host();
        host.Stylus.Down({218, 18 + kClientArea.Top});
        host.Stylus.Up({218, 18 + kClientArea.Top});
        host.Stylus.Down({kDayX, kDayY + kClientArea.Top});
        host.Stylus.Up({kDayX, kDayY + kClientArea.Top});
    });
    Choose(0);
    Settle();
    EXPECT_EQ(Program.Header(), u"Wed, Sep, 15, 2004");
}

TEST_F(DayMenuTest, ControlAndArrowsMoveTheSelectedDay) {
    Open();
    const auto press = [this](int key) {
        Program.Device.Key(key, kModifierControl);
        Settle();
        return Program.Header();
    };
    EXPECT_EQ(press(VK_RIGHT), u"Thu, Sep, 16, 2004");
    EXPECT_EQ(press(VK_LEFT), u"Wed, Sep, 15, 2004");
    EXPECT_EQ(press(VK_DOWN), u"Wed, Sep, 22, 2004");
    EXPECT_EQ(Program.SelectedCell(), 24);
    EXPECT_EQ(press(VK_UP), u"Wed, Sep, 15, 2004");
    EXPECT_EQ(press(VK_UP), u"Wed, Sep, 08, 2004");
    EXPECT_EQ(press(VK_UP), u"Wed, Sep, 01, 2004");
    EXPECT_EQ(Program.CellName(0, 3), u"2004-09-01");
    EXPECT_EQ(press(VK_LEFT), u"Tue, Aug, 31, 2004");
    EXPECT_EQ(Program.CellName(0, 0), u"2004-08-01"); // the grid followed
}

TEST_F(DayMenuTest, ControlAndArrowsMoveTheBlueCell) {
    const Color blue = Color::FromRgb(70, 163, 250);
    Open();
    EXPECT_EQ(Program.Device.See.PixelAt(kDayX, kDayY), blue);
    Program.Device.Key(VK_RIGHT, kModifierControl);
    Settle();
    EXPECT_NE(Program.Device.See.PixelAt(kDayX, kDayY), blue);
    EXPECT_EQ(Program.Device.See.PixelAt(kDayX + 33, kDayY), blue);
}

TEST_F(DayMenuTest, ControlAndArrowsAskTheStoreOnlyForAnotherMonth) {
    Open();
    Program.GivenAppointment(u"Fair", At(2004, 8, 19, 9), At(2004, 8, 19, 10));
    const test::AskedRestrictions asked(Program.State().Store.CalendarFolder);
    Program.Device.Key(VK_LEFT, kModifierControl);
    Program.Device.Key(VK_UP, kModifierControl);
    Settle();
    EXPECT_THAT(asked.Texts, testing::IsEmpty());
    Program.Device.Key(VK_UP, kModifierControl);
    Settle();
    EXPECT_EQ(Program.Header(), u"Tue, Aug, 31, 2004");
    EXPECT_EQ(Program.CellName(2, 4), u"2004-08-19: appointment");
    EXPECT_EQ(asked.Texts.size(), 1U);
}

TEST_F(DayMenuTest, ControlAndArrowsFindTheLeapDayOfTheYearTheyCameTo) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(2003, 12, 31, 10, 0));
    Open();
    for (int week = 0; week < 8; ++week) {
        Program.Device.Key(VK_DOWN, kModifierControl);
    }
    Settle();
    EXPECT_EQ(Program.Header(), u"Wed, Feb, 25, 2004");
    EXPECT_EQ(Program.CellName(4, 0), u"2004-02-29");
}

TEST_F(DayMenuTest, ControlAndArrowsStartFromADayThatExists) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(2004, 1, 31, 10, 0));
    Open();
    Program.Device.Key(VK_RIGHT); // the 31st of February
    Program.Device.Key(VK_RIGHT, kModifierControl);
    Settle();
    EXPECT_EQ(Program.Header(), u"Mon, Mar, 01, 2004");
}

TEST_F(DayMenuTest, ControlAndArrowsStopAtTheEndsOfTime) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(1901, 1, 3, 10, 0));
    Open();
    Program.Device.Key(VK_UP); // 1900
    for (int day = 0; day < 5; ++day) {
        Program.Device.Key(VK_LEFT, kModifierControl);
    }
    Settle();
    EXPECT_EQ(Program.Header(), u"Mon, Jan, 01, 1900");
}

TEST_F(DayMenuTest, AtTheEndOfTimeATappedDayStaysSelected) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(1901, 1, 10, 10, 0));
    Open();
    Program.Device.Key(VK_LEFT); // January 1900
    Program.TapAside(185, 70);   // its 5th
    Program.Device.Key(VK_UP, kModifierControl);
    Settle();
    EXPECT_EQ(Program.Header(), u"Fri, Jan, 05, 1900");
}

TEST_F(DayMenuTest, ControlAndArrowsComeBackFromABlankCell) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(2998, 12, 10, 10, 0));
    Open();
    const auto press = [this](int key, int modifiers) {
        Program.Device.Key(key, modifiers);
        Settle();
        return Program.Header();
    };
    EXPECT_EQ(press(VK_RIGHT, 0), u"Tue, Dec, 10, 2999");
    Program.Device.Tap(119, 175); // 1 January 3000, which is no day of the calendar
    Settle();
    EXPECT_EQ(Program.Header(), u"");
    EXPECT_EQ(press(VK_LEFT, kModifierControl), u"Tue, Dec, 31, 2999");
    EXPECT_EQ(press(VK_LEFT, kModifierControl), u"Mon, Dec, 30, 2999");
    for (int year = 0; year < 3; ++year) {
        Program.Device.Key(VK_UP);
    }
    Settle();
    EXPECT_EQ(Program.Header(), u"Fri, Dec, 30, 2996");
    Program.Device.Host().Time.Clock.SetLocalTime(At(1901, 1, 10, 10, 0));
    Program.Device.Tap(218, 18);
    EXPECT_EQ(press(VK_LEFT, 0), u"Wed, Jan, 10, 1900");
    Program.Device.Tap(10, 70); // 31 December 1899
    EXPECT_EQ(press(VK_RIGHT, kModifierControl), u"Mon, Jan, 01, 1900");
    EXPECT_EQ(press(VK_DOWN, kModifierControl), u"Mon, Jan, 08, 1900");
}

} // namespace
} // namespace tavo::test
