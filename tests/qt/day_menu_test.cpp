// The day's menu and its dialogs on the desktop, by mouse and keyboard.
#include "host/outlook/store.h"
#include "res/resource_ids.h"
#include "tests/qt/desktop_program.h"

#include <QApplication>
#include <QMenu>
#include <QTest>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdint>

namespace tavo::qt {
namespace {

constexpr int kCalendarTab = 150; // x in the page bar
constexpr int kScheduleEntry = 3; // places in the menu
constexpr int kAddMemoEntry = 6;
constexpr std::chrono::milliseconds kPaintTime(100); // a dialog is painted by then

class DayMenuOnTheDesktop : public testing::Test {
  protected:
    DayMenuOnTheDesktop() {
        Today = Program.Host.Clock().GetLocalTime();
        Program.Tap(kCalendarTab, 250);
    }

    void GivenItems(int count, std::u16string_view subject) {
        OutlookSession& store = Program.State().Store;
        ASSERT_EQ(store.OutlookApp->Begin(u"given"), Status::Ok);
        SYSTEMTIME start = Today;
        start.Hour = 12;
        start.Minute = start.Second = start.Milliseconds = 0;
        DATE date = 0;
        ASSERT_TRUE(Program.Host.Locale().SystemTimeToVariantTime(start, date));
        for (int index = 0; index < count; ++index) {
            ComPtr<IAppointment> item;
            ASSERT_EQ(store.OutlookApp->CreateItem(kItemAppointment, item), Status::Ok);
            ASSERT_EQ(item->put_Subject(subject), Status::Ok);
            ASSERT_EQ(item->put_Start(date), Status::Ok);
            ASSERT_EQ(item->put_End(date), Status::Ok);
            ASSERT_EQ(item->Save(), Status::Ok);
        }
        ASSERT_EQ(store.OutlookApp->End(), Status::Ok);
    }

    QMenu* Menu() { return Program.Host.OpenMenu().Current(); }

    // The submenu that is open beside the menu, or null.
    QMenu* Submenu() {
        for (QMenu* menu : Menu()->findChildren<QMenu*>()) {
            if (menu->isVisible()) {
                return menu;
            }
        }
        return nullptr;
    }

    bool IsOnTheScreen(const QMenu& menu) {
        return Program.Host.Desktop().ScreenOnDesktop().contains(QRect(menu.pos(), menu.size()));
    }

    // A key for the menu that has the keyboard.
    void MenuKey(Qt::Key key) {
        Program.Do([key] {
            QWidget* menu = QApplication::activePopupWidget();
            ASSERT_NE(menu, nullptr);
            QTest::keyClick(menu, key);
        });
    }

