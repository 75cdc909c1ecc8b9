// Keys in the editor on the desktop: what the toolkit must leave to the program, and what it must not lose.
#include "tests/qt/editor_desk.h"
#include "tests/qt/hands.h"

#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <utility>

namespace tavo::qt {
namespace {

class EditorKeysOnTheDesktop : public EditorOnTheDesktop {
  protected:
    // The script ends with no dialog open.
    void Leave(int dialogs) {
        for (int i = 0; i < dialogs; ++i) {
            Program.Key(VK_ESCAPE);
        }
        ASSERT_TRUE(Program.Settle());
        EXPECT_FALSE(Program.IsDialogOpen());
    }
};

// So that what is tried where the theme lets Return press buttons is tried there indeed.
TEST(PlatformTheme, LetsReturnPressAButtonOnlyWhereThatIsExpected) {
    QPushButton button;
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, &button, [&clicks] { ++clicks; });
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks, qEnvironmentVariableIsSet("TAVO_THEME_TAKES_RETURN") ? 1 : 0);
}

TEST_F(EditorKeysOnTheDesktop, SpaceTurnsAWeekdayAfterAMouseClickOnAnother) {
    OpenByKey(kNewAppointment);
    TypeSubject(kAppointmentTop, u"Course");
    TapRow(kAppointmentTop, 4, kEditRecurrence);
    Program.Choose(kEditRecurrence, kChoiceCustom);
    const auto isOn = [this](int day) { return Program.Host.Controls().GetCheck(Program.Control(day)); };
    // One day is on already; these are not, whichever it is.
    int focused = 0;
    int tapped = 0;
    Program.Do([&] {
        for (const int day : {kPatternMonday, kPatternTuesday, kPatternWednesday}) {
            if (!isOn(day)) {
                focused = std::exchange(tapped, day);
            }
        }
        ASSERT_NE(focused, 0);
        Program.Host.Windows().SetFocus(Program.Control(focused));
    });
    Program.Key(VK_SPACE);
    Program.Do([&] {
        EXPECT_TRUE(isOn(focused));
        TapMiddle(Program.Host, Program.Host.Parts().State.Tree.ScreenBounds(Program.Control(tapped)));
    });
    Program.Do([&] { EXPECT_TRUE(isOn(tapped)); });
    Program.Key(VK_SPACE);
    Program.Do([&] {
        EXPECT_FALSE(isOn(focused)); // it has the focus still, and shows it
        EXPECT_TRUE(isOn(tapped));
    });
    Program.Key(VK_SPACE);
    Program.Do([&] { EXPECT_TRUE(isOn(focused)); });
    Leave(2);
}

TEST_F(EditorKeysOnTheDesktop, CharactersThatComeTogetherAllReachTheSubject) {
    OpenByKey(kNewAppointment);
    Program.Do([this] { TypeTogether(Program.Host, u"Tea \u00E9\U0001F382!"); }); // nothing has the focus
    Program.Do([this] { TypeTogether(Program.Host, u"\U0001F600"); });
    Program.Do([this] {
        TypeTogether(Program.Host, u"a");
        TypeTogether(Program.Host, u"b");
    });
    Program.Do([this] { EXPECT_EQ(TextOf(kEditSubject), u"Tea \u00E9\U0001F382!\U0001F600ab"); });
    Leave(1);
}

TEST_F(EditorKeysOnTheDesktop, CharactersOfTwoKeysBeforeTheProgramSeesTheFirst) {
    OpenByKey(kNewAppointment);
    Program.Do([this] {
        TypeCharacter(Program.Host, u'a');
        TypeCharacter(Program.Host, u'b');
        TypeCharacter(Program.Host, u'c');
    });
    Program.Do([this] { EXPECT_EQ(TextOf(kEditSubject), u"abc"); });
    Leave(1);
}

