// The clock and the script.
#include "host/bare/scripted_time.h"

#include <gtest/gtest.h>

namespace tavo::bare {

namespace {

class ScriptedTimeTest : public ::testing::Test {
  protected:
    int Ends = 0;
    std::vector<int> Done;
    ScriptedTime Time{{2004, 11, 3, 17, 10, 0, 0, 0}, [this] { ++Ends; }};
};

TEST_F(ScriptedTimeTest, OneStepForEachWait) {
    Time.Script.Add([&] { Done.push_back(1); });
    Time.Script.Add([&] { Done.push_back(2); });
    Time.WaitForEvents(std::nullopt);
    EXPECT_EQ(Done, std::vector<int>{1});
    Time.WaitForEvents(Time.GetMilliseconds() + 50); // a timer is far off
    EXPECT_EQ(Done, (std::vector<int>{1, 2}));
    EXPECT_EQ(Time.GetMilliseconds(), 0u);
    EXPECT_EQ(Ends, 0);
    Time.WaitForEvents(std::nullopt);
    EXPECT_EQ(Ends, 1);
}

TEST_F(ScriptedTimeTest, LookingOutsideTakesNoStep) {
    Time.Script.Add([&] { Done.push_back(1); });
    Time.WaitForEvents(Time.GetMilliseconds());
    EXPECT_TRUE(Done.empty());
}

TEST_F(ScriptedTimeTest, TimePassesFromTimerToTimer) {
    Time.Pass(1000);
    Time.WaitForEvents(471);
    EXPECT_EQ(Time.GetMilliseconds(), 471u);
    Time.WaitForEvents(942);
    EXPECT_EQ(Time.GetMilliseconds(), 942u);
    Time.WaitForEvents(1413);
    EXPECT_EQ(Time.GetMilliseconds(), 1000u);
    EXPECT_EQ(Time.Clock.GetLocalTime().Second, 1);
    EXPECT_EQ(Ends, 0);
    Time.WaitForEvents(1413);
    EXPECT_EQ(Ends, 1); // that timer is beyond the time that was to pass
    EXPECT_EQ(Time.GetMilliseconds(), 1000u);
}

TEST_F(ScriptedTimeTest, StepsAddedByAStepComeNext) {
    Time.Script.Add([&] {
        Done.push_back(1);
        Time.Script.Add([&] { Done.push_back(2); });
        Time.Script.Add([&] { Done.push_back(3); });
    });
    Time.Script.Add([&] { Done.push_back(4); });
    while (!Time.Script.IsEmpty()) {
        Time.WaitForEvents(std::nullopt);
    }
    EXPECT_EQ(Done, (std::vector<int>{1, 2, 3, 4}));
}

} // namespace

} // namespace tavo::bare
