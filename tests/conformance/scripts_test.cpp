// Widths of text in many scripts: every prefix is as wide as it is by itself, and no character is cut through.
#include "tests/conformance/conformance_test.h"
#include "tests/support/processor_time.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace tavo::conformance {

namespace {

using Characters = std::vector<std::u16string>;

constexpr int kFontHeight = 13;

struct Sample {
    const char* Name;
    Characters Text;                   // as people see characters
    std::set<std::size_t> Joined = {}; // which of them take another shape because the next one is joined to them
};

const Sample kSamples[] = {
    {"Euro", {u"3", u"0", u" ", u"\u20AC", u" ", u"w", u"i", u"t", u"h"}},
    {"Accents", {u"\u1EA4", u"n", u"\u1ED9", u"\u01B0", u"\u0218", u" ", u"\u1E9E", u"\u0127"}},
    {"CombiningMarks", {u"e\u0301", u"a\u0308", u"x", u"o\u0302\u0323", u" ", u"n\u0303", u"q\u0307"}},
    {"Cyrillic", {u"\u0423", u"\u0436", u"\u0438", u"\u043D", u" ", u"\u0441", u"\u20AC", u"\u0451"}},
    {"Cjk", {u"\u4F1A", u"\u8B70", u"\u306F", u"3", u"\u6642", u"\u304B\u3099", u"\uD55C", u"\u3002"}},
    {"Hebrew", {u"\u05D0", u"\u05E8", u"\u05D5\u05BC", u"\u05D7", u" ", u"7", u":", u"3", u"0", u" ", u"a", u"\u05D4"}},
    {"Arabic",
     {u"\u0627", u"\u0644", u"\u0639\u064E", u"\u0634", u"\u0627", u"\u0621", u" ", u"5", u" ", u"\u0645", u"\u0639"},
     {1, 2, 3, 9}},
    {"Thai", {u"\u0E2D", u"\u0E32", u"\u0E2B", u"\u0E32", u"\u0E23", u"\u0E01\u0E31", u"\u0E1A", u" ", u"\u0E40"}},
    {"Emoji", {u"\U0001F600", u"a", u"\U0001F4C5", u"\u2764\uFE0F", u" ", u"\U0001F382"}},
    {"JoinedEmoji",
     {u"\U0001F469\u200D\U0001F469\u200D\U0001F467", u"\U0001F44B\U0001F3FD", u"x",
      u"\U0001F3F3\uFE0F\u200D\U0001F308"}},
    {"Flags", {u"\U0001F1E9\U0001F1EA", u"\U0001F1EB\U0001F1F7", u" ", u"\U0001F1E9\U0001F1EA"}},
    {"Tab", {u"C", u"a", u"l", u"l", u"\t", u"M", u"u", u"m"}},
    {"LineFeed", {u"C", u"a", u"l", u"l", u"\n", u"M", u"u", u"m", u"\r\n", u"!", u"\u2028", u"i"}},
};

// In pixels: each width is rounded by itself.
constexpr int kRounding = 1;
// Beside a letter: it has the shape that it has where another is joined to it there.
constexpr char16_t kJoiner = u'\u200D';

// A prefix of so many characters, its last one in the shape that it has within the text.
std::u16string PrefixAsInText(const Sample& sample, std::size_t count) {
    std::u16string prefix;
    for (std::size_t index = 0; index < count; ++index) {
        prefix += sample.Text[index];
    }
    return sample.Joined.contains(count - 1) ? prefix + kJoiner : prefix;
}

std::u16string Join(const Characters& characters) {
    return std::accumulate(characters.begin(), characters.end(), std::u16string());
}

double ProcessorMilliseconds() {
    return test::ProcessorTime(RUSAGE_SELF) * 1000.0;
}

class ScriptConformance : public ConformanceTest {
  protected:
    ScriptConformance() : Font(Host.Drawing().CreateFontIndirectW({u"Arial", -kFontHeight, 0, 400})) {}

    ~ScriptConformance() override { Host.Drawing().DeleteObject(Font); }

    std::vector<int> Widths(std::u16string_view text) {
        std::vector<int> widths;
        Host.Drawing().GetTextExtentExPointW(Font, text, widths);
        return widths;
    }

