// The scheduler through ten years of a careless machine: nothing is lost, nothing doubled but where it cannot be
// helped.
#include "tests/reminders/simulation_report.h"

#include <gtest/gtest.h>

namespace tavo::reminders::test {
namespace {

TEST(Simulation, TenYearsLoseNothingAndDoubleOnlyWhereAKillLeftItOpen) {
    Simulation life(20261121);
    life.LiveThrough(kTenYears);
    const SimulationCounts& counts = life.Counts();
    Tell(counts);
    ExpectFaithful(counts);
    EXPECT_GE(counts.Reminders, 20000);
    // The script must have been as rough as it is meant to be.
    EXPECT_GT(counts.Kills, 200);
    EXPECT_GT(counts.DoubledAllowed, 0);
    EXPECT_GT(counts.PutUpAgain, 0);
    EXPECT_GT(counts.ClockJumps, 100);
    EXPECT_GT(counts.ZoneChanges, 50);
    EXPECT_GT(counts.Listed, 500);
    EXPECT_GT(counts.Snoozes, 500);
}

} // namespace
} // namespace tavo::reminders::test
