// Days, weeks and months as the command line shows them.
#include "tests/tools/command_run.h"
#include "tools/calendar_day.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::tools {
namespace {

using testing::HasSubstr;
using testing::Not;

class Days : public testing::Test {
  protected:
    std::string Run(const std::vector<std::string>& words) {
        const CommandResult result = Device.Run(words);
        Status = result.Status;
        return result.Errors.empty() ? result.Output : result.Errors;
    }

    CommandDevice Device;
    int Status = -1;
};

TEST_F(Days, WhatLastsSeveralDaysStandsOnEachOfThem) {
    Run({"add", "Fair", "--start", "2026-12-04", "--end", "2026-12-06", "--location", "Hall 3"});
    Run({"add", "Trip", "--start", "2026-12-03 22:00", "--end", "2026-12-05 6:00"});
    Run({"add", "Swim", "--start", "2026-12-05 7:00"});
    EXPECT_EQ(Run({"agenda", "--from", "2026-12-03", "--to", "2026-12-08"}), "Thursday, 3 December 2026\n"
                                                                             "  22:00 - 5 Dec    Trip\n"
                                                                             "\n"
                                                                             "Friday, 4 December 2026\n"
                                                                             "  to 5 Dec         Trip\n"
                                                                             "  all day to 6 Dec Fair (Hall 3)\n"
                                                                             "\n"
                                                                             "Saturday, 5 December 2026\n"
                                                                             "  to 06:00         Trip\n"
                                                                             "  all day to 6 Dec Fair (Hall 3)\n"
                                                                             "  07:00 - 08:00    Swim\n"
                                                                             "\n"
                                                                             "Sunday, 6 December 2026\n"
                                                                             "  all day          Fair (Hall 3)\n");
    EXPECT_EQ(Run({"agenda", "--from", "2026-12-06", "--to", "2026-12-06"}),
              "Sunday, 6 December 2026\n  all day          Fair (Hall 3)\n");
    EXPECT_EQ(Run({"agenda", "--from", "2026-12-05", "--to", "2026-12-05", "--tsv"}),
              "2026-12-03T22:00\t2026-12-05T06:00\tAppointment\t2\tTrip\n"
              "2026-12-04T00:00\t2026-12-07T00:00\tAppointment\t1\tFair\n"
              "2026-12-05T07:00\t2026-12-05T08:00\tAppointment\t3\tSwim\n");
}

TEST_F(Days, AMovedDayShowsItsOwnPlace) {
    Run({"import", Device.WriteCalendar("series.ics",
                                        "BEGIN:VEVENT\nUID:s\nDTSTART:20261201T090000\nDURATION:PT1H\nLOCATION:Here\n"
                                        "RRULE:FREQ=DAILY;COUNT=2\nSUMMARY:Stand\nEND:VEVENT\n"
                                        "BEGIN:VEVENT\nUID:s\nRECURRENCE-ID:20261202T090000\nDTSTART:20261202T110000\n"
                                        "DURATION:PT1H\nLOCATION:There\nSUMMARY:Stand\nEND:VEVENT\n")});
    EXPECT_EQ(Run({"agenda", "--from", "2026-12-01", "--to", "2026-12-02"}),
              "Tuesday, 1 December 2026\n  09:00 - 10:00    Stand (Here)\n\n"
              "Wednesday, 2 December 2026\n  11:00 - 12:00    Stand (There)\n");
}

TEST_F(Days, JsonNamesItsFields) {
    Run({"add", "Swim", "--start", "2026-12-05 7:00", "--location", "Pool"});
    EXPECT_EQ(
        Run({"agenda", "--from", "2026-12-05", "--to", "2026-12-05", "--json"}),
        "[\n {\"start\": \"2026-12-05T07:00\", \"end\": \"2026-12-05T08:00\", \"allDay\": false, \"kind\": "
        "\"Appointment\", \"item\": 1, \"recurring\": false, \"subject\": \"Swim\", \"location\": \"Pool\"}\n]\n");
    EXPECT_EQ(Run({"agenda", "--from", "2026-12-06", "--to", "2026-12-06", "--json"}), "[]\n");
    EXPECT_THAT(Run({"agenda", "--json", "--tsv"}), HasSubstr("not both"));
}

TEST_F(Days, AnEmptyCalendarSaysHowToBegin) {
    EXPECT_THAT(Run({"agenda"}), HasSubstr("The calendar is empty. `tavo import` brings calendar files into it"));
    Run({"add", "Swim", "--start", "2026-12-05 7:00"});
    EXPECT_THAT(Run({"agenda", "--from", "2026-12-06", "--to", "2026-12-06"}), Not(HasSubstr("tavo import")));
}

TEST_F(Days, TodayIsWhatTheAgendaListsOfIt) {
    Run({"add", "Swim", "--start", "today 7:00"});
    const std::string today = Run({"today"});
    EXPECT_THAT(today, HasSubstr("  07:00 - 08:00    Swim\n"));
    EXPECT_THAT(Run({"today", "--tsv"}), HasSubstr("\tSwim\n"));
    EXPECT_THAT(Run({"today", "--json"}), HasSubstr("\"subject\": \"Swim\""));
    EXPECT_THAT(Run({"today", "1999-01-01"}), HasSubstr("Today is today"));
}

TEST_F(Days, AWeekGoesFromMondayToSunday) {
    for (const char* day : {"2026-11-29", "2026-11-30", "2026-12-06", "2026-12-07"}) {
        Run({"add", day, "--start", day});
    }
    for (const char* day : {"2026-11-30", "2026-12-02", "2026-12-06"}) {
        EXPECT_EQ(Run({"week", day}), "Monday, 30 November 2026\n  all day          2026-11-30\n\n"
                                      "Sunday, 6 December 2026\n  all day          2026-12-06\n");
    }
    EXPECT_THAT(Run({"week", "30 feb"}), HasSubstr("February has 29 days"));
    EXPECT_THAT(Run({"week", "9:00"}), HasSubstr("a time"));
    EXPECT_EQ(Status, 2);
}

TEST_F(Days, AMonthShowsTheFirstOfTheKindsOfADay) {
    Run({"add", "Xmas", "--start", "2025-12-25", "--kind", "holiday"});
    Run({"add", "Gift", "--start", "2025-12-25 9:00"});
    Run({"add", "Birthday", "--start", "2025-12-06", "--kind", "anniversary"});
    Run({"add", "Wake", "--start", "2025-12-01 6:00", "--kind", "alarm"});
    Run({"add", "Ski", "--start", "2025-12-30", "--end", "2026-01-03"});
    EXPECT_EQ(Run({"month", "2025-12-10"}), "        December 2025\n"
                                            "  Mo  Tu  We  Th  Fr  Sa  Su\n"
                                            "  1!  2   3   4   5   6+  7 \n"
                                            "  8   9  10  11  12  13  14 \n"
                                            " 15  16  17  18  19  20  21 \n"
                                            " 22  23  24  25* 26  27  28 \n"
                                            " 29  30. 31.\n"
                                            "\n"
                                            " * holiday  + anniversary  ! alarm  . appointment\n");
    EXPECT_THAT(Run({"month", "2026-01-20"}), HasSubstr("              1.  2.  3.  4 \n"));
    EXPECT_THAT(Run({"month", "2025-12-01", "--tsv"}), HasSubstr("Xmas"));
}

TEST_F(Days, TodayIsMarkedInItsMonth) {
    EXPECT_THAT(Run({"month"}), HasSubstr("<"));
    EXPECT_THAT(Run({"month", "1999-05-05"}), Not(HasSubstr("<")));
}

TEST_F(Days, DatesArePeoplesInEveryOption) {
    Run({"add", "Swim", "--start", "tomorrow 7:00"});
    EXPECT_THAT(Run({"agenda", "--from", "tomorrow", "--to", "in 2 days"}), HasSubstr("Swim"));
    EXPECT_THAT(Run({"export", "--from", "tomorrow", "--to", "tomorrow"}), HasSubstr("SUMMARY:Swim"));
    EXPECT_THAT(Run({"memo", "list", "--date", "yesterday"}), testing::IsEmpty());
    EXPECT_EQ(Status, 0);
    EXPECT_THAT(Run({"agenda", "--from", "25:00"}), HasSubstr("a day has no hour 25"));
    EXPECT_THAT(Run({"export", "--to", "30 feb"}), HasSubstr("February has 29 days"));
    EXPECT_EQ(Status, 2);
}

TEST(FileAddresses, AreFilesOfThisMachine) {
    const CommandDevice device;
    const std::string path = device.WriteCalendar("my calendar.ics", "BEGIN:VEVENT\nUID:a\nDTSTART:20261205T090000\n"
                                                                     "SUMMARY:One\nEND:VEVENT\n");
    const std::string coded = path.substr(0, path.rfind('/')) + "/my%20calendar.ics";
    EXPECT_THAT(device.Run({"import", "file://" + coded}).Output, HasSubstr("1 new"));
    EXPECT_THAT(device.Run({"import", "FILE://localhost" + coded}).Output, HasSubstr("1 unchanged"));
    const std::string copy = device.Place("copy.ics").string();
    EXPECT_EQ(device.Run({"export", "file://" + copy.substr(0, copy.size() - 1) + "%73"}).Status, 0);
    EXPECT_TRUE(std::filesystem::exists(copy));
    EXPECT_EQ(device.Run({"backup", "file://" + device.Place("all.tavo").string()}).Status, 0);
    EXPECT_TRUE(std::filesystem::exists(device.Place("all.tavo")));
}

TEST(FileAddresses, OfOtherMachinesOrWithoutSenseAreRefused) {
    const CommandDevice device;
    EXPECT_THAT(device.Run({"import", "file://server/a.ics"}).Errors, HasSubstr("of another machine"));
    EXPECT_THAT(device.Run({"import", "file:///a%2.ics"}).Errors, HasSubstr("behind % stand two digits"));
    EXPECT_THAT(device.Run({"backup", "file:///a%00b"}).Errors, HasSubstr("behind % stand two digits"));
    EXPECT_THAT(device.Run({"memo", "export", "--all", "--to", "file://x/y"}).Errors, HasSubstr("another machine"));
    EXPECT_EQ(device.Run({"export", "file:///a%"}).Status, 2);
}

TEST(CommandNames, AMistypedOneIsGuessed) {
    const CommandDevice device;
    EXPECT_EQ(device.Run({"agend"}).Errors,
              "tavo: There is no command agend. Did you mean agenda?\nTry `tavo --help`.\n");
    EXPECT_EQ(device.Run({"xyzzy"}).Errors, "tavo: There is no command xyzzy.\nTry `tavo --help`.\n");
    EXPECT_EQ(device.Run({"help", "imprt"}).Errors,
              "tavo: There is no command imprt. Did you mean import?\nTry `tavo --help`.\n");
}

TEST(CommandNames, HelpExplainsACommand) {
    const CommandDevice device;
    EXPECT_EQ(device.Run({"help", "edit"}).Output, device.Run({"edit", "--help"}).Output);
    EXPECT_EQ(device.Run({"help"}).Output, device.Run({"--help"}).Output);
    EXPECT_EQ(device.Run({"-v"}).Output, device.Run({"--version"}).Output);
}

} // namespace
} // namespace tavo::tools