    // In the shape that it has within the text. A joiner that begins a text may have a width of its own.
    int WidthAsInText(const Sample& sample, std::size_t index) {
        const bool isJoinedBefore = index > 0 && sample.Joined.contains(index - 1);
        const bool isJoinedBehind = sample.Joined.contains(index);
        const std::u16string before = isJoinedBefore ? std::u16string(1, kJoiner) : std::u16string();
        const std::u16string behind = isJoinedBehind ? std::u16string(1, kJoiner) : std::u16string();
        const std::vector<int> widths = Widths(before + sample.Text[index] + behind);
        return isJoinedBefore ? widths.back() - widths.front() : widths.back();
    }

    FontHandle Font;
};

TEST_F(ScriptConformance, EveryPrefixIsAsWideAsByItself) {
    for (const Sample& sample : kSamples) {
        const std::vector<int> widths = Widths(Join(sample.Text));
        std::u16string prefix;
        int last = 0;
        for (std::size_t index = 0; index < sample.Text.size(); ++index) {
            prefix += sample.Text[index];
            ASSERT_GE(widths.size(), prefix.size()) << sample.Name;
            const int width = widths[prefix.size() - 1];
            EXPECT_NEAR(width, Widths(PrefixAsInText(sample, index + 1)).back(), kRounding)
                << sample.Name << ", " << prefix.size();
            EXPECT_GT(width, last) << sample.Name << ", " << prefix.size();
            last = width;
        }
        EXPECT_EQ(widths.size(), prefix.size()) << sample.Name;
    }
}

TEST_F(ScriptConformance, TheWidthsOfItsCharactersAddUp) {
    for (const Sample& sample : kSamples) {
        int sum = 0;
        for (std::size_t index = 0; index < sample.Text.size(); ++index) {
            sum += WidthAsInText(sample, index);
        }
        const int allowed = kRounding * static_cast<int>(sample.Text.size());
        EXPECT_NEAR(Widths(Join(sample.Text)).back(), sum, allowed) << sample.Name;
    }
}

TEST_F(ScriptConformance, CharactersCountWithTheirLastUnit) {
    for (const Sample& sample : kSamples) {
        const std::vector<int> widths = Widths(Join(sample.Text));
        std::size_t start = 0;
        int before = 0;
        for (const std::u16string& character : sample.Text) {
            for (std::size_t unit = start; unit + 1 < start + character.size() && character != u"\r\n"; ++unit) {
                EXPECT_EQ(widths[unit], before) << sample.Name << ", " << unit;
            }
            start += character.size();
            before = widths[start - 1];
        }
    }
}

TEST_F(ScriptConformance, MeasuringTakesTimeInProportionToTheText) {
    for (const Sample& sample : kSamples) {
        const std::u16string once = Join(sample.Text);
        double shortest[2] = {1e9, 1e9};
        for (int round = 0; round < 5; ++round) {
            for (std::size_t which = 0; which < 2; ++which) {
                std::u16string text;
                while (text.size() < (which == 0 ? 10'000u : 80'000u)) {
                    text += once;
                }
                text += static_cast<char16_t>(u'a' + round); // no answer is one remembered
                const double begin = ProcessorMilliseconds();
                EXPECT_EQ(Widths(text).size(), text.size());
                shortest[which] = std::min(shortest[which], ProcessorMilliseconds() - begin);
            }
        }
        EXPECT_LT(shortest[1], test::AtMost(20) * (shortest[0] + 0.5)) << sample.Name;
    }
}

// Every character is met for the first time, so none of it is remembered: ideographs and syllables, of which there are
// enough.
TEST_F(ScriptConformance, MeasuringTakesTimeInProportionWithoutACharacterTwice) {
    constexpr char16_t firstIdeograph = 0x4E00;
    constexpr int few = 2'000;
    constexpr int many = 16'000;
    const auto measure = [&](char16_t first, int count) {
        std::u16string text;
        for (int index = 0; index < count; ++index) {
            text += static_cast<char16_t>(first + index);
        }
        const double begin = ProcessorMilliseconds();
        EXPECT_EQ(Widths(text).size(), text.size());
        return ProcessorMilliseconds() - begin;
    };
    measure(u'a', 1);
    const double shortTime = measure(firstIdeograph, few);
    const double longTime = measure(static_cast<char16_t>(firstIdeograph + few), many);
    EXPECT_LT(longTime, test::AtMost(20) * (shortTime + 0.5));
}

} // namespace

} // namespace tavo::conformance
