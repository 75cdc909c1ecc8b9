// Stylus, navigation bar and wheel.
#include "tests/shell/shell_fixture.h"

namespace tavo::shell {

namespace {

using StylusInputTest = ShellTest;

TEST_F(StylusInputTest, ControlIsGivenToTheHost) {
    const WindowHandle edit = MakeControl(ControlKind::Edit, 1, Rect::FromSize(0, 0, 50, 20));
    EXPECT_EQ(Stylus.Down({10, 30}), edit);
    Stylus.Up({10, 30});
    EXPECT_TRUE(Drain().empty());
    Windows.EnableWindow(edit, false);
    EXPECT_EQ(Stylus.Down({10, 30}), WindowHandle::None);
    EXPECT_TRUE(Drain().empty()); // nor does it fall through to the page
}

TEST_F(StylusInputTest, LiftedOutsideTheWindowItStillEndsThere) {
    Stylus.Down({10, 30});
    Stylus.Up({10, 5});
    const std::vector<Message> messages = Drain();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[1], (Message{Page, WM_LBUTTONUP, 0, 0, 0, {10, -21}}));
}

TEST_F(StylusInputTest, CancelledGestureSendsNothingMore) {
    Stylus.Down({10, 30});
    Stylus.Cancel();
    Stylus.Move({10, 40});
    Stylus.Up({10, 40});
    EXPECT_EQ(DrainNumbers(), std::vector<MessageNumber>{WM_LBUTTONDOWN});
}

TEST_F(StylusInputTest, NavigationButtonsActWhenLiftedOnThem) {
    const WindowHandle dialog = Make(WindowKind::Dialog, Page, {});
    Drain();
    Stylus.Down({kOkButton.Left, 5});
    Stylus.Up({kOkButton.Left - 1, 5}); // slid off
    EXPECT_TRUE(Drain().empty());
    Stylus.Down({kOkButton.Left, 5});
    Stylus.Up({kOkButton.Right - 1, 25});
    EXPECT_EQ(Drain(), std::vector<Message>({{dialog, WM_COMMAND, IDOK, BN_CLICKED, 1, {}}}));
    Stylus.Down({kCloseButton.Left, 5});
    Stylus.Up({kCloseButton.Left, 5});
    EXPECT_EQ(Drain(), std::vector<Message>({{dialog, WM_COMMAND, IDCANCEL, BN_CLICKED, 1, {}}}));
}

TEST_F(StylusInputTest, DialogWithButtonsOfItsOwnHasNoneInTheBar) {
    Make(WindowKind::Dialog, Page, {}, NavigationButtons::None);
    Drain();
    for (const Rect& button : {kOkButton, kCloseButton}) {
        Stylus.Down({button.Left, 5});
        Stylus.Up({button.Left, 5});
    }
    EXPECT_TRUE(Drain().empty());
}

TEST_F(StylusInputTest, WheelGoesToWhatLiesUnderIt) {
    const WindowHandle list = Make(WindowKind::Child, Page, Rect::FromSize(0, 30, 100, 100));
    Drain();
    Stylus.Wheel({5, 60}, -2);
    Stylus.Wheel({5, 5}, 1); // the navigation bar
    EXPECT_EQ(Drain(), std::vector<Message>({{list, WM_MOUSEWHEEL, 0, -2, 0, {5, 4}}}));
}

TEST_F(StylusInputTest, TapBesideAnOpenListClosesItOnly) {
    const WindowHandle list = MakeControl(ControlKind::FixedList, 3, Rect::FromSize(0, 0, 50, 20));
    Input.OpenList(list);
    Drain();
    ASSERT_EQ(State.OpenList, list);
    Stylus.Down({100, 100});
    Stylus.Up({100, 100});
    EXPECT_EQ(State.OpenList, WindowHandle::None);
    EXPECT_EQ(Drain(), std::vector<Message>({{Page, WM_COMMAND, 3, CBN_CLOSEUP, 0, {}}}));
}

} // namespace

} // namespace tavo::shell
