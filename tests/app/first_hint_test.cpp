// What a first start with an empty calendar says.
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

constexpr std::u16string_view kHint = u"Tap a day, + on Schedule, or Tools > Import";

class FirstHint : public testing::Test {
  protected:
    bool IsShown() {
        Program.ShowPage(PageNumber::Calendar);
        return Program.Device.See.ShowsText(std::u16string(kHint));
    }

    RunningProgram Program;
};

TEST_F(FirstHint, AnEmptyCalendarSaysOnceWhatToDo) {
    ASSERT_TRUE(Program.Start());
    EXPECT_TRUE(IsShown());
    Program.ShowPage(PageNumber::Clock);
    EXPECT_TRUE(IsShown()) << "as long as this start lasts";
    Program.Stop();
    ASSERT_TRUE(Program.Start());
    EXPECT_FALSE(IsShown());
}

TEST_F(FirstHint, AStartThatDidNotShowItDoesNotCount) {
    ASSERT_TRUE(Program.Start());
    Program.Stop();
    ASSERT_TRUE(Program.Start());
    EXPECT_TRUE(IsShown());
}

TEST_F(FirstHint, ItGoesWithTheFirstItem) {
    ASSERT_TRUE(Program.Start());
    EXPECT_TRUE(IsShown());
    Program.GivenAppointment(u"Dentist", At(2004, 11, 5, 8), At(2004, 11, 5, 9));
    Program.Device.ChangeStore();
    Program.Device.AdvanceClock(600);
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(Program.Device.See.ShowsText(std::u16string(kHint)));
}

TEST_F(FirstHint, ACalendarWithItemsSaysNothing) {
    ASSERT_TRUE(Program.Start());
    Program.GivenAppointment(u"Dentist", At(2004, 11, 5, 8), At(2004, 11, 5, 9));
    Program.Stop();
    ASSERT_TRUE(Program.Start());
    EXPECT_FALSE(IsShown());
}

} // namespace
} // namespace tavo::test
