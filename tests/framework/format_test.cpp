// printf-style patterns on UTF-16.
#include "framework/format.h"

#include <gtest/gtest.h>

#include <limits>

namespace tavo {

namespace {

TEST(Format, TextsAndNumbers) {
    EXPECT_EQ(FormatText(u"%s %d", u"Holiday:", 2), u"Holiday: 2");
    EXPECT_EQ(FormatText(u"%ld", std::int64_t{-5}), u"-5");
    EXPECT_EQ(FormatText(u"%u", 7u), u"7");
    const std::u16string name = u"Easter";
    EXPECT_EQ(FormatText(u"[%s]", name), u"[Easter]");
    EXPECT_EQ(FormatText(u"[%s]", std::u16string_view(name)), u"[Easter]");
}

TEST(Format, WidthPadsWithBlanksOrZeros) {
    EXPECT_EQ(FormatText(u"%d%02d%02d_%02d%02d%02d.pwi", 2004, 9, 15, 10, 15, 3), u"20040915_101503.pwi");
    EXPECT_EQ(FormatText(u"%3d|", 7), u"  7|");
    EXPECT_EQ(FormatText(u"%02d", 123), u"123");
    EXPECT_EQ(FormatText(u"%10d|%9d|%1d", 7, 8, 9), u"         7|        8|9");
    EXPECT_EQ(FormatText(u"%012d", 345), u"000000000345");
}

TEST(Format, ZeroIsADigitWithoutASign) {
    EXPECT_EQ(FormatText(u"%d %02d %3ld", 0, 0, 0), u"0 00   0");
}

TEST(Format, SignComesBeforeTheZeros) {
    EXPECT_EQ(FormatText(u"%04d", -7), u"-007");
    EXPECT_EQ(FormatText(u"%4d", -7), u"  -7");
}

TEST(Format, LowestNumberHasAMagnitude) {
    EXPECT_EQ(FormatText(u"%ld", std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

TEST(Format, PercentSignsAndWhatIsMissing) {
    EXPECT_EQ(FormatText(u"75%%"), u"75%");
    EXPECT_EQ(FormatText(u"%s and %s", u"one"), u"one and ");
    EXPECT_EQ(FormatText(u"no argument %d"), u"no argument ");
    EXPECT_EQ(FormatText(u"", 5), u"");
    EXPECT_EQ(FormatText(u"100%"), u"100");
}

// What lies behind the end in memory is none of it.
TEST(Format, APatternEndsWhereItSaysItDoes) {
    const std::u16string_view memory = u"75%%0055lls";
    EXPECT_EQ(FormatText(memory.substr(0, 1)), u"7");
    EXPECT_EQ(FormatText(memory.substr(0, 3)), u"75");
    EXPECT_EQ(FormatText(memory.substr(3, 1), 7), u"7");
    EXPECT_EQ(FormatText(memory.substr(3, 2), 7), u"7");
    EXPECT_EQ(FormatText(memory.substr(3, 4), 7), u"00007");
    EXPECT_EQ(FormatText(memory.substr(3, 7), 7), std::u16string(54, u'0') + u"7");
}

TEST(Format, ArgumentsAreNotPatterns) {
    EXPECT_EQ(FormatText(u"%s-%s", u"%d", u"x"), u"%d-x");
}

} // namespace

} // namespace tavo
