// Text: measured once for all scales, placed by the device's flags, stretched to a wished width.
#include "host/qt/font_preparation.h"
#include "host/qt/surface.h"
#include "host/shell/chrome/text_placement.h"

#include <QFontMetricsF>
#include <QTextBoundaryFinder>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

namespace tavo::qt {
namespace {

constexpr Color kBlack = Color::FromRgb(0, 0, 0);

LogFont Arial(int height, int weight = 400) {
    return {u"Arial", height, 0, weight};
}

// The columns and rows of a picture that carry ink.
QRect FindInk(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 200) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

class TextTest : public testing::Test {
  protected:
    TextTest() { EXPECT_TRUE(PrepareFonts()); }

    QRect Draw(std::u16string_view text, FontHandle font, const Rect& area, std::uint32_t format, double scale) {
        Surface surface({240, 120}, {scale}, OwnFonts, OwnPictures);
        surface.DrawTextW(text, area, {font, kBlack, format});
        return FindInk(surface.Image());
    }

    Fonts OwnFonts;
    Pictures OwnPictures;
};

} // namespace

TEST_F(TextTest, ALetterIsAsWideAsTheFontSaysUnhinted) {
    Font font(Arial(-20));
    // The letters of this family: W 0.944, i 0.222 of the height.
    EXPECT_NEAR(font.Shape(u"W").Width(), 18.88, 0.1);
    EXPECT_NEAR(font.Shape(u"i").Width(), 4.44, 0.1);
    EXPECT_NEAR(font.Shape(u"iiiiiiiiii").Width(), 44.4, 0.5);
}

TEST_F(TextTest, DrawnTextKeepsItsMeasuredWidthAtEveryScale) {
    const std::u16string_view text = u"Meeting with the whole department |";
    const FontHandle font = OwnFonts.Make(Arial(-13));
    const double measured = OwnFonts.Find(font)->Shape(text).Width();
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 2.5, 3.0}) {
        const QRect ink = Draw(text, font, {0, 0, 240, 30}, DT_SINGLELINE, scale);
        EXPECT_NEAR((ink.right() + 1) / scale, measured, 2.5) << scale;
    }
}

TEST_F(TextTest, AWishedWidthStretchesTheFontToThatAverage) {
    Font plain({u"Comic Sans MS", -133, 0, 700});
    Font stretched({u"Comic Sans MS", -133, -33, 700});
    EXPECT_EQ(plain.LineHeight(), stretched.LineHeight());
    EXPECT_LT(stretched.Measure(u"00:00"), 200);
    EXPECT_GT(stretched.Measure(u"00:00"), 100);
    Font twice({u"Comic Sans MS", -133, 66, 700}); // the sign does not count
    EXPECT_NEAR(twice.Shape(u"12:34").Width(), 2 * stretched.Shape(u"12:34").Width(), 0.01);
}

TEST_F(TextTest, StretchedTextIsDrawnAsWideAsMeasured) {
    const FontHandle font = OwnFonts.Make({u"Comic Sans MS", -60, -15, 700});
    const int measured = OwnFonts.Find(font)->Measure(u"12:34");
    for (const double scale : {1.0, 2.0}) {
        const QRect ink = Draw(u"12:34", font, {0, 0, 240, 100}, DT_SINGLELINE, scale);
        EXPECT_NEAR(ink.width() / scale, measured, 8) << scale;
        EXPECT_LT(ink.width() / scale, measured + 1) << scale;
    }
}

TEST_F(TextTest, CentredRightAndBottomTextLiesWhereTheFlagsSay) {
    Font font(Arial(-12));
    const int width = font.Measure(u"Today");
    const Rect area{20, 10, 220, 40};
    EXPECT_EQ(PlaceText(font, u"Today", area, DT_SINGLELINE)[0].Left, 20);
    EXPECT_EQ(PlaceText(font, u"Today", area, DT_SINGLELINE | DT_RIGHT)[0].Left, 220 - width);
    EXPECT_EQ(PlaceText(font, u"Today", area, DT_SINGLELINE | DT_CENTER)[0].Left, 20 + (200 - width) / 2);
    EXPECT_EQ(PlaceText(font, u"Today", area, DT_SINGLELINE)[0].Baseline, 10 + font.Ascent());
    EXPECT_EQ(PlaceText(font, u"Today", area, DT_SINGLELINE | DT_BOTTOM)[0].Baseline,
              40 - font.LineHeight() + font.Ascent());
    EXPECT_EQ(PlaceText(font, u"Today", area, DT_SINGLELINE | DT_VCENTER)[0].Baseline,
              10 + (30 - font.LineHeight()) / 2 + font.Ascent());
}

