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
#include <set>

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
        EXPECT_EQ(Submenu()->actions().size(), 14);
        EXPECT_TRUE(Submenu()->actions().front()->text().startsWith("Dentist && surgeon"));
    });
    int entries = 0;
    const auto look = [this, &entries](bool isLast) {
        const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        QAction* last = menu->actions().back();
        EXPECT_EQ(menu->activeAction(), last);
        EXPECT_TRUE(IsOnTheScreen(*menu));
        EXPECT_TRUE(menu->rect().contains(menu->actionGeometry(last)));
        EXPECT_EQ(last->menu() == nullptr, isLast);
        EXPECT_EQ(last->text() == "More...", !isLast);
        entries += static_cast<int>(menu->actions().size()) - (isLast ? 0 : 1);
    };
    for (int more = 0; more < 7; ++more) {
        MenuKey(Qt::Key_End);
        Program.Do([look] { look(false); });
        MenuKey(Qt::Key_Right);
    }
    MenuKey(Qt::Key_End);
    Program.Do([look] { look(true); });
    Program.Do([&entries] { EXPECT_EQ(entries, 100); });
    MenuKey(Qt::Key_Return);
    Program.Do([this] { EXPECT_EQ(Program.Caption(), u"Memo"); });
    Program.Key(VK_ESCAPE);
    EXPECT_TRUE(Program.Settle());
}

TEST_F(DayMenuOnTheDesktop, ATextIsShortenedAtTheSameCharacterAtEveryScale) {
    GivenItems(
        1, u"Dinner for 30 \u20AC with grandmother, \u0415\u043A\u0430\u0442\u0435\u0440\u0438\u043D\u0430 and all");
    std::set<QString> texts;
    for (const QSize& size : {QSize(240, 320), QSize(360, 480), QSize(480, 640), QSize(720, 960)}) {
        Program.Do([this, size] { Program.Host.Desktop().resize(size); });
        Program.Pass(std::chrono::milliseconds(300)); // the scale is taken after a rest
        Program.Key(VK_RETURN);
        MenuKey(Qt::Key_Right);
        Program.Do([this, &texts] {
            ASSERT_NE(Submenu(), nullptr);
            texts.insert(Submenu()->actions().front()->text());
        });
        MenuKey(Qt::Key_Escape);
        MenuKey(Qt::Key_Escape);
    }
    EXPECT_TRUE(Program.Settle());
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_TRUE(texts.begin()->endsWith(QChar(0x2026)));
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
