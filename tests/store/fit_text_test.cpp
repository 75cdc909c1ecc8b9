// Shortening a text; each character is 10 pixels wide.
#include "store/fit_text.h"

#include "tests/support/ruled_drawing.h"

#include <gtest/gtest.h>

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

TEST(FitText, MeasuresOnce) {
    test::RuledDrawing drawing(10);
    EXPECT_EQ(FitText(drawing, FontHandle::None, u"A subject of quite some length", 130), u"A subject of ...");
    EXPECT_EQ(drawing.Measurements, 1);
}

} // namespace

} // namespace tavo
