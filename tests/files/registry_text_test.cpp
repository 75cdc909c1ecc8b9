// Tests of the registry file's text.
#include "host/files/registry_text.h"

#include <gtest/gtest.h>
#include <random>

namespace tavo::files {

namespace {

RegistryValue TextValue(std::u16string_view text) {
    RegistryValue value{1, {}};
    for (const char16_t unit : text) {
        value.Data.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        value.Data.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return value;
}

} // namespace

TEST(RegistryText, NumbersStandAsAPersonWritesThem) {
    RegistryText text;
    text.SetNumber(u"Zorbex\\clock", u"isAnalog", 1);
    text.SetNumber(u"Zorbex\\clock", u"other", -5);
    text.SetNumber(u"Zorbex\\page", u"x", 2);
    text.SetNumber(u"Zorbex\\clock", u"isAnalog", 0);
    EXPECT_EQ(text.ToText(), "[Zorbex\\clock]\nisAnalog=0\nother=-5\n\n[Zorbex\\page]\nx=2\n");
}

TEST(RegistryText, WhatAPersonTypedIsUnderstood) {
    const RegistryText text(
        "\xEF\xBB\xBF  [ ZORBEX\\Clock ]\r\n ; note\r\n  IsAnalog =  0 \r\n\r\n[other]\r\nisAnalog=7");
    EXPECT_EQ(text.FindNumber(u"Zorbex\\clock", u"isAnalog"), 0);
    EXPECT_EQ(text.FindNumber(u"other", u"isAnalog"), 7);
    EXPECT_EQ(text.FindNumber(u"Zorbex\\clock", u"none"), std::nullopt);
    EXPECT_EQ(text.FindNumber(u"none", u"isAnalog"), std::nullopt);
}

TEST(RegistryText, WhatIsNoNumberIsNone) {
    for (const char* written : {"", "x", "1x", "99999999999", "0x1", "\"1\"", "1 2"}) {
        EXPECT_EQ(RegistryText(std::string("[s]\nn=") + written).FindNumber(u"s", u"n"), std::nullopt) << written;
    }
    EXPECT_EQ(RegistryText("[s]\n#n=1").FindNumber(u"s", u"n"), std::nullopt);
    EXPECT_EQ(RegistryText("n=1\n[s]").FindNumber(u"s", u"n"), std::nullopt);
}

TEST(RegistryText, OfTwoEqualNamesTheFirstCounts) {
    EXPECT_EQ(RegistryText("[s]\nn=1\nN=2\n[S]\nn=3").FindNumber(u"s", u"n"), 1);
}

TEST(RegistryText, UnknownLinesAreKeptAsTheyStand) {
    RegistryText text("garbage\n[s]\n  ?!=\x01 \xFF\nn=1\n[unclosed\n=\n\n# end\n[t]\n");
    text.SetNumber(u"s", u"n", 2);
    text.SetNumber(u"s", u"m", 3);
    EXPECT_EQ(text.ToText(), "garbage\n[s]\n  ?!=\x01 \xFF\nn=2\n[unclosed\n=\n\n# end\nm=3\n[t]\n");
}

TEST(RegistryText, TextsAreShownInQuotesAndKeepTheirSize) {
    RegistryText text;
    const RegistryValue path = TextValue(u"\\Windows\\Größe \"x\".wav");
    text.SetValue(u"k", u"Wave", path);
    EXPECT_EQ(text.ToText(), "[k]\nWave=\"\\Windows\\Größe \"x\".wav\"\n");
    EXPECT_EQ(RegistryText(text.ToText()).FindValue(u"k", u"wave"), path);
    EXPECT_EQ(RegistryText("[k]\nWave=\"01234567890123456789\"").FindValue(u"k", u"Wave")->Data.size(), 40U);
}

TEST(RegistryText, EveryOtherValueComesBackByteForByte) {
    const std::vector<RegistryValue> values{TextValue(std::u16string(u"a\0", 2)),
                                            TextValue(u"two\nlines"),
                                            TextValue(std::u16string{char16_t{0xD800}}),
                                            TextValue(u""),
                                            TextValue(u"\" \""),
                                            TextValue(u"  blanks  "),
                                            {1, {0x41}},
                                            {4, {1, 0, 0, 0}},
                                            {3, {}}};
    for (const RegistryValue& value : values) {
        RegistryText text;
        text.SetValue(u"k", u"v", value);
        EXPECT_EQ(RegistryText(text.ToText()).FindValue(u"k", u"v"), value) << text.ToText();
    }
}

TEST(RegistryText, RandomValuesAndNamesComeBack) {
    std::mt19937 random(7);
    std::uniform_int_distribution byte(0, 255);
    std::uniform_int_distribution length(0, 40);
    for (int i = 0; i < 3000; ++i) {
        RegistryValue value{static_cast<std::uint32_t>(i % 5), {}};
        for (int left = length(random); left > 0; --left) {
            value.Data.push_back(static_cast<std::uint8_t>(i % 3 == 0 && left % 2 == 0 ? 0 : byte(random)));
        }
        std::u16string name(1, u'n');
        for (int left = length(random); left > 0; --left) {
            name += static_cast<char16_t>(byte(random) << (i % 2 == 0 ? 0 : 8));
        }
        RegistryText text("[other]\n");
        text.SetValue(name, name, value);
        ASSERT_EQ(RegistryText(text.ToText()).FindValue(name, name), value) << text.ToText();
    }
}

TEST(RegistryText, GarbledValuesAreNone) {
    for (const char* written : {"\"", "x", "hex(", "hex(1):5", "hex(1):5c,", "hex(1):5c,0", "hex(1):zz", "hex():00",
                                "hex(9999999999):00", "hex(1)00", "\"\xFF\""}) {
        EXPECT_EQ(RegistryText(std::string("[k]\nv=") + written).FindValue(u"k", u"v"), std::nullopt) << written;
    }
}

TEST(RegistryText, NamesCannotBreakOutOfTheirLine) {
    RegistryText text;
    text.SetNumber(u"a]\n[b", u"x=1\n[c]\ny", 5);
    EXPECT_EQ(text.FindNumber(u"a]\n[b", u"x=1\n[c]\ny"), 5);
    EXPECT_FALSE(text.HasSection(u"b"));
    EXPECT_FALSE(text.HasSection(u"c"));
    EXPECT_EQ(text.ToText(), "[a%005d%000a%005bb]\nx%003d1%000a%005bc%005d%000ay=5\n");
}

} // namespace tavo::files