TEST_F(EditorKeysOnTheDesktop, TheSubjectHasUndo) {
    OpenByKey(kNewAppointment);
    TapRow(kAppointmentTop, 0, kEditSubject);
    Program.Type(u"Lunch");
    Program.Do([this] { EXPECT_EQ(TextOf(kEditSubject), u"Lunch"); });
    Program.Key('A', kModifierControl);
    Program.Key(VK_DELETE);
    Program.Do([this] { EXPECT_EQ(TextOf(kEditSubject), u""); });
    Program.Key('Z', kModifierControl);
    Program.Do([this] { EXPECT_EQ(TextOf(kEditSubject), u"Lunch"); });
    Leave(1);
}

TEST_F(EditorKeysOnTheDesktop, TheSubjectsMenuLooksLikeTheOthersAndStaysOnTheScreen) {
    OpenByKey(kNewAppointment);
    TapRow(kAppointmentTop, 0, kEditSubject);
    Program.Type(u"Lunch");
    Program.Do([this] {
        auto* edit = qobject_cast<QLineEdit*>(Program.Widget(kEditSubject));
        ASSERT_NE(edit, nullptr);
        const QPoint corner = edit->rect().bottomRight();
        QContextMenuEvent ask(QContextMenuEvent::Mouse, corner, edit->mapToGlobal(corner));
        QApplication::sendEvent(edit, &ask);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->font().pixelSize(), Program.Host.Parts().Geometry.Length(13));
        EXPECT_TRUE(Program.Host.Desktop().ScreenOnDesktop().contains(menu->geometry()));
        QAction* undo = menu->actions().front();
        EXPECT_TRUE(undo->isEnabled());
        undo->trigger();
        menu->close();
    });
    Program.Do([this] { EXPECT_EQ(TextOf(kEditSubject), u""); });
    Leave(1);
}

TEST_F(EditorKeysOnTheDesktop, ReturnIsOkWhereverTheFocusIsAndCancelOnCancel) {
    OpenByKey(kNewAppointment);
    TypeSubject(kAppointmentTop, u"Kept");
    TapRow(kAppointmentTop, 4, kEditRecurrence);
    Program.Do([this] { Program.Host.Windows().SetFocus(Program.Control(kEditRecurrence)); });
    Program.Key(VK_RETURN);
    Program.Do([this] {
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_FALSE(Program.IsDialogOpen());
        EXPECT_EQ(CountItems(), 1);
    });
    OpenByKey(kNewAppointment);
    TypeSubject(kAppointmentTop, u"Not kept");
    Program.Do([this] { Program.Host.Windows().SetFocus(Program.Control(IDCANCEL)); });
    Program.Key(VK_RETURN);
    Program.Do([this] {
        EXPECT_FALSE(Program.IsDialogOpen());
        EXPECT_EQ(CountItems(), 1);
    });
    ASSERT_TRUE(Program.Settle());
}

TEST_F(EditorKeysOnTheDesktop, TheToolsMenuShowsItsShortcutsWholeWhateverUndoSays) {
    OpenByKey(kNewAppointment);
    TypeSubject(kAppointmentTop, u"WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW");
    Program.TapControl(IDOK);
    Program.Do([this] { EXPECT_EQ(CountItems(), 1); });
    Program.Key(VK_F1 + 9);
    Program.Do([this] {
        QMenu* menu = Program.Host.OpenMenu().Current();
        ASSERT_NE(menu, nullptr);
        const QList<QAction*> actions = menu->actions();
        const bool hasLongUndo = std::any_of(actions.begin(), actions.end(), [](const QAction* action) {
            return action->text().startsWith(QStringLiteral("Undo ")) &&
                   action->text().endsWith(QStringLiteral("Ctrl+Z"));
        });
        EXPECT_TRUE(hasLongUndo);
        EXPECT_TRUE(std::any_of(actions.begin(), actions.end(), [](const QAction* action) {
            return action->text() == QStringLiteral("About Tavo Calendar...");
        }));
        EXPECT_LE(menu->sizeHint().width(), Program.Host.Desktop().ScreenOnDesktop().width());
    });
    Program.Key(VK_ESCAPE);
    ASSERT_TRUE(Program.Settle());
}

} // namespace
} // namespace tavo::qt
