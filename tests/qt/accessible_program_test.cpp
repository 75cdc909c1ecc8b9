// What assistive technology is told of the whole program: structure, names, states, and events at keys.
#include "host/qt/accessible_changes.h"
#include "host/qt/accessible_widget.h"
#include "platform/typing.h"
#include "res/resource_ids.h"
#include "tests/qt/desktop_program.h"

#include <QAccessible>
#include <QApplication>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace tavo::qt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class AccessibleProgram : public testing::Test {
  protected:
    // The first that is to be seen, from the desktop window down.
    static QAccessibleInterface* Find(const std::function<bool(QAccessibleInterface&)>& isMeant,
                                      QAccessibleInterface* within = nullptr) {
        if (within == nullptr) {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                if (widget->isVisible()) {
                    if (QAccessibleInterface* found = Find(isMeant, QAccessible::queryAccessibleInterface(widget))) {
                        return found;
                    }
                }
            }
            return nullptr;
        }
        if (!within->state().invisible && isMeant(*within)) {
            return within;
        }
        for (int index = 0; index < within->childCount(); ++index) {
            QAccessibleInterface* const child = within->child(index);
            if (child != nullptr && !child->state().invisible) {
                if (QAccessibleInterface* found = Find(isMeant, child)) {
                    return found;
                }
            }
        }
        return nullptr;
    }

    static QAccessibleInterface* Find(QAccessible::Role role, const std::string& name = "") {
        return Find([&](QAccessibleInterface& one) {
            return one.role() == role && (name.empty() || one.text(QAccessible::Name).toStdString() == name);
        });
    }

    DesktopProgram Program;
};

constexpr int kCalendarTab = 150;
constexpr int kScheduleTab = 90;
constexpr int kTabsY = 250;

TEST_F(AccessibleProgram, TheMonthIsATableWithRowsAndColumns) {
    Program.Tap(kCalendarTab, kTabsY);
    ASSERT_TRUE(Program.Settle());
    QAccessibleInterface* month = Find(QAccessible::Table);
    ASSERT_NE(month, nullptr);
    QAccessibleTableInterface* table = month->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->columnCount(), 7);
    EXPECT_GE(table->rowCount(), 5);
    EXPECT_EQ(table->columnDescription(0), "Sunday");
    QAccessibleInterface* cell = table->cellAt(1, 3);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->role(), QAccessible::Cell);
    EXPECT_EQ(cell->text(QAccessible::Description).toStdString().substr(0, 9), "Wednesday");
    EXPECT_EQ(cell->tableCellInterface()->rowIndex(), 1);
    EXPECT_EQ(cell->tableCellInterface()->columnIndex(), 3);
    EXPECT_EQ(cell->parent(), month);
    ASSERT_EQ(table->selectedCellCount(), 1);
    EXPECT_THAT(table->selectedCells()[0]->text(QAccessible::Description).toStdString(), HasSubstr(", today"));
    EXPECT_FALSE(month->text(QAccessible::Name).isEmpty()) << "the month";
}

TEST_F(AccessibleProgram, TheSelectedDayHasTheFocusAfterAKey) {
    Program.Tap(kCalendarTab, kTabsY);
    for (int step = 0; step < 3; ++step) {
        Program.Key(VK_RIGHT, kModifierControl);
        ASSERT_TRUE(Program.Settle());
        QAccessibleInterface* day =
            Find([](QAccessibleInterface& one) { return one.role() == QAccessible::Cell && one.state().selected; });
        ASSERT_NE(day, nullptr);
        EXPECT_TRUE(day->state().focused);
    }
}

TEST_F(AccessibleProgram, TabsAreAListOfTabs) {
    QAccessibleInterface* tabs = Find(QAccessible::PageTabList);
    ASSERT_NE(tabs, nullptr);
    ASSERT_EQ(tabs->childCount(), 4);
    EXPECT_EQ(tabs->child(2)->role(), QAccessible::PageTab);
    EXPECT_EQ(tabs->child(2)->text(QAccessible::Name), "Calendar");
    EXPECT_TRUE(tabs->child(0)->state().selected);
    tabs->child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_TRUE(Program.Settle());
    EXPECT_NE(Find(QAccessible::Table), nullptr);
}

TEST_F(AccessibleProgram, AListHasItsItems) {
    Program.Key('1', kModifierControl);
    Program.Type(u"Wake up");
    Program.TapControl(IDOK);
    Program.Tap(kScheduleTab, kTabsY);
    Program.Key(VK_DOWN);
    ASSERT_TRUE(Program.Settle());
    QAccessibleInterface* list = Find(QAccessible::List);
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->childCount(), 1);
    EXPECT_EQ(list->child(0)->role(), QAccessible::ListItem);
    EXPECT_THAT(list->child(0)->text(QAccessible::Name).toStdString(), HasSubstr("Wake up"));
    EXPECT_TRUE(list->child(0)->state().selected);
    EXPECT_TRUE(list->child(0)->state().focused);
}

