// The scheduler through as many lives as a million reminders take.
#include "tests/reminders/simulation_report.h"

#include <gtest/gtest.h>

namespace tavo::reminders::test {
namespace {

TEST(Simulation, AMillionRemindersLoseNothing) {
    constexpr std::int64_t enough = 1'000'000;
    SimulationCounts all;
    for (std::uint64_t seed = 1; all.Reminders < enough; ++seed) {
        Simulation life(seed);
        life.LiveThrough(kTenYears);
        const SimulationCounts& counts = life.Counts();
        ExpectFaithful(counts);
        all.Reminders += counts.Reminders;
        all.Shown += counts.Shown;
        all.Listed += counts.Listed;
        all.Snoozes += counts.Snoozes;
        all.Kills += counts.Kills;
        all.DoubledAllowed += counts.DoubledAllowed;
        all.PutUpAgain += counts.PutUpAgain;
        all.ClockJumps += counts.ClockJumps;
        all.ZoneChanges += counts.ZoneChanges;
        if (testing::Test::HasFailure()) {
            Tell(counts);
            FAIL() << "seed " << seed;
        }
    }
    Tell(all);
}

} // namespace
} // namespace tavo::reminders::test
