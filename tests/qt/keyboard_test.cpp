// Menus and message boxes worked with keys alone.
#include "tests/qt/desktop_test.h"
#include "tests/qt/hands.h"

#include <QMenu>

namespace tavo::qt {
namespace {

constexpr int kFirst = 101;
constexpr int kSecond = 102;

MenuItem Item(int id, std::u16string text) {
    MenuItem item;
    item.Id = id;
    item.Text = std::move(text);
    return item;
}

MenuItem Menu(std::u16string text, std::vector<MenuItem> children) {
    MenuItem item = Item(0, std::move(text));
    item.IsPopup = true;
    item.Children = std::move(children);
    return item;
}

class KeyboardTest : public DesktopTest {
  protected:
    KeyboardTest() {
        EXPECT_NE(Host.Menus().SHCreateMenuBar(
                      Page, {Menu(u"Tools", {Item(kFirst, u"About...")}), Menu(u"Edit", {Item(kSecond, u"Undo")})}),
                  WindowHandle::None);
        Run();
    }

    void Key(int key) {
        PressKey(Host, key, 0);
        Run();
        ReleaseKey(Host, key, 0);
        Run();
    }

    void Ask(MessageBoxButtons buttons) {
        MessageBoxDescription box;
        box.Text = u"Are you sure to delete?";
        box.Buttons = buttons;
        Host.Menus().OpenMessageBox(Page, box);
        Run();
    }

    int LastAnswer() const {
        for (auto message = Log.rbegin(); message != Log.rend(); ++message) {
            if (message->Number == WM_MESSAGEBOXCLOSED) {
                return message->Id;
            }
        }
        return 0;
    }
};

} // namespace

TEST_F(KeyboardTest, F10OpensTheFirstMenuAndReturnChooses) {
    Key(VK_F1 + 9);
    ASSERT_NE(Host.OpenMenu().Current(), nullptr);
    Key(VK_RETURN);
    ASSERT_EQ(Count(WM_COMMAND), 1);
    EXPECT_EQ(Log.back().Id, kFirst);
    EXPECT_EQ(Host.OpenMenu().Current(), nullptr);
}

TEST_F(KeyboardTest, ArrowsGoFromMenuToMenuAndAround) {
    Key(VK_F1 + 9);
    Key(VK_RIGHT);
    ASSERT_NE(Host.OpenMenu().Current(), nullptr);
    EXPECT_EQ(Host.OpenMenu().Current()->actions().front()->data().toInt(), kSecond);
    Key(VK_RIGHT);
    EXPECT_EQ(Host.OpenMenu().Current()->actions().front()->data().toInt(), kFirst);
    Key(VK_LEFT);
    Key(VK_RETURN);
    ASSERT_EQ(Count(WM_COMMAND), 1);
    EXPECT_EQ(Log.back().Id, kSecond);
}

TEST_F(KeyboardTest, EscapeClosesTheMenuOnlyAndItsReleaseReachesNobody) {
    Key(VK_F1 + 9);
    Log.clear();
    Key(VK_ESCAPE);
    EXPECT_EQ(Host.OpenMenu().Current(), nullptr);
    EXPECT_EQ(Count(WM_CLOSE), 0);
    EXPECT_EQ(Count(WM_KEYUP), 0);
}

TEST_F(KeyboardTest, AMenuStaysWithinTheDevicesScreen) {
    ASSERT_TRUE(Host.Menus().TrackPopupMenu(Page, {Item(1, u"A rather long entry"), Item(2, u"Another")}, {235, 290},
                                            MenuAlign::Left));
    Run();
    ASSERT_NE(Host.OpenMenu().Current(), nullptr);
    EXPECT_TRUE(Desktop().ScreenOnDesktop().contains(Host.OpenMenu().Current()->geometry()));
    Host.Menus().EndMenu();
    Run();
    EXPECT_EQ(Count(WM_EXITMENULOOP), 1);
}

TEST_F(KeyboardTest, ReturnAnswersWithTheMarkedButton) {
    Ask(MessageBoxButtons::YesNo);
    Key(VK_RETURN);
    EXPECT_EQ(LastAnswer(), IDYES);
    Ask(MessageBoxButtons::YesNo);
    Key(VK_RIGHT);
    Key(VK_RETURN);
    EXPECT_EQ(LastAnswer(), IDNO);
    Ask(MessageBoxButtons::YesNo);
    Key(VK_TAB);
    Key(VK_TAB);
    Key(VK_RETURN);
    EXPECT_EQ(LastAnswer(), IDYES);
}

TEST_F(KeyboardTest, LettersAnswerAQuestionAndEscapeOnlyWhatHasNoChoice) {
    Ask(MessageBoxButtons::YesNo);
    Key('N');
    EXPECT_EQ(LastAnswer(), IDNO);
    Ask(MessageBoxButtons::YesNo);
    Key('Y');
    EXPECT_EQ(LastAnswer(), IDYES);
    Ask(MessageBoxButtons::YesNo);
    Key(VK_ESCAPE);
    EXPECT_TRUE(Host.Box().isVisible());
    Key('N');
    Ask(MessageBoxButtons::Ok);
    Key(VK_ESCAPE);
    EXPECT_EQ(LastAnswer(), IDOK);
    EXPECT_FALSE(Host.Box().isVisible());
    EXPECT_EQ(Count(WM_KEYDOWN), 0);
}

TEST_F(KeyboardTest, ControlQQuitsFromAnywhere) {
    PressKey(Host, 'Q', kModifierControl);
    Run();
    EXPECT_EQ(Count(WM_QUERYENDSESSION), 1);
    Ask(MessageBoxButtons::Ok);
    PressKey(Host, 'Q', kModifierControl);
    Run();
    EXPECT_EQ(Count(WM_QUERYENDSESSION), 2);
}

TEST_F(KeyboardTest, AMessageBoxWithoutACaptionHasTheProgramsName) {
    Ask(MessageBoxButtons::Ok);
    EXPECT_EQ(Host.Box().Title(), "Tavo Calendar");
}

} // namespace tavo::qt
