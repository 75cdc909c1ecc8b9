// Widths that tests can count on.
#include "host/headless/text_metrics.h"

#include <gtest/gtest.h>

namespace tavo::headless {

namespace {

std::vector<int> Measure(int height, int width, int weight, std::u16string_view text) {
    std::vector<int> widths;
    MeasureText(height, width, weight, text, widths);
    return widths;
}

TEST(TextMetrics, WidthsAddUpByKindOfCharacter) {
    EXPECT_EQ(Measure(-10, 0, 400, u"aiM"), (std::vector<int>{5, 8, 16})); // 5.5, 8.3, 16.8
    EXPECT_EQ(Measure(-10, 0, 400, u"A1"), (std::vector<int>{6, 12}));
    EXPECT_EQ(Measure(-10, 0, 400, u"\u6F22"), std::vector<int>{10});
    EXPECT_TRUE(Measure(-10, 0, 400, u"").empty());
}

TEST(TextMetrics, WhatPeopleSeeAsOneCharacterCountsWithItsLastUnit) {
    EXPECT_EQ(Measure(-10, 0, 400, u"\U0001F600\U0001F600"), (std::vector<int>{0, 10, 10, 20}));
    EXPECT_EQ(Measure(-10, 0, 400, u"e\u0301\u0323a"), (std::vector<int>{0, 0, 5, 11}));
    EXPECT_EQ(Measure(-10, 0, 400, u"\U0001F469\u200D\U0001F467"), (std::vector<int>{0, 0, 0, 0, 10}));
    EXPECT_EQ(Measure(-10, 0, 400, u"\U0001F44B\U0001F3FD"), (std::vector<int>{0, 0, 0, 10}));
    EXPECT_EQ(Measure(-10, 0, 400, u"\u2764\uFE0F"), (std::vector<int>{0, 10}));
    EXPECT_EQ(Measure(-10, 0, 400, u"\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7"),
              (std::vector<int>{0, 0, 0, 10, 10, 10, 10, 20}));
    EXPECT_EQ(Measure(-10, 0, 400, u"\u0E01\u0E31\u0E1A"), (std::vector<int>{0, 5, 11}));
}

TEST(TextMetrics, HalvesOfPairsAndMarksWithoutALetterStandAlone) {
    EXPECT_EQ(Measure(-10, 0, 400, u"\xD83D"), std::vector<int>{10});
    EXPECT_EQ(Measure(-10, 0, 400, u"\xDE00\xD83D"), (std::vector<int>{10, 20}));
    EXPECT_EQ(Measure(-10, 0, 400, u"\u0301"), std::vector<int>{5});
    EXPECT_EQ(Measure(-10, 0, 400, u"\n\u0301"), (std::vector<int>{2, 8}));
    EXPECT_EQ(Measure(-10, 0, 400, u"a\u200Db"), (std::vector<int>{0, 5, 11})); // joins pictures alone
}

TEST(TextMetrics, TabAndLineBreakAreBlanks) {
    EXPECT_EQ(Measure(-10, 0, 400, u"\ta\n\r"), (std::vector<int>{2, 8, 11, 13}));
}

TEST(TextMetrics, BoldIsATenthWider) {
    EXPECT_EQ(Measure(-100, 0, 400, u"a"), std::vector<int>{55});
    EXPECT_EQ(Measure(-100, 0, 700, u"a"), std::vector<int>{60});
}

TEST(TextMetrics, WidthOfItsOwnIsADigitsWidth) {
    EXPECT_EQ(Measure(-133, -33, 700, u"12"), (std::vector<int>{33, 66}));
    EXPECT_EQ(Measure(-20, 20, 700, u"0"), std::vector<int>{20});
}

} // namespace

} // namespace tavo::headless