    SYSTEMTIME Today;
    DesktopProgram Program;
};

TEST_F(DayMenuOnTheDesktop, IsOpenedAndWalkedByKeysDownToAnItemsView) {
    GivenItems(2, u"Dentist");
    Program.Key(VK_RETURN);
    Program.Do([this] {
        ASSERT_NE(Menu(), nullptr);
        ASSERT_EQ(Menu()->actions().size(), 8);
        EXPECT_EQ(Menu()->actions()[kScheduleEntry]->text(), "Schedule: 2");
        EXPECT_FALSE(Menu()->actions()[0]->isEnabled());
        EXPECT_EQ(Menu()->activeAction(), Menu()->actions()[kScheduleEntry]); // the first that can be chosen
    });
    Program.Do([this] { EXPECT_EQ(Submenu(), nullptr); });
    MenuKey(Qt::Key_Right);
    Program.Do([this] {
        ASSERT_NE(Submenu(), nullptr);
        EXPECT_TRUE(IsOnTheScreen(*Submenu()));
    });
    MenuKey(Qt::Key_Down);
    Program.Do([this] {
        ASSERT_NE(Submenu(), nullptr);
        EXPECT_EQ(QApplication::activePopupWidget(), Submenu());
        EXPECT_EQ(Submenu()->activeAction(), Submenu()->actions()[1]);
    });
    MenuKey(Qt::Key_Return);
    Program.Pass(kPaintTime);
    Program.Do([this] {
        EXPECT_NE(Program.Control(kViewModify), WindowHandle::None);
        EXPECT_EQ(Program.NameOf(PaintedRole::Header, 0), u"Dentist");
    });
    Program.Key(VK_ESCAPE);
    Program.Do([this] { EXPECT_FALSE(Program.IsDialogOpen()); });
    EXPECT_TRUE(Program.Settle());
}

TEST_F(DayMenuOnTheDesktop, ALongSubmenuStaysOnTheScreenAndItsLastEntryIsReached) {
    GivenItems(100, u"Dentist & surgeon with a subject that is far too long for any screen of this width");
    Program.Key(VK_RETURN);
    MenuKey(Qt::Key_Right);
    Program.Do([this] {
        ASSERT_NE(Submenu(), nullptr);
        EXPECT_EQ(Submenu()->actions().size(), 100);
        EXPECT_TRUE(IsOnTheScreen(*Submenu()));
        EXPECT_TRUE(Submenu()->actions().front()->text().startsWith("Dentist && surgeon"));
    });
    MenuKey(Qt::Key_End);
    Program.Do([this] {
        ASSERT_NE(Submenu(), nullptr);
        QAction* last = Submenu()->actions().back();
        EXPECT_EQ(Submenu()->activeAction(), last);
        const QRect place = Submenu()->actionGeometry(last); // it was scrolled to
        EXPECT_TRUE(Submenu()->rect().contains(place));
    });
    MenuKey(Qt::Key_Return);
    Program.Do([this] { EXPECT_EQ(Program.Caption(), u"Memo"); });
    Program.Key(VK_ESCAPE);
    EXPECT_TRUE(Program.Settle());
}

TEST_F(DayMenuOnTheDesktop, OfAVeryLongSubjectOnlyTheBeginningIsMeasured) {
    std::u16string subject = u"  Dentist &\n";
    subject.append(500000, u'x');
    GivenItems(20, subject);
    const auto begin = std::chrono::steady_clock::now();
    Program.Key(VK_RETURN);
    MenuKey(Qt::Key_Right);
    Program.Do([this, begin] {
        ASSERT_NE(Submenu(), nullptr);
        const QString text = Submenu()->actions().front()->text();
        EXPECT_TRUE(text.startsWith("Dentist && xxx"));
        EXPECT_LT(text.size(), 100);
        EXPECT_TRUE(IsOnTheScreen(*Submenu()));
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
    });
    MenuKey(Qt::Key_Escape);
    MenuKey(Qt::Key_Escape);
    EXPECT_TRUE(Program.Settle());
}

TEST_F(DayMenuOnTheDesktop, AMemoIsAddedByMouse) {
    Program.Key(VK_RETURN);
    Program.Do([this] {
        ASSERT_NE(Menu(), nullptr);
        QAction* add = Menu()->actions()[kAddMemoEntry];
        QTest::mouseClick(Menu(), Qt::LeftButton, {}, Menu()->actionGeometry(add).center());
    });
    Program.Do([this] { ASSERT_EQ(Program.Caption(), u"Memo"); });
    Program.Pass(kPaintTime);
    Program.Tap(60, 60); // a dot
    Program.Key(VK_RETURN);
    Program.Pass(kPaintTime);
    Program.Do([this] { EXPECT_FALSE(Program.IsDialogOpen()); });
    Program.Key(VK_RETURN);
    Program.Do([this] {
        ASSERT_NE(Menu(), nullptr);
        EXPECT_EQ(Menu()->actions()[5]->text(), "Memo: 1");
    });
    MenuKey(Qt::Key_Escape);
    Program.Pass(kPaintTime);
    EXPECT_TRUE(Program.Settle());
}

} // namespace
} // namespace tavo::qt
