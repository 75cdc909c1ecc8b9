// Tests of the comparison without case.
#include "host/locale/case_folding.h"

#include <gtest/gtest.h>

namespace tavo::locale {

TEST(CaseFolding, LettersOfEveryScriptLoseTheirCase) {
    EXPECT_EQ(FoldCase(u"TavoCalendar.DAT"), u"tavocalendar.dat");
    EXPECT_EQ(FoldCase(u"ÄÖÜÉÑÇØÞ"), u"äöüéñçøþ");
    EXPECT_EQ(FoldCase(u"ĀĂĘŁŃŒŠŸŽ"), u"āăęłńœšÿž");
    EXPECT_EQ(FoldCase(u"ΆΑΩΣς"), u"άαωσσ");
    EXPECT_EQ(FoldCase(u"ЀАЯҐ"), u"ѐаяґ");
    EXPECT_EQ(FoldCase(u"ẞẠỲƠƯＡＺ"), u"ßạỳơưａｚ");
}

TEST(CaseFolding, EverythingElseStays) {
    EXPECT_EQ(FoldCase(u"@[`{0_×÷ßÿıĸŉ日本"), u"@[`{0_×÷ßÿıĸŉ日本");
    EXPECT_EQ(FoldCase(u"\U00010400"), u"\U00010400"); // beyond 16 bits: left as it is
}

TEST(CaseFolding, FoldingTwiceIsFoldingOnce) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const char16_t folded = FoldCase(static_cast<char16_t>(unit));
        ASSERT_EQ(FoldCase(folded), folded) << unit;
    }
}

TEST(CaseFolding, NamesAreEqualWithoutCaseOnly) {
    EXPECT_TRUE(EqualWithoutCase(u"Größe.PWI", u"GRÖßE.pwi"));
    EXPECT_FALSE(EqualWithoutCase(u"a", u"ab"));
    EXPECT_FALSE(EqualWithoutCase(u"a", u"á"));
    EXPECT_TRUE(EqualWithoutCase(u"", u""));
}

} // namespace tavo::locale
