// Who gets a key.
#include "tests/shell/shell_fixture.h"

namespace tavo::shell {

namespace {

class KeyInputTest : public ShellTest {
  protected:
    void MakeBar(std::u16string shortcut) {
        MenuItem item;
        item.Id = 32781;
        item.Shortcut = std::move(shortcut);
        MenuItem menu;
        menu.IsPopup = true;
        menu.Children.push_back(item);
        Menus.SHCreateMenuBar(Page, {menu});
    }

    bool TakesShortcut(int key, int modifiers) {
        Keys.Down(key, modifiers);
        for (const Message& message : Drain()) {
            if (message.Number == WM_COMMAND && message.Id == 32781) {
                return true;
            }
        }
        return false;
    }
};

TEST_F(KeyInputTest, FocusedControlIsGivenToTheHost) {
    const WindowHandle edit = MakeControl(ControlKind::Edit, 1, Rect::FromSize(0, 0, 50, 20));
    Windows.SetFocus(edit);
    Drain();
    EXPECT_EQ(Keys.Down('A', 0), edit);
    EXPECT_EQ(Keys.Character(u'a'), edit);
    Keys.Up('A', 0);
    EXPECT_TRUE(Drain().empty());
    Keys.Unused(edit, VK_F1, 0);
    EXPECT_EQ(Drain(), std::vector<Message>({{Page, WM_KEYDOWN, VK_F1, 0, 0, {}}}));
}

TEST_F(KeyInputTest, LastShownOfSeveralControlsTakesTheKeys) {
    const WindowHandle one = MakeControl(ControlKind::Edit, 1, Rect::FromSize(0, 0, 50, 20));
    const WindowHandle other = MakeControl(ControlKind::DatePicker, 2, Rect::FromSize(0, 30, 50, 20));
    const WindowHandle button = MakeControl(ControlKind::PushButton, 3, Rect::FromSize(0, 60, 50, 20));
    EXPECT_EQ(Keys.Down(VK_DOWN, 0), WindowHandle::None); // none was shown by the program yet
    for (const WindowHandle control : {one, other, button}) {
        Windows.ShowWindow(control, ShowCommand::Hide);
        Windows.ShowWindow(control, ShowCommand::Show);
    }
    EXPECT_EQ(Keys.Down(VK_DOWN, 0), other); // a button takes no keys by itself
    EXPECT_EQ(Windows.GetFocus(), other);
}

TEST_F(KeyInputTest, ControlOfThePageTakesNoKeysBehindADialog) {
    const WindowHandle edit = MakeControl(ControlKind::Edit, 1, Rect::FromSize(0, 0, 50, 20));
    Windows.ShowWindow(edit, ShowCommand::Hide);
    Windows.ShowWindow(edit, ShowCommand::Show);
    const WindowHandle dialog = Make(WindowKind::Dialog, Page, {});
    Drain();
    EXPECT_EQ(Keys.Down('A', 0), WindowHandle::None);
    EXPECT_EQ(Drain(), std::vector<Message>({{dialog, WM_KEYDOWN, 'A', 0, 0, {}}}));
}

TEST_F(KeyInputTest, KeyUpGoesWhereItsDownWent) {
    Keys.Down(VK_LEFT, 0);
    const WindowHandle dialog = Make(WindowKind::Dialog, Page, {});
    Keys.Up(VK_LEFT, 0);
    Keys.Up(VK_RIGHT, 0); // pressed before anyone looked
    Windows.EnableWindow(Page, true);
    std::vector<Message> keys;
    for (const Message& message : Drain()) {
        if (message.Number == WM_KEYUP) {
            keys.push_back(message);
        }
    }
    EXPECT_EQ(keys,
              std::vector<Message>({{Page, WM_KEYUP, VK_LEFT, 0, 0, {}}, {dialog, WM_KEYUP, VK_RIGHT, 0, 0, {}}}));
}

TEST_F(KeyInputTest, KeysThatAMenuTookHaveNoUp) {
    ASSERT_TRUE(Menus.TrackPopupMenu(Page, {}, {}, MenuAlign::Left));
    Keys.Down(VK_DOWN, 0);
    Keys.Down(VK_ESCAPE, 0);
    Keys.Up(VK_DOWN, 0);
    Keys.Up(VK_ESCAPE, 0);
    EXPECT_EQ(DrainNumbers(), std::vector<MessageNumber>{WM_EXITMENULOOP});
}

TEST_F(KeyInputTest, ReturnGivesABoxItsFirstAnswer) {
    MessageBoxDescription question;
    question.Buttons = MessageBoxButtons::YesNo;
    Menus.OpenMessageBox(Page, question);
    Keys.Down(VK_RETURN, 0);
    EXPECT_EQ(Drain(), std::vector<Message>({{Page, WM_MESSAGEBOXCLOSED, IDYES, 0, 0, {}}}));
}

TEST_F(KeyInputTest, ControlQQuits) {
    Keys.Down('Q', kModifierControl);
    EXPECT_EQ(Drain(), std::vector<Message>({{Frame, WM_QUERYENDSESSION, 0, 0, 0, {}}}));
}

TEST_F(KeyInputTest, ShortcutsAreReadAsMenusShowThem) {
    MakeBar(u"Ctrl+Z");
    EXPECT_TRUE(TakesShortcut('Z', kModifierControl));
    EXPECT_FALSE(TakesShortcut('Z', 0));
    EXPECT_FALSE(TakesShortcut('Z', kModifierControl | kModifierShift));
}

TEST_F(KeyInputTest, FunctionKeysAndDelAreShortcutsToo) {
    MakeBar(u"Shift+F10");
    EXPECT_TRUE(TakesShortcut(VK_F1 + 9, kModifierShift));
    MakeBar(u"Del");
    EXPECT_TRUE(TakesShortcut(VK_DELETE, 0));
}

TEST_F(KeyInputTest, EditKeepsTheKeysThatEditText) {
    MakeBar(u"Ctrl+Z");
    const WindowHandle edit = MakeControl(ControlKind::Edit, 1, Rect::FromSize(0, 0, 50, 20));
    Windows.SetFocus(edit);
    EXPECT_EQ(Keys.Down('Z', kModifierControl), edit);
}

} // namespace

} // namespace tavo::shell
