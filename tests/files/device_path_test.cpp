// Tests of device paths and patterns.
#include "host/files/device_path.h"

#include <gtest/gtest.h>

namespace tavo::files {

using Parts = std::vector<std::u16string>;

TEST(DevicePath, SeparatorsDivideAndDoubledOnesCountAsOne) {
    EXPECT_EQ(ParseDevicePath(u"\\My Documents\\TavoCalendar\\x.pwi"),
              (Parts{u"My Documents", u"TavoCalendar", u"x.pwi"}));
    EXPECT_EQ(ParseDevicePath(u"\\My Documents\\\\TavoCalendar.dat"), (Parts{u"My Documents", u"TavoCalendar.dat"}));
    EXPECT_EQ(ParseDevicePath(u"\\\\a\\\\\\b\\"), (Parts{u"a", u"b"}));
    EXPECT_EQ(ParseDevicePath(u"\\"), Parts{});
}

TEST(DevicePath, NoPartMayLeadElsewhere) {
    for (const std::u16string_view path :
         {u"\\..\\x", u"\\a\\..", u"\\.", u"\\a\\.\\b", u"\\a/b", u"\\a\\/etc", u"\\C:\\x"}) {
        EXPECT_EQ(ParseDevicePath(path), std::nullopt) << std::string(path.begin(), path.end());
    }
    EXPECT_EQ(ParseDevicePath(std::u16string(u"\\a\0b", 4)), std::nullopt);
    EXPECT_EQ(ParseDevicePath(u"\\a\nb"), std::nullopt);
    EXPECT_EQ(ParseDevicePath(std::u16string{u'\\', char16_t{0xD800}}), std::nullopt);
}

TEST(DevicePath, MustBeginAtTheRootAndFitTheDevice) {
    EXPECT_EQ(ParseDevicePath(u""), std::nullopt);
    EXPECT_EQ(ParseDevicePath(u"a\\b"), std::nullopt);
    EXPECT_TRUE(ParseDevicePath(u"\\" + std::u16string(258, u'x')));
    EXPECT_EQ(ParseDevicePath(u"\\" + std::u16string(259, u'x')), std::nullopt);
}

TEST(DevicePath, WildcardsStandOnlyInTheLastPartOfAPattern) {
    EXPECT_EQ(ParseDevicePath(u"\\a\\*.pwi"), std::nullopt);
    EXPECT_EQ(ParseDevicePath(u"\\a\\*.p?i", WildcardRule::AllowInLastPart), (Parts{u"a", u"*.p?i"}));
    EXPECT_EQ(ParseDevicePath(u"\\a*\\b", WildcardRule::AllowInLastPart), std::nullopt);
}

TEST(DevicePath, FilesThatAreBeingWrittenHaveNoName) {
    EXPECT_FALSE(IsDeviceName(u".~tavo-12-3"));
    EXPECT_TRUE(IsDeviceName(u".hidden"));
    EXPECT_TRUE(IsDeviceName(u"..."));
}

TEST(MatchesPattern, StarIsAnyRunAndQuestionMarkAnyUnit) {
    EXPECT_TRUE(MatchesPattern(u"20040915_101530.pwi", u"20040915*.pwi"));
    EXPECT_TRUE(MatchesPattern(u"20040915.pwi", u"20040915*.pwi"));
    EXPECT_FALSE(MatchesPattern(u"20040916_101530.pwi", u"20040915*.pwi"));
    EXPECT_FALSE(MatchesPattern(u"20040915_101530.pwi2", u"20040915*.pwi"));
    EXPECT_TRUE(MatchesPattern(u"a.pwi.pwi", u"*.pwi"));
    EXPECT_TRUE(MatchesPattern(u"abcbc", u"a*bc"));
    EXPECT_TRUE(MatchesPattern(u"abc", u"a?c"));
    EXPECT_FALSE(MatchesPattern(u"ac", u"a?c"));
    EXPECT_TRUE(MatchesPattern(u"", u"**"));
    EXPECT_FALSE(MatchesPattern(u"", u"?"));
    EXPECT_FALSE(MatchesPattern(u"abc", u"ab"));
}

TEST(MatchesPattern, ManyStarsTakeNoLongTime) {
    const std::u16string name(250, u'a');
    std::u16string pattern;
    for (int i = 0; i < 60; ++i) {
        pattern += u"a*";
    }
    EXPECT_FALSE(MatchesPattern(name, pattern + u"b")); // would never end if every split were tried
}

} // namespace tavo::files
