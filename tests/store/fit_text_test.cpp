// Shortening a text; each character is 10 pixels wide.
#include "store/fit_text.h"

#include "host/headless/recorded_drawing.h"
#include "tests/support/ruled_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace tavo {

namespace {

std::u16string Fit(std::u16string_view text, int width) {
    test::RuledDrawing drawing(10);
    return FitText(drawing, FontHandle::None, text, width);
}

TEST(FitText, ATextNoWiderThanTheLimitIsUnchanged) {
    EXPECT_EQ(Fit(u"Dentist", 71), u"Dentist");
    EXPECT_EQ(Fit(u"Dentist", 70), u"Dentist");
    EXPECT_EQ(Fit(u"", 0), u"");
    EXPECT_EQ(Fit(u"", 130), u"");
}

TEST(FitText, ANarrowTextKeepsItsLineBreaks) {
    EXPECT_EQ(Fit(u"Call\nMum", 80), u"Call\nMum");
}

TEST(FitText, DotsFollowTheFirstPrefixThatReachesTheWidth) {
    EXPECT_EQ(Fit(u"Dentist", 40), u"Dent...");
    EXPECT_EQ(Fit(u"Dentist", 41), u"Denti...");
    EXPECT_EQ(Fit(u"Dentist", 49), u"Denti...");
    EXPECT_EQ(Fit(u"Dentist", 50), u"Denti...");
}

TEST(FitText, DotsComeEvenBeforeTheLastCharacter) {
    EXPECT_EQ(Fit(u"Dentist", 60), u"Dentis...");
}

TEST(FitText, ATextThatReachesTheWidthOnlyAsAWholeStaysWhole) {
    EXPECT_EQ(Fit(u"Dentist", 61), u"Dentist");
    EXPECT_EQ(Fit(u"Dentist", 69), u"Dentist");
}

TEST(FitText, ALineBreakBeforeTheLimitCutsWithoutDots) {
    EXPECT_EQ(Fit(u"Call\r\nMum about Sunday", 130), u"Call");
    EXPECT_EQ(Fit(u"Call\nMum about Sunday", 130), u"Call");
    EXPECT_EQ(Fit(u"\nCall Mum about Sunday", 130), u"");
}

TEST(FitText, ALineBreakBeyondTheLimitIsNotReached) {
    EXPECT_EQ(Fit(u"Call Mum\nabout Sunday", 50), u"Call ...");
}

TEST(FitText, ALineBreakRightAfterTheWidthIsReachedComesTooLate) {
    EXPECT_EQ(Fit(u"Call\nMum about Sunday", 40), u"Call...");
}

TEST(FitText, NoWidthAtAllStillShowsTheFirstCharacter) {
    EXPECT_EQ(Fit(u"Dentist", 0), u"D...");
    EXPECT_EQ(Fit(u"Dentist", -5), u"D...");
}

TEST(FitText, OfLettersOfOnePixelOneIsEnoughForNoWidth) {
    test::RuledDrawing drawing(1);
    EXPECT_EQ(FitText(drawing, FontHandle::None, u"Dentist", 0), u"D...");
    EXPECT_EQ(FitText(drawing, FontHandle::None, u"Dentist", 1), u"D...");
    EXPECT_EQ(FitText(drawing, FontHandle::None, u"Dentist", 2), u"De...");
}

TEST(FitText, OfALongTextOnlyWhatCanBeSeenIsMeasured) {
    test::RuledDrawing drawing(10);
    const std::u16string text(1024UL * 1024, u'a');
    EXPECT_EQ(FitText(drawing, FontHandle::None, text, 130), u"aaaaaaaaaaaaa...");
    EXPECT_TRUE(IsWiderThan(drawing, FontHandle::None, text, 130));
    EXPECT_LE(drawing.Measured, 1000u);
}

// The widths of the last 64 units of a piece may change with what follows.
TEST(FitText, ALongTextIsMeasuredInPiecesThatGrowFourfold) {
    const std::pair<int, std::size_t> measured[] = {
        {1919, 256}, {1920, 256 + 1024}, {9599, 256 + 1024}, {9600, 256 + 1024 + 4096}};
    for (const auto& [width, units] : measured) {
        test::RuledDrawing drawing(10);
        EXPECT_TRUE(IsWiderThan(drawing, FontHandle::None, std::u16string(100'000, u'a'), width));
        EXPECT_EQ(drawing.Measured, units) << width;
    }
}

TEST(FitText, AWidthFarIntoALongTextIsFoundAllTheSame) {
    const std::u16string text(5000, u'a');
    EXPECT_EQ(Fit(text, 40'000), std::u16string(4000, u'a') + u"...");
    EXPECT_EQ(Fit(text, 50'000), text);
    test::RuledDrawing drawing(10);
    EXPECT_FALSE(IsWiderThan(drawing, FontHandle::None, text, 50'000));
    EXPECT_TRUE(IsWiderThan(drawing, FontHandle::None, text, 49'999));
}

TEST(FitText, WhatCountsWithItsLastUnitIsNotCutThrough) {
    headless::RecordedDrawing drawing;
    const FontHandle font = drawing.CreateFontIndirectW({u"Arial", -10, 0, 400});
    const std::u16string_view text =
        u"\U0001F469\u200D\U0001F467\U0001F44B\U0001F3FDe\u0301\U0001F1E9\U0001F1EA and so on";
    const std::size_t ends[] = {0, 5, 9, 11, 15}; // of the characters, each 5 pixels wide or more
    for (int width = -3; width < 40; ++width) {
        const std::u16string fitted = FitText(drawing, font, text, width);
        ASSERT_TRUE(fitted.ends_with(u"...")) << width;
        const std::size_t cut = fitted.size() - 3;
        EXPECT_TRUE(cut > 15 || std::find(std::begin(ends) + 1, std::end(ends), cut) != std::end(ends)) << width;
    }
}

TEST(FitText, AHostThatCannotMeasureLeavesTheTextAlone) {
    test::RuledDrawing drawing(0);
    EXPECT_EQ(FitText(drawing, FontHandle::None, std::u16string(1000, u'a'), 5), std::u16string(1000, u'a'));
    EXPECT_FALSE(IsWiderThan(drawing, FontHandle::None, u"", -1));
}

TEST(FitText, MeasuresOnce) {
    test::RuledDrawing drawing(10);
    EXPECT_EQ(FitText(drawing, FontHandle::None, u"A subject of quite some length", 130), u"A subject of ...");
    EXPECT_EQ(drawing.Measurements, 1);
}

} // namespace

} // namespace tavo
