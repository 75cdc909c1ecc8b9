// Timers and their due times.
#include "host/shell/timer_table.h"

#include <gtest/gtest.h>

namespace tavo::shell {

namespace {

constexpr WindowHandle kWindow{1};
constexpr WindowHandle kOther{2};

bool All(WindowHandle) {
    return true;
}

TEST(TimerTable, ComesWhenItsPeriodIsOverAndThenAgain) {
    TimerTable timers;
    timers.Set({kWindow, 7}, 100, 1000);
    EXPECT_EQ(timers.TakeDue(1099, All), std::nullopt);
    EXPECT_EQ(timers.TakeDue(1100, All), (TimerKey{kWindow, 7}));
    EXPECT_EQ(timers.TakeDue(1100, All), std::nullopt);
    EXPECT_EQ(timers.NextDue(All), 1200u);
}

TEST(TimerTable, MissedPeriodsAreNotMadeUp) {
    TimerTable timers;
    timers.Set({kWindow, 7}, 100, 0);
    EXPECT_TRUE(timers.TakeDue(950, All).has_value());
    EXPECT_EQ(timers.TakeDue(950, All), std::nullopt);
    EXPECT_EQ(timers.NextDue(All), 1050u);
}

TEST(TimerTable, LongestDueComesFirst) {
    TimerTable timers;
    timers.Set({kWindow, 1}, 300, 0);
    timers.Set({kOther, 2}, 200, 0);
    EXPECT_EQ(timers.TakeDue(400, All), (TimerKey{kOther, 2}));
    EXPECT_EQ(timers.TakeDue(400, All), (TimerKey{kWindow, 1}));
}

TEST(TimerTable, SettingAgainStartsAnewAndKillingEnds) {
    TimerTable timers;
    timers.Set({kWindow, 7}, 100, 0);
    timers.Set({kWindow, 7}, 100, 90);
    EXPECT_EQ(timers.NextDue(All), 190u);
    timers.Kill({kWindow, 7});
    EXPECT_EQ(timers.NextDue(All), std::nullopt);
    timers.Set({kWindow, 1}, 100, 0);
    timers.Set({kWindow, 2}, 100, 0);
    timers.Set({kOther, 1}, 150, 0);
    timers.KillAll(kWindow);
    EXPECT_EQ(timers.NextDue(All), 150u);
}

TEST(TimerTable, HeldBackTimersWait) {
    TimerTable timers;
    const auto onlyOther = [](WindowHandle window) { return window == kOther; };
    timers.Set({kWindow, 7}, 100, 0);
    timers.Set({kOther, 8}, 500, 0);
    EXPECT_EQ(timers.NextDue(onlyOther), 500u);
    EXPECT_EQ(timers.TakeDue(400, onlyOther), std::nullopt);
    EXPECT_EQ(timers.TakeDue(400, All), (TimerKey{kWindow, 7}));
}

TEST(TimerTable, PeriodIsAtLeastAMillisecond) {
    TimerTable timers;
    timers.Set({kWindow, 7}, 0, 10);
    EXPECT_EQ(timers.NextDue(All), 11u);
}

} // namespace

} // namespace tavo::shell
