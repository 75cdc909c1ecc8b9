// What all pages have in common: the bar below, and the keys that go from page to page.
#include "tests/schedule/schedule_desk.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::ScheduleDesk;

class MainPages : public testing::Test {
  protected:
    MainPages() { EXPECT_TRUE(Desk.Start()); }

    PageNumber PageAfter(int key, int modifiers) {
        Desk.Device.Key(key, modifiers);
        EXPECT_TRUE(Desk.Settle());
        return Desk.State().CurrentPage;
    }

    PageNumber PageAfterTap(int x, int y) {
        Desk.Device.Tap(x, y);
        EXPECT_TRUE(Desk.Settle());
        return Desk.State().CurrentPage;
    }

    ScheduleDesk Desk;
};

TEST_F(MainPages, ControlAndPageKeysGoToTheNextAndThePreviousOneAndAround) {
    Desk.ShowPage(PageNumber::Clock);
    for (const PageNumber next :
         {PageNumber::Schedule, PageNumber::Calendar, PageNumber::Settings, PageNumber::Clock}) {
        EXPECT_EQ(PageAfter(VK_NEXT, kModifierControl), next);
    }
    for (const PageNumber previous :
         {PageNumber::Settings, PageNumber::Calendar, PageNumber::Schedule, PageNumber::Clock}) {
        EXPECT_EQ(PageAfter(VK_PRIOR, kModifierControl), previous);
    }
}

TEST_F(MainPages, ControlAndTabDoTheSame) {
    Desk.ShowPage(PageNumber::Clock);
    EXPECT_EQ(PageAfter(VK_TAB, kModifierControl), PageNumber::Schedule);
    EXPECT_EQ(PageAfter(VK_TAB, kModifierControl), PageNumber::Calendar);
    EXPECT_EQ(PageAfter(VK_TAB, kModifierControl | kModifierShift), PageNumber::Schedule);
}

TEST_F(MainPages, WithoutControlTheyStayWhereTheyAre) {
    Desk.ShowPage(PageNumber::Settings);
    for (const int key : {VK_NEXT, VK_PRIOR, VK_TAB}) {
        EXPECT_EQ(PageAfter(key, 0), PageNumber::Settings) << key;
    }
    EXPECT_EQ(PageAfter(VK_HOME, kModifierControl), PageNumber::Settings);
}

TEST_F(MainPages, EachQuarterOfTheBarIsAPage) {
    Desk.ShowPage(PageNumber::Clock);
    EXPECT_EQ(PageAfterTap(60, 242), PageNumber::Schedule);
    EXPECT_EQ(PageAfterTap(179, 266), PageNumber::Calendar);
    EXPECT_EQ(PageAfterTap(239, 250), PageNumber::Settings);
    EXPECT_EQ(PageAfterTap(59, 250), PageNumber::Clock);
    EXPECT_EQ(PageAfterTap(180, 241), PageNumber::Clock); // the line above the bar is not it
    EXPECT_EQ(PageAfterTap(180, 267), PageNumber::Clock);
}

} // namespace

} // namespace tavo