// Half a minute is far more than it takes, and far less than placing all the rest anew for each line took.
TEST_F(TextTest, AVeryLongTextIsPlacedInItsTime) {
    Font font(Arial(-12));
    std::u16string text;
    for (int word = 0; word < 30000; ++word) {
        text += u"calendar ";
    }
    const auto begin = std::chrono::steady_clock::now();
    const std::vector<shell::PlacedLine> lines = PlaceText(font, text, {0, 0, 200, 50}, DT_WORDBREAK | DT_NOPREFIX);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
    std::size_t count = 0;
    for (const shell::PlacedLine& line : lines) {
        EXPECT_LE(font.Measure(line.Text), 210);
        count += static_cast<std::size_t>(std::count(line.Text.begin(), line.Text.end(), u'c'));
    }
    EXPECT_EQ(count, 30000u); // one in each word: nothing is lost
}

TEST_F(TextTest, ASingleLineKeepsLineFeedsOnItsLine) {
    Font font(Arial(-12));
    EXPECT_EQ(PlaceText(font, u"one\ntwo", {0, 0, 200, 50}, DT_SINGLELINE).size(), 1u);
    EXPECT_EQ(PlaceText(font, u"one\r\ntwo\nthree", {0, 0, 200, 50}, 0).size(), 3u);
    EXPECT_EQ(PlaceText(font, u"one\r\ntwo", {0, 0, 200, 50}, 0)[0].Text, u"one");
}

TEST_F(TextTest, WordsBreakAtBlanksAndLongWordsAnywhere) {
    Font font(Arial(-12));
    const auto lines =
        PlaceText(font, u"several short words here", {0, 0, font.Measure(u"several short"), 90}, DT_WORDBREAK);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].Text, u"several short");
    EXPECT_EQ(lines[1].Text, u"words here");
    EXPECT_EQ(lines[1].Baseline, lines[0].Baseline + font.LineHeight());
    const auto broken = PlaceText(font, u"WWWWWWWW", {0, 0, font.Measure(u"WWW"), 90}, DT_WORDBREAK);
    ASSERT_EQ(broken.size(), 3u);
    EXPECT_EQ(broken[2].Text, u"WW");
}

TEST_F(TextTest, AnAmpersandMarksTheNextCharacterUnlessPrefixesAreOff) {
    Font font(Arial(-12));
    const auto marked = PlaceText(font, u"A&bc && d", {0, 0, 200, 20}, DT_SINGLELINE);
    EXPECT_EQ(marked[0].Text, u"Abc & d");
    EXPECT_EQ(marked[0].Underlined, 1);
    const auto plain = PlaceText(font, u"A&b", {0, 0, 200, 20}, DT_SINGLELINE | DT_NOPREFIX);
    EXPECT_EQ(plain[0].Text, u"A&b");
    EXPECT_EQ(plain[0].Underlined, -1);
}

TEST_F(TextTest, TextIsCutAtItsRectangle) {
    const FontHandle font = OwnFonts.Make(Arial(-30));
    for (const double scale : {1.0, 1.5, 3.0}) {
        const QRect ink = Draw(u"MMMMMMMM", font, {10, 10, 60, 25}, DT_SINGLELINE, scale);
        EXPECT_GE(ink.left(), 10 * scale);
        EXPECT_LT(ink.right(), 60 * scale);
        EXPECT_LT(ink.bottom(), 25 * scale);
    }
}

TEST_F(TextTest, PrefixesEndWhereTheToolkitEndsThemInEveryScript) {
    QFont toolkit(QFont::substitutes(QStringLiteral("Arial")).value(0, QStringLiteral("Arial")));
    toolkit.setPixelSize(13);
    toolkit.setHintingPreference(QFont::PreferNoHinting);
    toolkit.setKerning(false);
    const QFontMetricsF metrics(toolkit);
    Font font(Arial(-13));
    for (const std::u16string_view text :
         {u"30 \u20AC with grandmother", u"\u1EA4n \u1ED9 \u0218 e\u0301 o\u0302\u0323",
          u"\u0423\u0436\u0438\u043D 7 \u20AC", u"\u4F1A\u8B70\u306F3\u6642\u304B\u3089\u3002",
          u"\u05D0\u05E8\u05D5\u05D7\u05EA 7:30 a\u05E2\u05DD", u"\u0E2D\u0E32\u0E2B\u0E32\u0E23\u0E01\u0E31\u0E1A",
          u"\U0001F469\u200D\U0001F467\U0001F44B\U0001F3FD\U0001F1E9\U0001F1EA!", u"wide\u3000blanks\u2003\u00A0\u20AC",
          u"office fi \u20AC"}) {
        const std::vector<double>& ends = font.Ends(text);
        const QString whole = QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, whole);
        for (qsizetype end = finder.toNextBoundary(); end > 0; end = finder.toNextBoundary()) {
            EXPECT_NEAR(ends[static_cast<std::size_t>(end) - 1], metrics.horizontalAdvance(whole.left(end)), 0.1)
                << whole.toStdString() << ", " << end;
        }
    }
}

