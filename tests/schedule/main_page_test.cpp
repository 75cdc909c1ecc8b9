// What all pages have in common: the bar below, and the keys that go from page to page.
#include "schedule/main_view.h"
#include "tests/schedule/schedule_desk.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::ScheduleDesk;

class MainPages : public testing::Test {
  protected:
    MainPages() { EXPECT_TRUE(Desk.Start()); }

    int PageAfter(int key, int modifiers) {
        Desk.Device.Key(key, modifiers);
        EXPECT_TRUE(Desk.Settle());
        return Desk.State().CurrentPage;
    }

    int PageAfterTap(int x, int y) {
        Desk.Device.Tap(x, y);
        EXPECT_TRUE(Desk.Settle());
        return Desk.State().CurrentPage;
    }

    ScheduleDesk Desk;
};

TEST_F(MainPages, ControlAndPageKeysGoToTheNextAndThePreviousOneAndAround) {
    Desk.ShowPage(0);
    for (const int next : {1, 2, 3, 0}) {
        EXPECT_EQ(PageAfter(VK_NEXT, kModifierControl), next);
    }
    for (const int previous : {3, 2, 1, 0}) {
        EXPECT_EQ(PageAfter(VK_PRIOR, kModifierControl), previous);
    }
}

TEST_F(MainPages, ControlAndTabDoTheSame) {
    Desk.ShowPage(0);
    EXPECT_EQ(PageAfter(VK_TAB, kModifierControl), 1);
    EXPECT_EQ(PageAfter(VK_TAB, kModifierControl), 2);
    EXPECT_EQ(PageAfter(VK_TAB, kModifierControl | kModifierShift), 1);
}

TEST_F(MainPages, WithoutControlTheyStayWhereTheyAre) {
    Desk.ShowPage(kSettingsPage);
    for (const int key : {VK_NEXT, VK_PRIOR, VK_TAB}) {
        EXPECT_EQ(PageAfter(key, 0), kSettingsPage) << key;
    }
    EXPECT_EQ(PageAfter(VK_HOME, kModifierControl), kSettingsPage);
}

TEST_F(MainPages, EachQuarterOfTheBarIsAPage) {
    Desk.ShowPage(0);
    EXPECT_EQ(PageAfterTap(60, 242), 1);
    EXPECT_EQ(PageAfterTap(179, 266), 2);
    EXPECT_EQ(PageAfterTap(239, 250), 3);
    EXPECT_EQ(PageAfterTap(59, 250), 0);
    EXPECT_EQ(PageAfterTap(180, 241), 0); // the line above the bar is not it
    EXPECT_EQ(PageAfterTap(180, 267), 0);
}

} // namespace

} // namespace tavo
