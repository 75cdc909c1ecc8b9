// Closing and choosing where several things are open.
#include "tests/shell/shell_fixture.h"

namespace tavo::shell {

namespace {

class NavigationInputTest : public ShellTest {
  protected:
    WindowHandle MakeBar() {
        MenuItem exit;
        exit.Id = 32900;
        MenuItem tools;
        tools.Text = u"Tools";
        tools.IsPopup = true;
        tools.Children.push_back(exit);
        MenuItem direct;
        direct.Id = 32901;
        direct.Text = u"New";
        return Menus.SHCreateMenuBar(Page, {tools, direct});
    }
};

TEST_F(NavigationInputTest, WithNothingToCloseTheDesktopsCloseQuits) {
    Windows.ShowWindow(Page, ShowCommand::Hide);
    EXPECT_FALSE(Navigation.PressClose());
    Navigation.RequestClose();
    EXPECT_EQ(Drain(), std::vector<Message>({{Frame, WM_QUERYENDSESSION, 0, 0, 0, {}}}));
}

// Nobody is there to answer any more, whoever was first.
TEST_F(NavigationInputTest, TheSessionsEndPrevailsOverAPersonWhoQuitsInTheSameTurn) {
    Navigation.RequestQuit();
    Navigation.RequestQuit(kSessionEnds);
    EXPECT_EQ(Drain(), std::vector<Message>({{Frame, WM_QUERYENDSESSION, kSessionEnds, 0, 0, {}}}));
    Navigation.RequestQuit(kSessionEnds);
    Navigation.RequestQuit();
    EXPECT_EQ(Drain(), std::vector<Message>({{Frame, WM_QUERYENDSESSION, kSessionEnds, 0, 0, {}}}));
}

TEST_F(NavigationInputTest, EscapeClosesDialogsButNoPage) {
    EXPECT_FALSE(Navigation.PressEscape());
    EXPECT_TRUE(Drain().empty());
    const WindowHandle dialog = Make(WindowKind::Dialog, Page, {});
    Drain();
    EXPECT_TRUE(Navigation.PressEscape());
    EXPECT_EQ(Drain(), std::vector<Message>({{dialog, WM_COMMAND, IDCANCEL, BN_CLICKED, 1, {}}}));
}

TEST_F(NavigationInputTest, DesktopsCloseShutsAMenuAndAsksThePage) {
    ASSERT_TRUE(Menus.TrackPopupMenu(Page, {}, {}, MenuAlign::Left));
    Navigation.RequestClose();
    EXPECT_EQ(DrainNumbers(), (std::vector<MessageNumber>{WM_EXITMENULOOP, WM_CLOSE}));
}

TEST_F(NavigationInputTest, DesktopsCloseDoesNotPassABox) {
    MessageBoxDescription question;
    question.Buttons = MessageBoxButtons::YesNo;
    Menus.OpenMessageBox(Page, question);
    Navigation.RequestClose();
    EXPECT_TRUE(Drain().empty());
    EXPECT_EQ(State.Menus.Boxes.size(), 1u);
}

TEST_F(NavigationInputTest, OkIsForDialogsThatShowIt) {
    Navigation.PressOk();
    Make(WindowKind::Dialog, Page, {}, NavigationButtons::None);
    Drain();
    Navigation.PressOk();
    EXPECT_TRUE(Drain().empty());
}

TEST_F(NavigationInputTest, ItemCanBeChosenOnlyWhileItsMenuIsOpen) {
    MakeBar();
    EXPECT_FALSE(Navigation.ChooseCommand(32900));
    ASSERT_TRUE(Navigation.OpenBarMenu(0));
    EXPECT_FALSE(Navigation.ChooseCommand(32900)); // announced, not open
    Drain();
    EXPECT_TRUE(Navigation.ChooseCommand(32900));
    EXPECT_EQ(Drain(), std::vector<Message>({{Page, WM_COMMAND, 32900, BN_CLICKED, 1, {}}}));
    EXPECT_FALSE(State.Menus.IsMenuOpen());
}

TEST_F(NavigationInputTest, CommandThatLiesInTheBarItselfNeedsNoMenu) {
    MakeBar();
    EXPECT_TRUE(Navigation.ChooseCommand(32901));
    EXPECT_EQ(Drain().size(), 1u);
}

TEST_F(NavigationInputTest, FromOneMenuOfTheBarToTheNext) {
    MakeBar();
    ASSERT_TRUE(Navigation.OpenBarMenu(0));
    Drain();
    ASSERT_TRUE(State.Menus.BarMenu.has_value());
    ASSERT_TRUE(Navigation.OpenBarMenu(1));
    Drain();
    ASSERT_TRUE(State.Menus.BarMenu.has_value());
    EXPECT_EQ(State.Menus.BarMenu->Index, 1);
    Navigation.CloseBarMenu();
    EXPECT_FALSE(State.Menus.IsMenuOpen());
    EXPECT_FALSE(Navigation.OpenBarMenu(2));
    EXPECT_FALSE(Navigation.OpenBarMenu(-1));
}

TEST_F(NavigationInputTest, MenuDoesNotOpenWhenADialogCameBetween) {
    MakeBar();
    ASSERT_TRUE(Navigation.OpenBarMenu(0));
    EXPECT_EQ(Queue.Wait().Number, WM_INITMENUPOPUP);
    Make(WindowKind::Dialog, Page, {});
    Drain();
    EXPECT_FALSE(State.Menus.IsMenuOpen());
}

// Its index would mean a menu of the other bar, or none at all.
TEST_F(NavigationInputTest, MenuThatIsOpenClosesWhenAnotherBarComesOnShow) {
    MakeBar();
    ASSERT_TRUE(Navigation.OpenBarMenu(1));
    Drain();
    ASSERT_TRUE(State.Menus.BarMenu.has_value());
    const WindowHandle other = Make(WindowKind::Dialog, Page, {});
    EXPECT_FALSE(State.Menus.BarMenu.has_value()); // without a bar too
    MenuItem only;
    only.Id = 500;
    Menus.SHCreateMenuBar(other, {only});
    EXPECT_FALSE(Navigation.ChooseCommand(32901));
    EXPECT_TRUE(Navigation.ChooseCommand(500));
}

TEST_F(NavigationInputTest, MenuThatIsOpenClosesWithItsBarOrItsWindow) {
    const WindowHandle bar = MakeBar();
    ASSERT_TRUE(Navigation.OpenBarMenu(1));
    Drain();
    Windows.DestroyWindow(bar);
    EXPECT_FALSE(State.Menus.BarMenu.has_value());
    EXPECT_FALSE(Navigation.ChooseCommand(32901));
    MakeBar();
    ASSERT_TRUE(Navigation.OpenBarMenu(1));
    Drain();
    Windows.DestroyWindow(Page);
    EXPECT_FALSE(State.Menus.BarMenu.has_value());
    EXPECT_FALSE(Navigation.ChooseCommand(32901));
}

TEST_F(NavigationInputTest, MenuThatIsOpenClosesWhenItsWindowGetsAnotherBar) {
    MakeBar();
    ASSERT_TRUE(Navigation.OpenBarMenu(0));
    Drain();
    Menus.SHCreateMenuBar(Page, {});
    EXPECT_FALSE(State.Menus.BarMenu.has_value());
    EXPECT_FALSE(Navigation.ChooseCommand(32900));
}

TEST_F(NavigationInputTest, BoxTakesOnlyAnswersThatItOffers) {
    Menus.OpenMessageBox(Page, {});
    EXPECT_FALSE(Navigation.AnswerBox(IDYES));
    EXPECT_TRUE(Navigation.AnswerBox(IDOK));
    EXPECT_FALSE(Navigation.AnswerBox(IDOK));
    MessageBoxDescription question;
    question.Buttons = MessageBoxButtons::YesNo;
    Menus.OpenMessageBox(Page, question);
    EXPECT_FALSE(Navigation.AnswerBox(IDOK));
    EXPECT_FALSE(Navigation.AnswerBox(IDCANCEL));
    EXPECT_TRUE(Navigation.AnswerBox(IDNO));
}

TEST_F(NavigationInputTest, OpeningABoxClosesMenusAndLists) {
    ASSERT_TRUE(Menus.TrackPopupMenu(Page, {}, {}, MenuAlign::Left));
    Menus.OpenMessageBox(Page, {});
    EXPECT_FALSE(State.Menus.IsMenuOpen());
    EXPECT_EQ(DrainNumbers(), std::vector<MessageNumber>{WM_EXITMENULOOP});
}

} // namespace

} // namespace tavo::shell
