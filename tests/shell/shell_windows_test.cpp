// Making and destroying, showing and minimising, focus.
#include "tests/shell/shell_fixture.h"

#include <algorithm>

namespace tavo::shell {

namespace {

class ShellWindowsTest : public ShellTest {
  protected:
    bool WasTold(Change change, WindowHandle window) const {
        const auto& told = Observer.Changes;
        return std::find(told.begin(), told.end(), std::pair(change, window)) != told.end();
    }
};

TEST_F(ShellWindowsTest, SecondFrameAndOrphansAreRefused) {
    EXPECT_EQ(Make(WindowKind::Frame, WindowHandle::None, {}), WindowHandle::None);
    EXPECT_EQ(Make(WindowKind::Child, WindowHandle{99}, {}), WindowHandle::None);
    EXPECT_EQ(Controls.CreateControl(WindowHandle{99}, {}), WindowHandle::None);
}

TEST_F(ShellWindowsTest, DestroyTakesChildrenTimersAndMenuBars) {
    const WindowHandle child = Make(WindowKind::Child, Page, Rect::FromSize(0, 0, 10, 10));
    Menus.SHCreateMenuBar(Page, {});
    Windows.SetTimer(child, 1, 10);
    Drain();
    Observer.Changes.clear();
    Windows.DestroyWindow(Page);
    EXPECT_EQ(State.Tree.Find(child), nullptr);
    EXPECT_TRUE(State.Menus.Bars.empty());
    EXPECT_TRUE(WasTold(Change::Destroyed, child));
    EXPECT_TRUE(WasTold(Change::Top, Frame));
    Source.Now += 1000;
    EXPECT_TRUE(Drain().empty());
}

TEST_F(ShellWindowsTest, HandlesNeverComeAgain) {
    const WindowHandle child = Make(WindowKind::Child, Page, {});
    Windows.DestroyWindow(child);
    EXPECT_NE(Make(WindowKind::Child, Page, {}), child);
}

TEST_F(ShellWindowsTest, OwnerThatGoesClosesItsTrackedMenu) {
    const WindowHandle child = Make(WindowKind::Child, Page, Rect::FromSize(0, 0, 10, 10));
    Drain();
    ASSERT_TRUE(Menus.TrackPopupMenu(child, {}, {}, MenuAlign::Left));
    Windows.DestroyWindow(child);
    EXPECT_EQ(Drain(), std::vector<Message>({{child, WM_EXITMENULOOP, 0, 0, 0, {}}}));
}

TEST_F(ShellWindowsTest, MinimisingViewOrFrameSendsTheProgramBackAndAPageStays) {
    Windows.ShowWindow(Page, ShowCommand::Minimize);
    EXPECT_FALSE(State.Minimized);
    EXPECT_TRUE(Windows.IsWindowVisible(Page));
    Windows.ShowWindow(View, ShowCommand::Minimize);
    EXPECT_TRUE(State.Minimized);
    EXPECT_TRUE(WasTold(Change::FrameState, Frame));
    EXPECT_TRUE(Windows.IsWindowVisible(Page));
    Windows.ShowWindow(Frame, ShowCommand::Maximize);
    EXPECT_FALSE(State.Minimized);
    EXPECT_EQ(State.Tree.ShownPage(), Page);
}

TEST_F(ShellWindowsTest, ForegroundIsTheFramesWhateverIsNamed) {
    Windows.SetForegroundWindow(Page);
    EXPECT_TRUE(WasTold(Change::BroughtForward, Frame));
    Observer.Changes.clear();
    Windows.SetForegroundWindow(WindowHandle{99});
    EXPECT_TRUE(Observer.Changes.empty());
}

TEST_F(ShellWindowsTest, FocusCannotGoToWhatIsHiddenOrDisabled) {
    const WindowHandle edit = MakeControl(ControlKind::Edit, 1, Rect::FromSize(0, 0, 50, 20));
    Windows.SetFocus(edit);
    EXPECT_EQ(Windows.GetFocus(), edit);
    Windows.EnableWindow(edit, false);
    EXPECT_EQ(Windows.GetFocus(), WindowHandle::None);
    Windows.SetFocus(edit);
    EXPECT_EQ(Windows.GetFocus(), WindowHandle::None);
}

TEST_F(ShellWindowsTest, DestroyedFocusIsNobodys) {
    const WindowHandle edit = MakeControl(ControlKind::Edit, 1, Rect::FromSize(0, 0, 50, 20));
    Windows.SetFocus(edit);
    Windows.DestroyWindow(edit);
    EXPECT_EQ(Windows.GetFocus(), WindowHandle::None);
}

TEST_F(ShellWindowsTest, InvalidAreasGrowTogetherAndStayInTheWindow) {
    Windows.InvalidateRect(Page, {10, 10, 20, 20});
    Windows.InvalidateRect(Page, {15, 5, 300, 12});
    EXPECT_EQ(State.Tree.Find(Page)->Invalid, (Rect{10, 5, 240, 20}));
    EXPECT_EQ(DrainNumbers(), std::vector<MessageNumber>{WM_PAINT});
    Windows.InvalidateRect(Page, {-20, -20, -10, -10});
    EXPECT_TRUE(Drain().empty());
}

TEST_F(ShellWindowsTest, CursorIsToldWhenItChanges) {
    Windows.SetCursor(Cursor::Wait);
    Windows.SetCursor(Cursor::Wait);
    EXPECT_EQ(Observer.Changes.size(), 1u);
    EXPECT_EQ(State.Cursor, Cursor::Wait);
}

} // namespace

} // namespace tavo::shell
