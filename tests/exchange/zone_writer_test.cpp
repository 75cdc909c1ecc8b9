// A zone that is written is read with the same offsets.
#include "host/exchange/zone_writer.h"
#include "host/posix/zone_database.h"
#include "host/rules/zones.h"

#include <gmock/gmock.h>

namespace tavo::exchange {
namespace {

using ::testing::HasSubstr;

constexpr rules::Seconds kStep = rules::kSecondsPerDay / 2 - 1234; // falls on every time of the day

class ZoneWriter : public ::testing::TestWithParam<const char*> {};

TEST_P(ZoneWriter, WhatItWritesIsReadAsTheSameClock) {
    posix::ZoneDatabase database;
    const auto zone = LoadZone(database, GetParam());
    ASSERT_TRUE(zone);
    const std::string text = WriteZone(GetParam(), *zone);
    std::string fault;
    const auto back = rules::ParseZoneComponent(text, fault);
    ASSERT_TRUE(back) << fault << "\n" << text;
    // Before the first change that a component can tell of, and beyond the years of our days.
    for (rules::Seconds utc = rules::MakeTime(1900, 1, 1); utc < rules::MakeTime(2300, 1, 1); utc += kStep) {
        ASSERT_EQ(back->ToLocal(utc), zone->ToLocal(utc)) << rules::DayOf(utc) << "\n" << text;
    }
    EXPECT_LT(text.size(), 10'000U); // the far future is a rule, no list of dates
}

INSTANTIATE_TEST_SUITE_P(Zones, ZoneWriter,
                         ::testing::Values("UTC", "Europe/Berlin", "Europe/London", "Europe/Dublin", "America/New_York",
                                           "America/Sao_Paulo", "America/Santiago", "Asia/Kathmandu", "Asia/Tokyo",
                                           "Asia/Jerusalem", "Asia/Tehran", "Asia/Gaza", "Africa/Casablanca",
                                           "Africa/Cairo", "Australia/Lord_Howe", "Australia/Sydney", "Pacific/Apia",
                                           "Pacific/Chatham", "Antarctica/Troll", "America/St_Johns", "Africa/Monrovia",
                                           "Europe/Lisbon"));

TEST(ZoneText, WhatComesEveryYearIsARule) {
    posix::ZoneDatabase database;
    const std::string text = WriteZone("Europe/Berlin", *LoadZone(database, "Europe/Berlin"));
    EXPECT_THAT(text, HasSubstr("RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\r\n"));
    EXPECT_THAT(text, HasSubstr("RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\r\n"));
    EXPECT_THAT(WriteZone("America/New_York", *LoadZone(database, "America/New_York")),
                HasSubstr("RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=2SU\r\n"));
}

TEST(ZoneText, AClockThatNeverChangesIsOneObservance) {
    const rules::ZoneRules zone(-12600, {});
    EXPECT_EQ(WriteZone("Here", zone), "BEGIN:VTIMEZONE\r\nTZID:Here\r\nBEGIN:STANDARD\r\nDTSTART:19700101T000000\r\n"
                                       "TZOFFSETFROM:-0330\r\nTZOFFSETTO:-0330\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n");
}

} // namespace
} // namespace tavo::exchange
