// What Wait hands out, and when it looks outside.
#include "tests/shell/shell_fixture.h"

namespace tavo::shell {

namespace {

using ShellQueueTest = ShellTest;

TEST_F(ShellQueueTest, PostedThenPaintsThenTimers) {
    Windows.SetTimer(View, 1, 10);
    Source.Now += 20;
    Windows.InvalidateRect(Page, {0, 0, 5, 5});
    Windows.InvalidateRect(View, {0, 0, 5, 5});
    Queue.PostMessageW({Page, WM_USER, 0, 0, 0, {}});
    const std::vector<Message> messages = Drain();
    ASSERT_EQ(messages.size(), 4u);
    EXPECT_EQ(messages[0].Number, WM_USER);
    EXPECT_EQ(messages[1], (Message{View, WM_PAINT, 0, 0, 0, {}}));
    EXPECT_EQ(messages[2], (Message{Page, WM_PAINT, 0, 0, 0, {}}));
    EXPECT_EQ(messages[3], (Message{View, WM_TIMER, 1, 0, 0, {}}));
}

TEST_F(ShellQueueTest, WaitsNoLongerThanToTheNextTimer) {
    Windows.SetTimer(View, 1, 300);
    Windows.SetTimer(Page, 2, 200);
    Drain();
    EXPECT_EQ(Source.Deadlines.back(), Milliseconds{1200});
    Windows.KillTimer(Page, 2);
    Windows.KillTimer(View, 1);
    Drain();
    EXPECT_EQ(Source.Deadlines.back(), std::nullopt);
}

TEST_F(ShellQueueTest, MinimisedOnlyTheViewsTimersWakeTheProgram) {
    const WindowHandle dialog = Make(WindowKind::Dialog, Page, {});
    Windows.SetTimer(Page, 1, 471);
    Windows.SetTimer(dialog, 1, 100);
    Windows.SetTimer(View, 1006, 30'000);
    Drain();
    State.SetMinimized(true);
    Drain();
    EXPECT_EQ(Source.Deadlines.back(), Milliseconds{31'000});
    Source.Now += 5000;
    Windows.InvalidateRect(Page, {0, 0, 5, 5});
    EXPECT_TRUE(Drain().empty());
    State.SetMinimized(false);
    EXPECT_EQ(DrainNumbers(), (std::vector<MessageNumber>{WM_PAINT, WM_TIMER, WM_TIMER}));
    EXPECT_TRUE(Drain().empty());
}

TEST_F(ShellQueueTest, InputThatWaitedIsDroppedBehindABoxButNoticesAreNot) {
    Stylus.Down({50, 60});
    Windows.SetTimer(Page, 1, 10);
    State.Post({Page, WM_COMMAND, 5, CBN_CLOSEUP, 0, {}});
    Menus.OpenMessageBox(Page, {});
    Source.Now += 10;
    EXPECT_EQ(DrainNumbers(), (std::vector<MessageNumber>{WM_COMMAND, WM_TIMER}));
}

TEST_F(ShellQueueTest, TapThatWaitedIsDroppedWhenAMenuOpened) {
    Stylus.Down({50, 60});
    Stylus.Up({50, 60});
    const Message down = Queue.Wait();
    EXPECT_EQ(down.Number, WM_LBUTTONDOWN);
    Stylus.Down({60, 60}); // before the handler opens its menu
    ASSERT_TRUE(Menus.TrackPopupMenu(Page, {}, {}, MenuAlign::Left));
    EXPECT_EQ(DrainNumbers(), std::vector<MessageNumber>{WM_LBUTTONUP}); // the end of the first tap
}

TEST_F(ShellQueueTest, ScaleReachesEveryPaintedWindowAndNoControl) {
    MakeControl(ControlKind::Edit, 1, Rect::FromSize(0, 0, 50, 20));
    State.AnnounceScale();
    const std::vector<Message> messages = Drain();
    ASSERT_EQ(messages.size(), 3u);
    EXPECT_EQ(messages[0], (Message{Frame, WM_DISPLAYCHANGE, 0, 0, 0, {}}));
    EXPECT_EQ(messages[2], (Message{Page, WM_DISPLAYCHANGE, 0, 0, 0, {}}));
}

TEST_F(ShellQueueTest, OneChangeOfTheStoreIsPending) {
    State.AnnounceStoreChange();
    State.AnnounceStoreChange();
    EXPECT_EQ(Drain(), std::vector<Message>({{Frame, WM_STORECHANGED, 0, 0, 0, {}}}));
    State.AnnounceStoreChange();
    EXPECT_EQ(Drain().size(), 1u);
}

TEST_F(ShellQueueTest, TheCompanionsTimerReachesTheViewOnceAndMinimisedToo) {
    State.SetMinimized(true);
    State.AnnounceReminders();
    State.AnnounceReminders();
    EXPECT_EQ(Drain(), std::vector<Message>({{View, WM_TIMER, 1006, 0, 0, {}}}));
    State.AnnounceReminders();
    EXPECT_EQ(Drain().size(), 1u);
}

TEST_F(ShellQueueTest, QuitComesBeforeEverythingElse) {
    Queue.PostMessageW({Page, WM_USER, 0, 0, 0, {}});
    Queue.PostQuitMessage(4);
    EXPECT_EQ(Queue.Wait().Number, WM_QUIT);
    EXPECT_EQ(Queue.Wait().Id, 4);
}

} // namespace

} // namespace tavo::shell
