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
