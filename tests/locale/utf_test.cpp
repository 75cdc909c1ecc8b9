// Tests of the conversion between UTF-8 and UTF-16.
#include "host/locale/utf.h"

#include <gtest/gtest.h>

namespace tavo::locale {

TEST(Utf, CharactersOfEveryLengthGoThereAndBack) {
    const std::u16string text = u"a\u007F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF";
    const std::string bytes = "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF\xF0\x90\x80\x80"
                              "\xF4\x8F\xBF\xBF";
    EXPECT_EQ(ToUtf8(text), bytes);
    EXPECT_EQ(ToUtf16(bytes), text);
    EXPECT_EQ(ToUtf8Exactly(text), bytes);
    EXPECT_EQ(ToUtf16Exactly(bytes), text);
}

TEST(Utf, ZeroIsACharacterLikeAnyOther) {
    EXPECT_EQ(ToUtf16(std::string_view("a\0b", 3)), std::u16string(u"a\0b", 3));
    EXPECT_EQ(ToUtf8(std::u16string_view(u"a\0b", 3)), std::string("a\0b", 3));
}

TEST(Utf, EveryCharacterGoesThereAndBack) {
    for (char32_t point = 0; point <= 0x10FFFF; ++point) {
        if (point >= 0xD800 && point <= 0xDFFF) {
            continue;
        }
        std::u16string text;
        if (point >= 0x10000) {
            text += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
            text += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
        } else {
            text += static_cast<char16_t>(point);
        }
        const std::optional<std::string> bytes = ToUtf8Exactly(text);
        ASSERT_TRUE(bytes) << static_cast<unsigned>(point);
        ASSERT_EQ(ToUtf16Exactly(*bytes), text) << static_cast<unsigned>(point);
    }
}

TEST(Utf, HalfASurrogatePairIsReplaced) {
    const std::u16string lonely{u'a', char16_t{0xD800}, u'b', char16_t{0xDC00}, char16_t{0xD801}};
    EXPECT_EQ(ToUtf8(lonely), "a\xEF\xBF\xBD"
                              "b\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8Exactly(lonely), std::nullopt);
}

TEST(Utf, MalformedBytesAreReplacedAndTheRestIsKept) {
    EXPECT_EQ(ToUtf16("a\x80z"), u"a\uFFFDz");                           // a follower alone
    EXPECT_EQ(ToUtf16("a\xC3z"), u"a\uFFFDz");                           // a follower missing
    EXPECT_EQ(ToUtf16("\xE2\x82"), u"\uFFFD");                           // cut off
    EXPECT_EQ(ToUtf16("\xC0\x80"), u"\uFFFD\uFFFD");                     // overlong
    EXPECT_EQ(ToUtf16("\xE0\x80\x80"), u"\uFFFD\uFFFD\uFFFD");           // overlong
    EXPECT_EQ(ToUtf16("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");           // a surrogate
    EXPECT_EQ(ToUtf16("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD"); // beyond the last character
    EXPECT_EQ(ToUtf16("\xFFq"), u"\uFFFDq");
    for (const char* bytes : {"a\x80z", "\xC3", "\xE2\x82", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"}) {
        EXPECT_EQ(ToUtf16Exactly(bytes), std::nullopt);
    }
}

} // namespace tavo::locale
