// Where windows lie, who is seen, who takes input.
#include "tests/shell/shell_fixture.h"

namespace tavo::shell {

namespace {

using WindowTreeTest = ShellTest;

TEST_F(WindowTreeTest, FrameIsTheScreenAndPagesAreTheClientArea) {
    EXPECT_EQ(State.Tree.ScreenBounds(Frame), (Rect{0, 0, 240, 320}));
    EXPECT_EQ(State.Tree.ScreenBounds(View), (Rect{0, 26, 240, 294}));
    EXPECT_EQ(State.Tree.ScreenBounds(Page), (Rect{0, 26, 240, 294}));
    EXPECT_EQ(Windows.GetClientRect(Page), (Rect{0, 0, 240, 268}));
}

TEST_F(WindowTreeTest, ChildrenLieInTheirParentsPixels) {
    const WindowHandle list = Make(WindowKind::Child, Page, Rect::FromSize(0, 30, 240, 210));
    const WindowHandle row = Make(WindowKind::Child, list, Rect::FromSize(5, 20, 50, 10));
    EXPECT_EQ(State.Tree.ScreenBounds(row), Rect::FromSize(5, 76, 50, 10));
    EXPECT_EQ(State.Tree.ToWindow(row, {7, 80}), (Point{2, 4}));
}

TEST_F(WindowTreeTest, SmallDialogLiesInTheClientArea) {
    const WindowHandle dialog = Make(WindowKind::Dialog, Page, Rect::FromSize(20, 50, 200, 100));
    EXPECT_EQ(State.Tree.ScreenBounds(dialog), Rect::FromSize(20, 76, 200, 100));
    const WindowHandle whole = Make(WindowKind::Dialog, WindowHandle::None, {});
    EXPECT_EQ(State.Tree.ScreenBounds(whole), (Rect{0, 26, 240, 294}));
}

TEST_F(WindowTreeTest, HitFindsTheInnermostAndPassesBesideASmallDialog) {
    const WindowHandle dialog = Make(WindowKind::Dialog, Page, Rect::FromSize(20, 50, 200, 100));
    EXPECT_EQ(State.Tree.HitTest({21, 77}), dialog);
    EXPECT_EQ(State.Tree.HitTest({10, 77}), Page);
    EXPECT_EQ(State.Tree.HitTest({10, 10}), WindowHandle::None);  // navigation bar
    EXPECT_EQ(State.Tree.HitTest({10, 300}), WindowHandle::None); // menu bar
}

TEST_F(WindowTreeTest, LastShownSiblingLiesOnTop) {
    const WindowHandle one = MakeControl(ControlKind::Edit, 1, Rect::FromSize(10, 10, 100, 20));
    const WindowHandle other = MakeControl(ControlKind::FixedList, 2, Rect::FromSize(10, 10, 100, 20));
    EXPECT_EQ(State.Tree.HitTest({15, 40}), other);
    Windows.ShowWindow(one, ShowCommand::Hide);
    Windows.ShowWindow(one, ShowCommand::Show);
    EXPECT_EQ(State.Tree.HitTest({15, 40}), one);
}

TEST_F(WindowTreeTest, DialogShownLastIsOnTop) {
    const WindowHandle first = Make(WindowKind::Dialog, Page, {});
    const WindowHandle second = Make(WindowKind::Dialog, Page, {});
    EXPECT_EQ(State.Tree.Top(), second);
    Windows.ShowWindow(second, ShowCommand::Hide);
    EXPECT_EQ(State.Tree.Top(), first);
    Windows.DestroyWindow(first);
    EXPECT_EQ(State.Tree.Top(), Page);
    Windows.ShowWindow(Page, ShowCommand::Hide);
    EXPECT_EQ(State.Tree.Top(), Frame);
}

TEST_F(WindowTreeTest, EnabledReachesUpToTheDialog) {
    const WindowHandle dialog = Make(WindowKind::Dialog, Page, {});
    const WindowHandle child = Make(WindowKind::Child, dialog, Rect::FromSize(0, 0, 10, 10));
    Windows.EnableWindow(Frame, false);
    EXPECT_FALSE(Windows.IsWindowEnabled(Page));
    EXPECT_TRUE(Windows.IsWindowEnabled(dialog));
    EXPECT_TRUE(Windows.IsWindowEnabled(child));
    Windows.EnableWindow(dialog, false);
    EXPECT_FALSE(Windows.IsWindowEnabled(child));
}

TEST_F(WindowTreeTest, VisibleReachesUpToTheFrame) {
    const WindowHandle child = Make(WindowKind::Child, Page, Rect::FromSize(0, 0, 10, 10));
    EXPECT_TRUE(Windows.IsWindowVisible(child));
    Windows.ShowWindow(Frame, ShowCommand::Hide);
    EXPECT_FALSE(Windows.IsWindowVisible(child));
    EXPECT_FALSE(Windows.IsWindowVisible(WindowHandle{999}));
}

TEST_F(WindowTreeTest, SubtreeComesInnermostFirst) {
    const WindowHandle child = Make(WindowKind::Child, Page, Rect::FromSize(0, 0, 10, 10));
    const WindowHandle inner = Make(WindowKind::Child, child, Rect::FromSize(0, 0, 5, 5));
    EXPECT_EQ(State.Tree.Subtree(Page), (std::vector<WindowHandle>{inner, child, Page}));
    EXPECT_TRUE(State.Tree.Lies(inner, Page));
    EXPECT_FALSE(State.Tree.Lies(Page, inner));
    EXPECT_EQ(State.Tree.Ground(inner), Page);
}

} // namespace

} // namespace tavo::shell
