// The clock that a test sets and moves.
#include "host/files/scripted_clock.h"

#include <chrono>
#include <gtest/gtest.h>

namespace tavo::files {

TEST(ScriptedClock, StandsUntilItIsMoved) {
    ScriptedClock clock({2004, 12, 0, 31, 23, 59, 59, 900});
    EXPECT_EQ(clock.GetLocalTime(), (SYSTEMTIME{2004, 12, 5, 31, 23, 59, 59, 900}));
    EXPECT_EQ(clock.GetLocalTime(), (SYSTEMTIME{2004, 12, 5, 31, 23, 59, 59, 900}));
    EXPECT_EQ(clock.GetTickCount(), 0U);
    clock.Advance(std::chrono::milliseconds(150));
    EXPECT_EQ(clock.GetLocalTime(), (SYSTEMTIME{2005, 1, 6, 1, 0, 0, 0, 50}));
    EXPECT_EQ(clock.GetTickCount(), 150U);
    clock.Advance(std::chrono::hours(24 * 59));
    EXPECT_EQ(clock.GetLocalTime(), (SYSTEMTIME{2005, 3, 2, 1, 0, 0, 0, 50}));
}

TEST(ScriptedClock, SettingItMovesNoTicks) {
    ScriptedClock clock({2004, 9, 0, 15, 10, 0, 0, 0});
    clock.Advance(std::chrono::seconds(1));
    EXPECT_TRUE(clock.SetLocalTime({1899, 12, 0, 29, 18, 30, 15, 7}));
    EXPECT_EQ(clock.GetLocalTime(), (SYSTEMTIME{1899, 12, 5, 29, 18, 30, 15, 7}));
    EXPECT_EQ(clock.GetTickCount(), 1000U);
}

TEST(ScriptedClock, ImpossibleTimesAreRefused) {
    ScriptedClock clock({2004, 9, 0, 15, 10, 0, 0, 0});
    EXPECT_FALSE(clock.SetLocalTime({2004, 2, 0, 30, 0, 0, 0, 0}));
    EXPECT_FALSE(clock.SetLocalTime({2004, 2, 0, 1, 24, 0, 0, 0}));
    EXPECT_EQ(clock.GetLocalTime(), (SYSTEMTIME{2004, 9, 3, 15, 10, 0, 0, 0}));
}

} // namespace tavo::files
