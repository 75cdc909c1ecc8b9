// Dates, durations and offsets as calendar files write them.
#include "host/rules/calendar_value.h"
#include "tests/rules/item_words.h"

#include <gtest/gtest.h>

namespace tavo::rules::test {

namespace {

// The moment, with what kind it is; "none" for text of another form.
std::string Time(std::string_view text) {
    const std::optional<CalendarTime> time = ReadCalendarTime(text);
    if (!time) {
        return "none";
    }
    return (time->IsReal() ? TextOf(time->ToSeconds()) : "unreal") + (time->DateOnly ? " date" : "") +
           (time->Utc ? " UTC" : "");
}

} // namespace

TEST(CalendarValue, ATimeIsADateAMomentOrOneOfUniversalTime) {
    EXPECT_EQ(Time("20260503"), "2026-05-03 00:00 date");
    EXPECT_EQ(Time("20260503T090501"), "2026-05-03 09:05:01");
    EXPECT_EQ(Time("20260503T090501Z"), "2026-05-03 09:05:01 UTC");
    EXPECT_EQ(Time(" 20260503t090501z\t"), "2026-05-03 09:05:01 UTC");
    EXPECT_EQ(Time("20260503T240000"), "2026-05-04 00:00");
}

TEST(CalendarValue, WhatIsNoTimeIsNone) {
    for (const std::string_view text :
         {"", "2026", "2026050", "20260503T", "20260503T0905", "2026-05-03", "20260503 090501", "20260503T0905O1",
          "-0260503", "20260503T090501X", "20260503T090501ZZ"}) {
        EXPECT_EQ(Time(text), "none") << text;
    }
}

TEST(CalendarValue, DigitsMayTellATimeThatThereIsNot) {
    for (const std::string_view text : {"20260231", "20261301", "20260001", "20260500", "00000101", "20250229",
                                        "20260503T250000", "20260503T240001", "20260503T096000", "20260503T090061"}) {
        EXPECT_EQ(Time(text).substr(0, 6), "unreal") << text;
    }
    EXPECT_EQ(TextOf(ReadCalendarTime("20260231")->ToSeconds()), "2026-03-03 00:00");
}

TEST(CalendarValue, ADurationHasDaysAndWhatRunsByTheClock) {
    const auto parts = [](std::string_view text) {
        const std::optional<CalendarDuration> duration = ReadDuration(text);
        return duration ? std::to_string(duration->Days) + " " + std::to_string(duration->Exact) : "none";
    };
    EXPECT_EQ(parts("P2W"), "14 0");
    EXPECT_EQ(parts("P1DT2H3M4S"), "1 7384");
    EXPECT_EQ(parts("-PT15M"), "0 -900");
    EXPECT_EQ(parts("+p1d"), "1 0");
    EXPECT_EQ(parts("-P1DT1H "), "-1 -3600");
    EXPECT_EQ(parts("PT0S"), "0 0");
    EXPECT_EQ(parts("P401768D"), "401768 0");
    for (const std::string_view text : {"", "P", "PT", "15M", "P15M", "PT1D", "P1", "P-1D", "P1.5D", "P1X", "PD",
                                        "P9999999999D", "P401769D", "-PT999999999H"}) {
        EXPECT_EQ(parts(text), "none") << text;
    }
    EXPECT_EQ(ReadDuration("-P1DT1H")->ToSeconds(), -90000);
}

TEST(CalendarValue, AnOffsetHasASignAndFourOrSixDigits) {
    EXPECT_EQ(ReadUtcOffset("+0100"), 3600);
    EXPECT_EQ(ReadUtcOffset("-053015"), -19815);
    EXPECT_EQ(ReadUtcOffset(" -0000 "), 0);
    for (const std::string_view text : {"", "0100", "+01", "+01:00", "+010", "+0100000", "+01a0"}) {
        EXPECT_EQ(ReadUtcOffset(text), std::nullopt) << text;
    }
}

} // namespace tavo::rules::test
