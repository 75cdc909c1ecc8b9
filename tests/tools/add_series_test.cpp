// How `tavo add` repeats, reminds and gives kinds.
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::tools {
namespace {

using testing::HasSubstr;
using testing::Not;

class AddSeries : public testing::Test {
  protected:
    // What is said of it, behind its number and subject; of a refusal, its sentence.
    std::string Make(std::vector<std::string> words) {
        words.insert(words.begin(), {"add", "Swim"});
        const CommandResult result = Device.Run(words);
        const std::size_t start = result.Output.find("Swim, ");
        return start == std::string::npos ? result.Errors : result.Output.substr(start + 6);
    }

    std::string Export() { return Device.Run({"export"}).Output; }

    CommandDevice Device;
};

TEST_F(AddSeries, WordsRepeat) {
    EXPECT_EQ(Make({"--start", "2026-12-01 9:30", "--repeat", "weekly on mon,wed until 1 feb 2027"}),
              "Wed 2 December 2026 09:30 - 10:30, weekly on Mon, Wed until Mon 1 February 2027\n");
    EXPECT_EQ(Device.Run({"agenda", "--from", "2027-02-01", "--to", "2027-02-10", "--tsv"}).Output,
              "2027-02-01T09:30\t2027-02-01T10:30\tAppointment\t1\tSwim\n");
}

TEST_F(AddSeries, TheLastDayOfEachMonthStaysTheLast) {
    EXPECT_EQ(Make({"--start", "2027-01-31", "--repeat", "monthly 3 times"}),
              "Sun 31 January 2027, all day, monthly on day 31, 3 times\n");
    EXPECT_EQ(Device.Run({"agenda", "--from", "2027-01-01", "--to", "2027-12-31", "--tsv"}).Output,
              "2027-01-31T00:00\t2027-01-31T00:00\tAppointment\t1\tSwim\n"
              "2027-02-28T00:00\t2027-02-28T00:00\tAppointment\t1\tSwim\n"
              "2027-03-31T00:00\t2027-03-31T00:00\tAppointment\t1\tSwim\n");
}

TEST_F(AddSeries, EachKindOfPatternIsToldInWords) {
    const std::string start = "2026-12-02";
    EXPECT_THAT(Make({"--start", start, "--repeat", "daily"}), HasSubstr(", daily\n"));
    EXPECT_THAT(Make({"--start", start, "--repeat", "every 3 days"}), HasSubstr(", every 3 days\n"));
    EXPECT_THAT(Make({"--start", start, "--repeat", "weekdays"}), HasSubstr(", on weekdays\n"));
    EXPECT_THAT(Make({"--start", start, "--repeat", "every 2 weeks"}), HasSubstr(", every 2 weeks on Wed\n"));
    EXPECT_THAT(Make({"--start", start, "--repeat", "FREQ=MONTHLY;BYDAY=1WE"}),
                HasSubstr(", monthly on the first Wed\n"));
    EXPECT_THAT(Make({"--start", "2026-12-30", "--repeat", "FREQ=YEARLY;BYMONTH=12;BYDAY=-1WE"}),
                HasSubstr(", yearly on the last Wed of December\n"));
    EXPECT_THAT(Make({"--start", start, "--repeat", "yearly"}), HasSubstr(", yearly on 2 December\n"));
    EXPECT_THAT(Make({"--start", start + " 9:00", "--repeat", "FREQ=HOURLY;INTERVAL=5"}),
                HasSubstr(", by the rule RRULE:FREQ=HOURLY;INTERVAL=5\n"));
}

TEST_F(AddSeries, WhatTheStoreCannotKeepAddsNothing) {
    EXPECT_EQ(Make({"--start", "2026-12-02", "--repeat", "daily until 1 dec 2026"}),
              "tavo: Nothing was added: it ends before it begins.\n");
    EXPECT_THAT(Make({"--start", "2026-12-02", "--repeat", "FREQ=SECONDLY"}),
                HasSubstr("it recurs more often than once an hour"));
    EXPECT_THAT(Export(), Not(HasSubstr("VEVENT")));
}

TEST_F(AddSeries, RemindersHaveALeadAndASound) {
    EXPECT_EQ(Make({"--start", "2026-12-02 9:00", "--remind", "15"}),
              "Wed 2 December 2026 09:00 - 10:00, reminder 15 minutes before\n");
    EXPECT_EQ(Make({"--start", "2026-12-02 9:00", "--remind", "1d", "--sound", "Chime"}),
              "Wed 2 December 2026 09:00 - 10:00, reminder 1 day before, with Chime.wav\n");
    EXPECT_EQ(Make({"--start", "2026-12-02 9:00", "--remind", "0", "--sound", "chime.WAV"}),
              "Wed 2 December 2026 09:00 - 10:00, reminder at its start, with chime.WAV\n");
    EXPECT_THAT(Make({"--start", "2026-12-02 9:00", "--sound", "Chime"}), HasSubstr("say --remind too"));
    EXPECT_THAT(Make({"--start", "2026-12-02 9:00", "--remind", "5", "--sound", "../x"}), HasSubstr("is no sound"));
}

TEST_F(AddSeries, EachKindIsWhatItAlwaysIs) {
    EXPECT_EQ(Make({"--start", "2026-12-02 7:00", "--kind", "alarm", "--sound", "Bell"}),
              "Wed 2 December 2026 07:00, with Bell.wav  [Alarm]\n");
    EXPECT_EQ(Make({"--start", "2026-12-25", "--kind", "holiday", "--repeat", "yearly"}),
              "Fri 25 December 2026, all day, yearly on 25 December  [Holiday]\n");
    EXPECT_EQ(Make({"--start", "2026-12-06", "--kind", "anniversary"}),
              "Sun 6 December 2026, all day  [Anniversary]\n");
    EXPECT_EQ(Device.Run({"agenda", "--from", "2026-12-01", "--to", "2026-12-31", "--tsv"}).Output,
              "2026-12-02T07:00\t2026-12-02T07:00\tAlarm\t1\tSwim\n"
              "2026-12-06T00:00\t2026-12-06T00:00\tAnniversary\t3\tSwim\n"
              "2026-12-25T00:00\t2026-12-25T00:00\tHoliday\t2\tSwim\n");
    EXPECT_THAT(Device.Run({"reminders", "list", "--days", "3660"}).Output, HasSubstr("Swim"));
}

TEST_F(AddSeries, WhatAKindNeverIsIsRefused) {
    EXPECT_THAT(Make({"--start", "2026-12-02", "--kind", "alarm"}), HasSubstr("An alarm has a time"));
    EXPECT_THAT(Make({"--start", "2026-12-02 7:00", "--for", "1h", "--kind", "alarm"}), HasSubstr("no length"));
    EXPECT_THAT(Make({"--start", "2026-12-02 7:00", "--remind", "5", "--kind", "alarm"}), HasSubstr("at its own time"));
    EXPECT_THAT(Make({"--start", "2026-12-02 7:00", "--kind", "holiday"}), HasSubstr("last all day"));
    EXPECT_THAT(Make({"--start", "2026-12-02", "--for", "2d", "--kind", "anniversary"}), HasSubstr("are one day"));
    EXPECT_THAT(Make({"--start", "2026-12-02", "--kind", "feast"}), HasSubstr("feast"));
    EXPECT_FALSE(std::filesystem::exists(Device.Home()));
}

TEST_F(AddSeries, AllOfItIsOneStepOfUndo) {
    Make({"--start", "2026-12-02 7:00", "--kind", "alarm", "--repeat", "daily"});
    EXPECT_THAT(Device.Run({"undo"}).Output, HasSubstr("\"New appointment\", 1 item."));
    EXPECT_THAT(Device.Run({"check"}).Output, HasSubstr("Alarms: 0"));
    EXPECT_THAT(Export(), Not(HasSubstr("VEVENT")));
}

} // namespace
} // namespace tavo::tools