TEST_F(TextTest, WhatIsDrawnIsAsWideAsMeasuredInEveryScript) {
    for (const std::u16string_view text :
         {u"Dinner for 30 \u20AC |", u"\u0423\u0436\u0438\u043D e\u0301 |", u"\u4F1A\u8B70\u306F |",
          u"a \u05D0\u05E8\u05D5\u05D7\u05EA |", u"a \u0639\u0634\u0627\u0621 |", u"\u0E2D\u0E32\u0E2B\u0E32\u0E23 |",
          u"Call\tMum\nsoon |", u"one\u2028two |"}) {
        const FontHandle font = OwnFonts.Make(Arial(-13));
        const double measured = OwnFonts.Find(font)->Ends(text).back();
        for (const double scale : {1.0, 2.0}) {
            const QRect ink = Draw(text, font, {0, 0, 240, 30}, DT_SINGLELINE, scale);
            EXPECT_NEAR((ink.right() + 1) / scale, measured, 2.5) << QString::fromUtf16(text.data()).toStdString();
        }
    }
}

// Whether this machine has a font for it or not.
TEST_F(TextTest, NoScriptTakesTheRestOfItsTextAway) {
    const FontHandle font = OwnFonts.Make(Arial(-13));
    for (const std::u16string_view script : {u"\u091C\u0928\u094D\u092E\u0926\u093F\u0928", u"\u0B95\u0BBE\u0BB2\u0BC8",
                                             u"\u1780\u17B6\u179A", u"\u0995\u09BE\u09B2", u"\U00011013\U0001102D"}) {
        const std::u16string text = std::u16string(u"(15:30) ").append(script).append(u" |");
        const double measured = OwnFonts.Find(font)->Shape(text).Width();
        EXPECT_EQ(OwnFonts.Find(font)->Shape(text).Ends.size(), text.size());
        for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
            const QRect ink = Draw(text, font, {0, 0, 240, 30}, DT_SINGLELINE, scale);
            EXPECT_NEAR((ink.right() + 1) / scale, measured, 2.5) << scale;
            EXPECT_LT(ink.left() / scale, 3);
        }
    }
}

TEST_F(TextTest, ArabicWordsAreMeasuredWithTheirLettersJoined) {
    Font font(Arial(-13));
    const std::u16string_view word = u"\u0639\u0639\u0639";
    QFont toolkit(QFont::substitutes(QStringLiteral("Arial")).value(0, QStringLiteral("Arial")));
    toolkit.setPixelSize(13);
    toolkit.setHintingPreference(QFont::PreferNoHinting);
    const double joined = QFontMetricsF(toolkit).horizontalAdvance(QString::fromUtf16(word.data()));
    EXPECT_NEAR(font.Ends(word).back(), joined, 0.1);
    EXPECT_NEAR(font.Ends(u"7 \u0639\u0639\u0639 b").back(), joined + font.Ends(u"7  b").back(), 0.1);
}

TEST_F(TextTest, AByteOrderMarkIsAUnitLikeAnyOther) {
    Font font(Arial(-13));
    EXPECT_EQ(font.Ends(u"\uFEFFab\u20AC\u4F1A").size(), 5u);
    EXPECT_NEAR(font.Ends(u"\uFEFFab").back(), font.Ends(u"ab").back(), 0.1);
}

TEST_F(TextTest, LinesBreakBetweenWhatPeopleSeeAsCharacters) {
    Font font(Arial(-12));
    const std::u16string family = u"\U0001F469\u200D\U0001F467";
    const std::u16string text = family + family + u"e\u0301e\u0301e\u0301" + family;
    for (int width = 1; width < 120; ++width) {
        for (const shell::PlacedLine& line : PlaceText(font, text, {0, 0, width, 900}, DT_WORDBREAK)) {
            ASSERT_FALSE(line.Text.empty()) << width;
            EXPECT_FALSE(QChar::isLowSurrogate(line.Text.front()) || line.Text.front() == 0x200D ||
                         line.Text.front() == 0x0301)
                << width;
            EXPECT_FALSE(QChar::isHighSurrogate(line.Text.back()) || line.Text.back() == 0x200D) << width;
        }
    }
}

} // namespace tavo::qt