TEST_F(AccessibleProgram, AFormTellsWhatItsValuesAreCalled) {
    Program.Key('4', kModifierControl);
    Program.Do([] {
        EXPECT_NE(Find(QAccessible::Dialog), nullptr);
        EXPECT_NE(Find(QAccessible::StaticText, "Start :"), nullptr);
        EXPECT_NE(Find(QAccessible::Button, "Recur: Once"), nullptr);
        EXPECT_NE(Find(QAccessible::Button, "Alarm: No"), nullptr);
        QAccessibleInterface* subject = Find(QAccessible::Button, "Subject: ");
        ASSERT_NE(subject, nullptr);
        subject->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    });
    // The button shows the control for its value, which is called the same.
    Program.Do([] { EXPECT_NE(Find(QAccessible::EditableText, "Subject"), nullptr); });
    Program.Key(VK_ESCAPE);
    ASSERT_TRUE(Program.Settle());
}

TEST_F(AccessibleProgram, TheControlsOfAFormAreCalledWhatTheirRowsSay) {
    Program.Key('4', kModifierControl);
    const std::vector<std::string> names{"Subject", "Start", "Start", "End", "End"};
    for (const std::string& name : names) {
        Program.Key(VK_TAB);
        Program.Do([name] {
            QWidget* const focused = QApplication::focusWidget();
            ASSERT_NE(focused, nullptr);
            EXPECT_EQ(focused->accessibleName().toStdString(), name);
        });
    }
    Program.Key(VK_ESCAPE);
    ASSERT_TRUE(Program.Settle());
}

TEST_F(AccessibleProgram, NothingIsAFiller) {
    for (const int tab : {30, kScheduleTab, kCalendarTab, 210}) {
        Program.Tap(tab, kTabsY);
        ASSERT_TRUE(Program.Settle());
        QAccessibleInterface* filler =
            Find([](QAccessibleInterface& one) { return one.role() == QAccessible::Client; });
        EXPECT_EQ(filler, nullptr) << (filler == nullptr ? "" : filler->object()->metaObject()->className());
    }
}

// What is said of a change; where it is said is the toolkit's.
class AccessibleNews : public testing::Test {
  protected:
    static PaintedItem Item(PaintedRole role, std::u16string name, int id, bool isSelected = false) {
        PaintedItem item{Rect::FromSize(id * 10, 0, 10, 10), role, std::move(name), id};
        item.Selected = isSelected;
        return item;
    }

    static PaintedItem Day(std::u16string name, int id, bool isSelected = false) {
        return Item(PaintedRole::Cell, std::move(name), id, isSelected);
    }
};

TEST_F(AccessibleNews, ADayThatIsSelectedGetsTheKeys) {
    EXPECT_THAT(FindNews({Day(u"1", 0, true), Day(u"2", 1)}, {Day(u"1", 0), Day(u"2", 1, true)}, Keys::Here),
                ElementsAre(ItemNews{NewsKind::Selected, 1}, ItemNews{NewsKind::GotKeys, 1}));
}

TEST_F(AccessibleNews, WhileAControlHasTheKeysOnlyTheSelectionIsTold) {
    EXPECT_THAT(FindNews({Day(u"1", 0)}, {Day(u"1", 0, true)}, Keys::Elsewhere),
                ElementsAre(ItemNews{NewsKind::Selected, 0}));
}

TEST_F(AccessibleNews, AnotherMonthInTheSamePlacesIsToldWithItsSelectedDay) {
    EXPECT_THAT(
        FindNews({Day(u"November 1", 0, true)}, {Day(u"December 1", 0, true)}, Keys::Here),
        ElementsAre(ItemNews{NewsKind::Renamed, 0}, ItemNews{NewsKind::Selected, 0}, ItemNews{NewsKind::GotKeys, 0}));
}

TEST_F(AccessibleNews, OtherItemsAreAnotherOrder) {
    EXPECT_THAT(FindNews({Day(u"1", 0)}, {Item(PaintedRole::Row, u"Dentist", 0)}, Keys::Here),
                ElementsAre(ItemNews{NewsKind::Reordered, 0}));
    EXPECT_THAT(FindNews({}, {Item(PaintedRole::Tab, u"Clock", 0, true)}, Keys::Here),
                ElementsAre(ItemNews{NewsKind::Reordered, 0}, ItemNews{NewsKind::Selected, 0}));
}

TEST_F(AccessibleNews, WhatIsTheSameIsNotTold) {
    EXPECT_THAT(FindNews({Day(u"1", 0, true)}, {Day(u"1", 0, true)}, Keys::Here), IsEmpty());
}

} // namespace
} // namespace tavo::qt
