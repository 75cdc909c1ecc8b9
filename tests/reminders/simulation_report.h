// What a simulation has counted, for the log, and what must be nothing.
#pragma once

#include "tests/reminders/simulation.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace tavo::reminders::test {

constexpr int kTenYears = 3653;

inline void Tell(const SimulationCounts& counts) {
    std::printf("reminders %lld: shown %lld, listed %lld; snoozes %lld; kills %lld; doubled after a kill %lld, put up "
                "again for a new desktop %lld; clock jumps %lld, zone changes %lld; lost %lld, doubled otherwise %lld, "
                "stale %lld, late %lld\n",
                static_cast<long long>(counts.Reminders), static_cast<long long>(counts.Shown),
                static_cast<long long>(counts.Listed), static_cast<long long>(counts.Snoozes),
                static_cast<long long>(counts.Kills), static_cast<long long>(counts.DoubledAllowed),
                static_cast<long long>(counts.PutUpAgain), static_cast<long long>(counts.ClockJumps),
                static_cast<long long>(counts.ZoneChanges), static_cast<long long>(counts.Lost),
                static_cast<long long>(counts.Doubled), static_cast<long long>(counts.Stale),
                static_cast<long long>(counts.Late));
}

inline void ExpectFaithful(const SimulationCounts& counts) {
    EXPECT_EQ(counts.Lost, 0);
    EXPECT_EQ(counts.Doubled, 0);
    EXPECT_EQ(counts.Stale, 0);
    EXPECT_EQ(counts.Late, 0);
}

} // namespace tavo::reminders::test
