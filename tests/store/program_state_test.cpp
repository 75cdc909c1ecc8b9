// What the program starts with.
#include "store/program_state.h"

#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::TestDevice;
using testing::ElementsAre;

TEST(ProgramState, StartsOnTheClockWithNothingLoaded) {
    TestDevice device;
    const CProgramState state(device.Pump);
    EXPECT_EQ(state.CurrentPage, PageNumber::Clock);
    EXPECT_FALSE(state.RefreshSuppressed);
    EXPECT_FALSE(state.Busy);
    EXPECT_TRUE(state.Memo.IsEmpty());
    EXPECT_EQ(state.Categories.AlarmList.Size(), 0U);
    EXPECT_EQ(state.Categories.HolidayList.Size(), 0U);
    EXPECT_EQ(state.Categories.AnniversaryList.Size(), 0U);
    EXPECT_EQ(state.DataFolder, u"\\My Documents\\TavoCalendar");
    EXPECT_EQ(state.DataFileName, u"TavoCalendar.dat");
    EXPECT_THAT(state.DaysInMonth, ElementsAre(31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31));
}

TEST(ProgramState, FebruaryFollowsTheLeapRule) {
    TestDevice device;
    CProgramState state(device.Pump);
    const auto february = [&](int year) {
        state.SetFebruary(year);
        return state.DaysInMonth[1];
    };
    EXPECT_EQ(february(2004), 29);
    EXPECT_EQ(february(2005), 28);
    EXPECT_EQ(february(1900), 28);
    EXPECT_EQ(february(2000), 29);
    EXPECT_EQ(february(2100), 28);
    EXPECT_THAT(state.DaysInMonth, ElementsAre(31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31));
}

} // namespace

} // namespace tavo
