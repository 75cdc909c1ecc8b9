// Texts of a calendar file and their escapes.
#include "host/exchange/calendar_text.h"

#include <gmock/gmock.h>

namespace tavo::exchange {

using ::testing::ElementsAre;

TEST(CalendarText, EscapesStandForLineEndsAndForTheSignsThatPart) {
    EXPECT_EQ(RemoveEscapes("one\\ntwo\\Nthree"), "one\ntwo\nthree");
    EXPECT_EQ(RemoveEscapes("a\\, b\\; c\\\\ d\\\" e"), "a, b; c\\ d\" e");
    EXPECT_EQ(RemoveEscapes("\\\\n"), "\\n"); // a sign, and then a letter
    EXPECT_EQ(RemoveEscapes(""), "");
}

TEST(CalendarText, WhatIsNoEscapeStandsForItself) {
    EXPECT_EQ(RemoveEscapes("C:\\temp\\"), "C:\\temp\\");
    EXPECT_EQ(RemoveEscapes("50 % ^n &amp;"), "50 % ^n &amp;");
}

TEST(CalendarText, AListIsPartedAtCommasThatAreNotEscaped) {
    EXPECT_THAT(SplitTexts("Work,Home\\, sweet home,,Garden"), ElementsAre("Work", "Home\\, sweet home", "", "Garden"));
    EXPECT_THAT(SplitTexts("one\\\\,two"), ElementsAre("one\\\\", "two"));
    EXPECT_THAT(SplitTexts(""), ElementsAre(""));
}

} // namespace tavo::exchange
