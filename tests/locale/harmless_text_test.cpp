// Tests of what becomes of text from outside before it is shown.
#include "host/locale/harmless_text.h"

#include "host/locale/utf.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace tavo::locale {

namespace {

std::string BytesOf(char32_t point) {
    std::string bytes;
    AppendCharacter(bytes, point);
    return bytes;
}

struct Span {
    char32_t First;
    char32_t Last;
    char32_t Becomes; // 0: it is left out
};

void ExpectBetween(const Span& span) {
    for (char32_t point = span.First; point <= span.Last; ++point) {
        const std::string expected = "a" + (span.Becomes == 0 ? std::string() : BytesOf(span.Becomes)) + "b";
        EXPECT_EQ(MakeHarmless("a" + BytesOf(point) + "b"), expected) << std::hex << static_cast<unsigned>(point);
        EXPECT_FALSE(IsHarmless(BytesOf(point))) << std::hex << static_cast<unsigned>(point);
    }
}

} // namespace

TEST(HarmlessText, ControlCharactersBecomeTheirSymbols) {
    EXPECT_EQ(MakeHarmless(std::string_view("\0a\tb\nc\rd\x1B[2Je\x7F", 14)), "␀a␉b␊c␍d␛[2Je␡");
    for (char32_t point = 0; point < 0x20; ++point) {
        EXPECT_EQ(MakeHarmless(BytesOf(point)), BytesOf(0x2400 + point)) << static_cast<unsigned>(point);
    }
}

TEST(HarmlessText, WhatHarmsIsReplacedOrLeftOut) {
    constexpr std::array<Span, 9> spans{{
        {0x80, 0x84, 0xFFFD},
        {0x85, 0x85, 0x2424},
        {0x86, 0x9F, 0xFFFD},
        {0x2028, 0x2029, 0x2424},
        {0x202A, 0x202E, 0},
        {0x2066, 0x2069, 0},
        {0xFEFF, 0xFEFF, 0},
        {0xFDD0, 0xFDEF, 0xFFFD},
        {0xFFFE, 0xFFFF, 0xFFFD},
    }};
    for (const Span& span : spans) {
        ExpectBetween(span);
    }
    for (char32_t plane = 0x10000; plane <= 0x100000; plane += 0x10000) {
        ExpectBetween({plane + 0xFFFE, plane + 0xFFFF, 0xFFFD});
    }
}

TEST(HarmlessText, MalformedBytesAreReplacedFaultByFault) {
    EXPECT_EQ(MakeHarmless("a\x80z"), "a\uFFFDz");                           // a follower alone
    EXPECT_EQ(MakeHarmless("a\xC3z"), "a\uFFFDz");                           // a follower missing
    EXPECT_EQ(MakeHarmless("\xE2\x82"), "\uFFFD");                           // cut off
    EXPECT_EQ(MakeHarmless("\xC0\x80"), "\uFFFD\uFFFD");                     // overlong, a hidden zero
    EXPECT_EQ(MakeHarmless("\xC1\x9B[2J"), "\uFFFD\uFFFD[2J");               // overlong, a hidden escape
    EXPECT_EQ(MakeHarmless("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");           // half a surrogate pair
    EXPECT_EQ(MakeHarmless("\xED\xBF\xBF"), "\uFFFD\uFFFD\uFFFD");           // the other half
    EXPECT_EQ(MakeHarmless("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD"); // beyond the last character
    EXPECT_EQ(MakeHarmless("\xFF\xFE"), "\uFFFD\uFFFD");
    EXPECT_EQ(MakeHarmless("\xC2\x1B[2J"), "\uFFFD␛[2J"); // cut off before a control character
}

TEST(HarmlessText, AllElseStaysAsItIs) {
    for (const char* text :
         {"", "Tea at four", "Grüße, Ζωή, 明日", "שלום\u200F (a)", "\u061C\u200E", "👩\u200D🚀", "\u00A0\u00AD\u200B",
          "\uFFFD", "\uFFFC\uFDCF\uFDF0", "\U0001F3F4\U000E0067\U000E007F", "␛"}) {
        EXPECT_EQ(MakeHarmless(text), text);
        EXPECT_TRUE(IsHarmless(text)) << text;
    }
}

TEST(HarmlessText, EveryCharacterThatIsLeftIsOneThatBusesAndTerminalsTake) {
    for (char32_t point = 0; point <= 0x10FFFF; ++point) {
        const std::string harmless = MakeHarmless(BytesOf(point));
        ASSERT_EQ(MakeHarmless(harmless), harmless) << std::hex << static_cast<unsigned>(point);
        const std::u16string units = ToUtf16(harmless);
        for (const char16_t unit : units) {
            const bool control = unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
            ASSERT_FALSE(control || unit == 0xFFFE || unit == 0xFFFF) << std::hex << static_cast<unsigned>(point);
        }
    }
}

TEST(HarmlessText, AppendingKeepsWhatIsThere) {
    std::string text = "Subject: ";
    AppendHarmless("a\x1B", text);
    EXPECT_EQ(text, "Subject: a␛");
}

} // namespace tavo::locale
