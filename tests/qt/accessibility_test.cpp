// What assistive technology is told about the painted screen.
#include "host/qt/chrome_widget.h"
#include "tests/qt/desktop_test.h"

#include <QAccessible>

namespace tavo::qt {

TEST_F(DesktopTest, PaintedItemsAreAccessibleObjects) {
    QAccessibleInterface* page = QAccessible::queryAccessibleInterface(&PageWidget());
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(page->text(QAccessible::Name), "Test page");
    ASSERT_EQ(page->childCount(), 1);
    QAccessibleInterface* today = page->child(0);
    ASSERT_NE(today, nullptr);
    EXPECT_EQ(today->role(), QAccessible::Button);
    EXPECT_EQ(today->text(QAccessible::Name), "Today");
    EXPECT_EQ(today->parent(), page);
    EXPECT_EQ(page->indexOfChild(today), 0);
    EXPECT_FALSE(today->state().disabled);
    const QRect place = Host.Parts().Geometry.ToolkitPixels(
        Rect::FromSize(kSquare.Left, kSquare.Top + kClientArea.Top, kSquare.Width(), kSquare.Height()));
    EXPECT_EQ(today->rect(), place.translated(Desktop().mapToGlobal(QPoint())));
    EXPECT_EQ(page->childAt(today->rect().center().x(), today->rect().center().y()), today);
}

TEST_F(DesktopTest, AnAccessibleItemCanBePressed) {
    QAccessibleInterface* today = QAccessible::queryAccessibleInterface(&PageWidget())->child(0);
    today->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    Run();
    const std::vector<Message> messages = StylusMessages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].Position, (Point{15, 15}));
}

TEST_F(DesktopTest, ItemsThatAreGoneAreNoLongerValid) {
    QAccessibleInterface* page = QAccessible::queryAccessibleInterface(&PageWidget());
    QAccessibleInterface* today = page->child(0);
    Items.clear();
    Host.Windows().InvalidateRect(Page, {0, 0, 240, 267});
    Run();
    EXPECT_EQ(page->childCount(), 0);
    EXPECT_FALSE(today->isValid());
    EXPECT_TRUE(today->text(QAccessible::Name).isEmpty());
}

TEST_F(DesktopTest, NativeControlsFollowThePaintedItems) {
    ControlDescription edit;
    edit.Kind = ControlKind::Edit;
    edit.Text = u"Dentist";
    edit.Bounds = Rect::FromSize(60, 60, 100, 20);
    ASSERT_NE(Host.Controls().CreateControl(Page, edit), WindowHandle::None);
    Run();
    QAccessibleInterface* page = QAccessible::queryAccessibleInterface(&PageWidget());
    ASSERT_EQ(page->childCount(), 2);
    EXPECT_EQ(page->child(1)->role(), QAccessible::EditableText);
    EXPECT_EQ(page->child(1)->text(QAccessible::Value), "Dentist");
}

TEST_F(DesktopTest, TheNavigationBarTellsItsButtons) {
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(&Desktop().Navigation());
    ASSERT_EQ(bar->childCount(), 2);
    EXPECT_EQ(bar->child(0)->text(QAccessible::Name), "Test page");
    EXPECT_EQ(bar->child(1)->text(QAccessible::Name), "Close");
    bar->child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    Run();
    EXPECT_EQ(Count(WM_CLOSE), 1);
}

TEST_F(DesktopTest, BeneathAMessageBoxEverythingIsDisabledAndTheBoxSpeaks) {
    MessageBoxDescription box;
    box.Text = u"Are you sure to delete?";
    box.Caption = u"Delete";
    box.Buttons = MessageBoxButtons::YesNo;
    Host.Menus().OpenMessageBox(Page, box);
    Run();
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&PageWidget())->child(0)->state().disabled);
    QAccessibleInterface* shown = QAccessible::queryAccessibleInterface(&Host.Box());
    EXPECT_EQ(shown->role(), QAccessible::AlertMessage);
    ASSERT_EQ(shown->childCount(), 4);
    EXPECT_EQ(shown->child(1)->text(QAccessible::Name), "Are you sure to delete?");
    shown->child(3)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    Run();
    ASSERT_EQ(Count(WM_MESSAGEBOXCLOSED), 1);
    EXPECT_EQ(Log.back().Id, IDNO);
}

} // namespace tavo::qt
