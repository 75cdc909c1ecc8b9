// The Schedule page and Settings on the desktop, worked by keys with the focus wherever a tap left it.
#include "res/resource_ids.h"
#include "tests/qt/desktop_program.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <set>

namespace tavo::qt {
namespace {

class ScheduleKeysOnTheDesktop : public testing::Test {
  protected:
    ScheduleKeysOnTheDesktop() {
        constexpr int scheduleTab = 90;
        constexpr int tabs = 250;
        Program.Tap(scheduleTab, tabs);
        Program.Key(VK_LEFT); // from the alarms back to the appointments
        Program.Do([this] { ASSERT_TRUE(Program.IsShown(kSchedulePeriodStart)); });
    }

    SYSTEMTIME Picked(int picker) { return Program.Host.Controls().GetSystemtime(Program.Control(picker)); }

    void ExpectFocusOnPicker(int picker, bool isThere) {
        Program.Do([this, picker, isThere] {
            const QWidget* focus = QApplication::focusWidget();
            const QWidget* widget = Program.Widget(picker);
            ASSERT_NE(widget, nullptr);
            EXPECT_EQ(focus == widget || (focus != nullptr && widget->isAncestorOf(focus)), isThere);
        });
    }

    DesktopProgram Program;
};

// What has no mark must not have the keys.
TEST(TabOnSettings, GoesFromControlToControlAndToNothingElse) {
    DesktopProgram program;
    program.Tap(210, 250);
    std::set<QWidget*> reached;
    for (int step = 0; step < 20; ++step) {
        program.Key(VK_TAB);
        program.Do([&reached] { reached.insert(QApplication::focusWidget()); });
    }
    ASSERT_TRUE(program.Settle());
    EXPECT_EQ(reached.count(nullptr), 0U);
    EXPECT_EQ(reached.count(&program.Host.Desktop()), 0U);
    EXPECT_EQ(reached.size(), 6U); // five boxes and the button
}

TEST_F(ScheduleKeysOnTheDesktop, ArrowsAreThePagesWithTheFocusInAPicker) {
    Program.TapControl(kSchedulePeriodStart);
    ExpectFocusOnPicker(kSchedulePeriodStart, true);
    SYSTEMTIME before;
    Program.Do([&] { before = Picked(kSchedulePeriodStart); });
    Program.Key(VK_DOWN);
    Program.Do([&] { EXPECT_EQ(Picked(kSchedulePeriodStart), before); });
    ExpectFocusOnPicker(kSchedulePeriodStart, false);
    Program.TapControl(kSchedulePeriodStart);
    Program.Key(VK_RIGHT); // round to the alarms
    Program.Do([&] { EXPECT_FALSE(Program.IsShown(kSchedulePeriodStart)); });
    Program.Key(VK_LEFT);
    Program.Do([&] { EXPECT_TRUE(Program.IsShown(kSchedulePeriodStart)); });
    ASSERT_TRUE(Program.Settle());
}

TEST_F(ScheduleKeysOnTheDesktop, ATypedPeriodIsValidated) {
    Program.TapControl(kSchedulePeriodEnd);
    Program.Key(VK_HOME);
    Program.Type(u"01012099");
    Program.Do([&] { EXPECT_EQ(Program.BoxText(), u"reference period cannot exceed 1 month"); });
    Program.AnswerBox(IDOK);
    Program.Key(VK_HOME);
    Program.Type(u"02/03/2004"); // before the start, which follows
    Program.Do([&] {
        EXPECT_EQ(Picked(kSchedulePeriodStart).Year, 2004);
        EXPECT_EQ(Picked(kSchedulePeriodStart).Month, 2);
        EXPECT_EQ(Picked(kSchedulePeriodStart).Day, 3);
    });
    ASSERT_TRUE(Program.Settle());
}

TEST_F(ScheduleKeysOnTheDesktop, AClosedCalendarGivesTheFocusBack) {
    Program.TapControl(kSchedulePeriodStart);
    Program.Key(VK_DOWN, kModifierAlt);
    Program.Do([] { EXPECT_NE(QApplication::activePopupWidget(), nullptr); });
    Program.Key(VK_LEFT); // a day before, in the calendar
    Program.Key(VK_RETURN);
    Program.Do([] { EXPECT_EQ(QApplication::activePopupWidget(), nullptr); });
    ExpectFocusOnPicker(kSchedulePeriodStart, false);
    Program.Do([&] { EXPECT_TRUE(Program.IsShown(kSchedulePeriodStart)); });
    ASSERT_TRUE(Program.Settle());
}

} // namespace
} // namespace tavo::qt
