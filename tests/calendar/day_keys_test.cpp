// Enter and the arrow keys with Ctrl: the selected day and its menu.
#include "tests/calendar/day_menu_desk.h"

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

TEST_F(DayMenuTest, EnterOpensItInTheMiddleForADayThatTheGridDoesNotShow) {
    Program.Device.Host().Time.Clock.SetLocalTime(At(2004, 1, 31, 10, 0));
    Open();
    Program.Device.Key(VK_RIGHT); // the 31st of February
    Program.Device.Key(VK_RETURN);
    Check([this] {
        ASSERT_TRUE(Menus().Tracked.has_value());
        EXPECT_EQ(Menus().Tracked->At, (Point{119 + 5, 136 + 29}));
    });
    Choose(0);
    Settle();
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

} // namespace
} // namespace tavo::test
