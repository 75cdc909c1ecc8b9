// Restriction text: what is read and what is refused.
#include "host/rules/restriction.h"

#include "tests/rules/item_words.h"

#include <gmock/gmock.h>

namespace tavo::rules::test {

namespace {

Status Parse(const std::u16string& text) {
    Restriction restriction;
    return ParseRestriction(text, restriction);
}

} // namespace

TEST(RestrictionText, IsReadInAnyCaseWithTrailingBlanksAndALineFeed) {
    EXPECT_EQ(Parse(u"[Start] >= 5/1/2026"), Status::Ok);
    EXPECT_EQ(Parse(u"[start] >= 5/1/2026 AND [END] <= 12/31/2026 or [Subject] = \"a\""), Status::Ok);
    EXPECT_EQ(Parse(u"[Start] >= 5/1/2026 and [Start] <= 5/2/2026\n"), Status::Ok);
    EXPECT_EQ(Parse(u"[Start] >= 5/1/2026 \t \n "), Status::Ok);
    EXPECT_EQ(Parse(u"  [Start]>=5/1/2026"), Status::Ok);
}

TEST(RestrictionText, AnythingElseIsInvalid) {
    const std::u16string bad[] = {u"",
                                  u"\n",
                                  u"[Start]",
                                  u"[Start] >=",
                                  u"[Start] 5/1/2026",
                                  u"[Start] => 5/1/2026",
                                  u"[Start] == 5/1/2026",
                                  u"[Start] != 5/1/2026",
                                  u"Start >= 5/1/2026",
                                  u"[Start >= 5/1/2026",
                                  u"[Begin] >= 5/1/2026",
                                  u"[Start] >= \"5/1/2026\"",
                                  u"[Subject] = a",
                                  u"[Subject] = \"a",
                                  u"[Start] >= 5/1/2026 and",
                                  u"[Start] >= 5/1/2026 [End] <= 5/1/2026",
                                  u"[Start] >= 5/1/2026 xor [End] <= 5/1/2026",
                                  u"([Start] >= 5/1/2026)",
                                  u"[Start] >= 13/1/2026",
                                  u"[Start] >= 0/1/2026",
                                  u"[Start] >= 2/29/2026",
                                  u"[Start] >= 5/32/2026",
                                  u"[Start] >= 5/1/26x",
                                  u"[Start] >= 5/1/202",
                                  u"[Start] >= 5/1/20261",
                                  u"[Start] >= 1/1/1600",
                                  u"[Start] >= 5-1-2026",
                                  u"[Start] >= 5/1/2026 25:00",
                                  u"[Start] >= 5/1/2026 10:60",
                                  u"[Start] >= 5/1/2026 13:00 PM",
                                  u"[Start] >= 5/1/2026 0:30 AM",
                                  u"[Duration] >= ten",
                                  u"[ReminderSet] = maybe"};
    for (const std::u16string& text : bad) {
        EXPECT_EQ(Parse(text), Status::InvalidArgument) << std::string(text.begin(), text.end());
    }
}

TEST(RestrictionText, AFailureLeavesTheRestrictionAsItWas) {
    Restriction restriction;
    ASSERT_EQ(ParseRestriction(u"[Oid] = 7", restriction), Status::Ok);
    ASSERT_EQ(ParseRestriction(u"[Oid] = 8 and nonsense", restriction), Status::InvalidArgument);
    ASSERT_EQ(restriction.Alternatives.size(), 1U);
    EXPECT_EQ(restriction.Alternatives[0][0].Low, 7);
}

TEST(RestrictionText, DatesFrom1601To9999AreUnderstood) {
    EXPECT_EQ(Parse(u"[Start] >= 1/1/1601"), Status::Ok);
    EXPECT_EQ(Parse(u"[Start] <= 12/31/9999"), Status::Ok);
    EXPECT_EQ(Parse(u"[Start] <= 2/29/2000"), Status::Ok);
    EXPECT_EQ(Parse(u"[Start] <= 2/29/1900"), Status::InvalidArgument);
}

TEST(RestrictionText, AYearOfTwoDigitsLiesBetween1930And2029) {
    Restriction restriction;
    ASSERT_EQ(ParseRestriction(u"[Start] = 5/1/29", restriction), Status::Ok);
    EXPECT_EQ(TextOf(restriction.LowestStart()), "2029-05-01 00:00");
    ASSERT_EQ(ParseRestriction(u"[Start] = 5/1/30", restriction), Status::Ok);
    EXPECT_EQ(TextOf(restriction.LowestStart()), "1930-05-01 00:00");
}

TEST(RestrictionText, BoundsOfAlternativesAreTheWeakest) {
    Restriction restriction;
    ASSERT_EQ(ParseRestriction(u"[Start] >= 5/1/2026 and [Start] <= 5/9/2026 or [Start] = 6/1/2026", restriction),
              Status::Ok);
    EXPECT_EQ(TextOf(restriction.LowestStart()), "2026-05-01 00:00");
    EXPECT_EQ(TextOf(restriction.HighestStart()), "2026-06-01 23:59:59");
    ASSERT_EQ(ParseRestriction(u"[Start] <= 5/1/2026 or [Oid] = 1", restriction), Status::Ok);
    EXPECT_FALSE(restriction.BoundsStartFromAbove());
    ASSERT_EQ(ParseRestriction(u"[Start] <> 5/1/2026", restriction), Status::Ok);
    EXPECT_FALSE(restriction.BoundsStartFromAbove());
}

} // namespace tavo::rules::test
