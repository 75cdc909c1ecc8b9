// The real RSound where no notification service is to be had.
#include "tests/companion/running_companion.h"

namespace tavo::companion::test {
namespace {

constexpr double kPatience = 20; // the window is a process of its own

TEST_F(CompanionTest, WithoutABusItsOwnWindowShowsTheReminder) {
    StartCompanion("");
    AddReminder(u"Train", 600, 30);
    EXPECT_TRUE(WaitForStates("2", kPatience));
}

} // namespace
} // namespace tavo::companion::test
