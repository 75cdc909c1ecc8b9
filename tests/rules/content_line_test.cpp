// Splitting the lines of iCalendar text.
#include "host/rules/content_line.h"

#include <gmock/gmock.h>

namespace tavo::rules {

using ::testing::ElementsAre;

namespace {

// "NAME|PARAMETER=VALUE+VALUE|value", or "none".
std::string Split(std::string_view text) {
    const std::optional<ContentLine> line = ReadContentLine(text);
    if (!line) {
        return "none";
    }
    std::string split = line->Name + '|';
    for (const ContentParameter& parameter : line->Parameters) {
        split += parameter.Name + '=';
        for (const std::string& value : parameter.Values) {
            split += (&value == &parameter.Values.front() ? "" : "+") + value;
        }
        split += '|';
    }
    return split + std::string(line->Value);
}

std::vector<std::string> Unfold(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        lines.push_back(TakeUnfoldedLine(text));
    }
    return lines;
}

} // namespace

TEST(ContentLine, HasANameParametersAndAValue) {
    EXPECT_EQ(Split("SUMMARY:Tea: at five; or six, \"perhaps\""), "SUMMARY|Tea: at five; or six, \"perhaps\"");
    EXPECT_EQ(Split("dtstart;tzid=Europe/Berlin;Value=DATE-TIME:20260503T090000"),
              "DTSTART|TZID=Europe/Berlin|VALUE=DATE-TIME|20260503T090000");
    EXPECT_EQ(Split("X-MY_NAME-2:"), "X-MY_NAME-2|");
    EXPECT_EQ(Split("A;B=:c"), "A|B=|c");
}

TEST(ContentLine, QuotesHoldWhatWouldPart) {
    EXPECT_EQ(Split("DTSTART;TZID=\"(UTC+01:00) Amsterdam, Berlin; Bern\":20260503T090000"),
              "DTSTART|TZID=(UTC+01:00) Amsterdam, Berlin; Bern|20260503T090000");
    EXPECT_EQ(Split("ATTENDEE;MEMBER=\"mailto:a\",\"mailto:b\",c;ROLE=X:mailto:d"),
              "ATTENDEE|MEMBER=mailto:a+mailto:b+c|ROLE=X|mailto:d");
}

TEST(ContentLine, CircumflexesStandForWhatAParameterCannotHold) {
    EXPECT_EQ(Split("A;B=one^ntwo ^'three^' ^^ ^x ^:v"), "A|B=one\ntwo \"three\" ^ ^x ^|v");
    EXPECT_EQ(Split("A;B=\"^'x:y^'\":^n"), "A|B=\"x:y\"|^n"); // of a value it means itself
}

TEST(ContentLine, WhatHasNotThisFormIsNone) {
    for (const std::string_view text : {"", ":value", "NAME", "NAME;A=B", "NAME;A:value", "NAME;=B:value",
                                        " NAME:value", "NAME VALUE:x", "NAME;A=\"open:value", "NAME;;A=B:value"}) {
        EXPECT_EQ(Split(text), "none") << text;
    }
}

TEST(ContentLine, OfAParameterTheFirstValueIsFound) {
    const std::optional<ContentLine> line = ReadContentLine("A;B=1,2;C=3;B=4:v");
    ASSERT_TRUE(line);
    ASSERT_NE(line->FindParameter("B"), nullptr);
    EXPECT_EQ(*line->FindParameter("B"), "1");
    EXPECT_EQ(*line->FindParameter("C"), "3");
    EXPECT_EQ(line->FindParameter("D"), nullptr);
}

TEST(ContentLine, FoldedLinesAreJoined) {
    EXPECT_THAT(Unfold("A:one\r\n two\r\n\tthree\r\nB:four\nC:five\n six"),
                ElementsAre("A:onetwothree", "B:four", "C:fivesix"));
    EXPECT_THAT(Unfold("A:one\n\nB:two\n"), ElementsAre("A:one", "", "B:two"));
    EXPECT_THAT(Unfold("A:one\r"), ElementsAre("A:one"));
}

} // namespace tavo::rules
