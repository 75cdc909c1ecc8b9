// Numbers and lead times: text to value, minutes to unit.
#include "edit/lead_time.h"
#include "edit/leading_number.h"

#include <gtest/gtest.h>

namespace tavo {
namespace {

TEST(LeadingNumber, ReadsDigitsUpToTheFirstOtherCharacter) {
    EXPECT_EQ(LeadingNumber(u"12"), 12);
    EXPECT_EQ(LeadingNumber(u"12abc"), 12);
    EXPECT_EQ(LeadingNumber(u"3.5"), 3);
    EXPECT_EQ(LeadingNumber(u"007"), 7);
    EXPECT_EQ(LeadingNumber(u"  8"), 8);
    EXPECT_EQ(LeadingNumber(u"-4"), -4);
    EXPECT_EQ(LeadingNumber(u"+4"), 4);
    EXPECT_EQ(LeadingNumber(std::u16string_view(u"1234").substr(0, 2)), 12); // not beyond the text
}

TEST(LeadingNumber, TextThatIsNoNumberIsZero) {
    EXPECT_EQ(LeadingNumber(u""), 0);
    EXPECT_EQ(LeadingNumber(u"abc"), 0);
    EXPECT_EQ(LeadingNumber(u"x5"), 0);
    EXPECT_EQ(LeadingNumber(u"-"), 0);
    EXPECT_EQ(LeadingNumber(u"   "), 0);
}

TEST(LeadingNumber, WhatDoesNotFitBecomesTheNearestThatDoes) {
    EXPECT_EQ(LeadingNumber(u"2147483647"), 2147483647);
    EXPECT_EQ(LeadingNumber(u"2147483648"), 2147483647);
    EXPECT_EQ(LeadingNumber(u"99999999999999999999999999"), 2147483647);
    EXPECT_EQ(LeadingNumber(u"-2147483647"), -2147483647);
    EXPECT_EQ(LeadingNumber(u"-99999999999999999999999999"), -2147483647 - 1);
}

TEST(WholeNumber, TakesDigitsWithinTheBoundsOnly) {
    EXPECT_EQ(WholeNumber(u"0", 0, 9999), 0);
    EXPECT_EQ(WholeNumber(u"9999", 0, 9999), 9999);
    EXPECT_EQ(WholeNumber(u"00015", 0, 9999), 15);
    EXPECT_EQ(WholeNumber(u"10000", 0, 9999), std::nullopt);
    EXPECT_EQ(WholeNumber(u"", 0, 9999), std::nullopt);
    EXPECT_EQ(WholeNumber(u"abc", 0, 9999), std::nullopt);
    EXPECT_EQ(WholeNumber(u"12a", 0, 9999), std::nullopt);
    EXPECT_EQ(WholeNumber(u"-1", 0, 9999), std::nullopt);
}

TEST(LeadTime, MinutesAreSaidInTheLargestUnitThatFits) {
    EXPECT_EQ(SplitLeadMinutes(90), (LeadTime{90, kLeadMinutes}));
    EXPECT_EQ(SplitLeadMinutes(120), (LeadTime{2, kLeadHours}));
    EXPECT_EQ(SplitLeadMinutes(2880), (LeadTime{2, kLeadDays}));
    EXPECT_EQ(SplitLeadMinutes(0), (LeadTime{0, kLeadMinutes}));
    EXPECT_EQ(SplitLeadMinutes(60), (LeadTime{1, kLeadHours}));
    EXPECT_EQ(SplitLeadMinutes(1440), (LeadTime{1, kLeadDays}));
    EXPECT_EQ(SplitLeadMinutes(1439), (LeadTime{1439, kLeadMinutes}));
    EXPECT_EQ(SplitLeadMinutes(1500), (LeadTime{25, kLeadHours}));
}

TEST(LeadTime, UnitsBecomeMinutes) {
    EXPECT_EQ(LeadMinutes({15, kLeadMinutes}), 15);
    EXPECT_EQ(LeadMinutes({12, kLeadHours}), 720);
    EXPECT_EQ(LeadMinutes({9999, kLeadDays}), 14398560);
}

} // namespace
} // namespace tavo
