// When a touch is a finger, and when it is the palm.
#include "host/ink/palm_guard.h"

#include <gtest/gtest.h>

namespace tavo::ink {
namespace {

TEST(PalmGuard, WithoutAPenEveryTouchIsAFinger) {
    EXPECT_TRUE(PalmGuard().TakesTouch(0));
}

TEST(PalmGuard, FromThePensComingUntilHalfASecondAfterItLeftNoTouchIs) {
    PalmGuard guard;
    guard.PenIsNear();
    EXPECT_FALSE(guard.TakesTouch(1000));
    EXPECT_FALSE(guard.TakesTouch(1'000'000));
    guard.PenLeft(1'000'000);
    EXPECT_FALSE(guard.TakesTouch(1'000'000));
    EXPECT_FALSE(guard.TakesTouch(1'000'499));
    EXPECT_TRUE(guard.TakesTouch(1'000'500));
    guard.PenIsNear();
    EXPECT_FALSE(guard.TakesTouch(1'002'000));
}

} // namespace
} // namespace tavo::ink
