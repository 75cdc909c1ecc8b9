// Where the hands of the analog clock point.
#include "calendar/clock_hands.h"

#include <gtest/gtest.h>

namespace tavo {
namespace {

SYSTEMTIME At(int hour, int minute, int second = 0) {
    SYSTEMTIME time;
    time.Hour = static_cast<std::uint16_t>(hour);
    time.Minute = static_cast<std::uint16_t>(minute);
    time.Second = static_cast<std::uint16_t>(second);
    return time;
}

TEST(ClockHands, AtThreeTheHourHandPointsRightAndTheOthersUp) {
    EXPECT_EQ(HourHandAngle(At(3, 0)), 90);
    EXPECT_EQ(MinuteHandAngle(At(3, 0)), 0);
    EXPECT_EQ(SecondHandAngle(At(3, 0)), 0);
}

TEST(ClockHands, TheHourHandMovesHalfADegreeAMinute) {
    EXPECT_EQ(HourHandAngle(At(13, 59)), 59);
    EXPECT_EQ(HourHandAngle(At(0, 1)), 0);
    EXPECT_EQ(HourHandAngle(At(12, 0)), 0);
    EXPECT_EQ(HourHandAngle(At(23, 59)), 359);
}

TEST(ClockHands, MinuteAndSecondHandsMoveSixDegreesEach) {
    EXPECT_EQ(MinuteHandAngle(At(0, 59)), 354);
    EXPECT_EQ(SecondHandAngle(At(0, 0, 59)), 354);
}

TEST(ClockHands, AtThreeTheSidePointsLieAboveAndBelowTheBase) {
    const HandPoints hand = PlaceHand(90, kHourHandLength);
    EXPECT_EQ(hand.Tip, (Point{164, 135})); // the sine of a shortened right angle falls just short of one
    EXPECT_EQ(hand.Base, (Point{122, 135}));
    EXPECT_EQ(hand.FirstSide, (Point{122, 133}));
    EXPECT_EQ(hand.SecondSide, (Point{122, 137}));
}

TEST(ClockHands, AtTwelveTheSidePointsLieLeftAndRightOfTheBase) {
    const HandPoints hand = PlaceHand(0, kMinuteHandLength);
    EXPECT_EQ(hand.Tip, (Point{120, 75}));
    EXPECT_EQ(hand.Base, (Point{120, 132}));
    EXPECT_EQ(hand.FirstSide, (Point{118, 132}));
    EXPECT_EQ(hand.SecondSide, (Point{122, 132}));
}

TEST(ClockHands, LeftAndBelowTheMiddleFractionsAreCutTowardsIt) {
    const HandPoints hand = PlaceHand(225, kMinuteHandLength);
    EXPECT_EQ(hand.Tip, (Point{78, 177})); // 42.4 from the middle each way
    EXPECT_EQ(hand.Base, (Point{118, 137}));
}

struct SectorCase {
    int Angle;
    Point FirstOffset; // of the first side point from the base
};

class ClockHandSectors : public testing::TestWithParam<SectorCase> {};

TEST_P(ClockHandSectors, TheSidePointsFollowTheSector) {
    const HandPoints hand = PlaceHand(GetParam().Angle, kMinuteHandLength);
    const Point offset = GetParam().FirstOffset;
    EXPECT_EQ(hand.FirstSide, (Point{hand.Base.X + offset.X, hand.Base.Y + offset.Y}));
    EXPECT_EQ(hand.SecondSide, (Point{hand.Base.X - offset.X, hand.Base.Y - offset.Y}));
}

INSTANTIATE_TEST_SUITE_P(EdgesOfAllSectors, ClockHandSectors,
                         testing::Values(SectorCase{20, {-2, 0}}, SectorCase{21, {-2, -2}}, SectorCase{70, {-2, -2}},
                                         SectorCase{71, {0, -2}}, SectorCase{110, {0, -2}}, SectorCase{111, {2, -2}},
                                         SectorCase{160, {2, -2}}, SectorCase{161, {-2, 0}}, SectorCase{200, {-2, 0}},
                                         SectorCase{201, {-2, -2}}, SectorCase{250, {-2, -2}}, SectorCase{251, {0, -2}},
                                         SectorCase{290, {0, -2}}, SectorCase{291, {2, -2}}, SectorCase{340, {2, -2}},
                                         SectorCase{341, {-2, 0}}));

} // namespace
} // namespace tavo
