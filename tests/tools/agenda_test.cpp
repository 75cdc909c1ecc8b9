// What `tavo agenda` lists, and how.
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <ctime>

namespace tavo::tools {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

std::string MakeEvent(const std::string& uid, const std::string& lines) {
    return "BEGIN:VEVENT\nUID:" + uid + "\n" + lines + "END:VEVENT\n";
}

// A device with these events imported.
class Agenda : public testing::Test {
  protected:
    void Import(const std::string& events) {
        const CommandResult result = Device.Run({"import", Device.WriteCalendar("events.ics", events)});
        ASSERT_EQ(result.Status, 0) << result.Errors;
    }

    std::string List(const std::string& from, const std::string& to) {
        const CommandResult result = Device.Run({"agenda", "--from", from, "--to", to, "--tsv"});
        EXPECT_EQ(result.Status, 0) << result.Errors;
        EXPECT_THAT(result.Errors, IsEmpty());
        return result.Output;
    }

    std::string Read(const std::string& from, const std::string& to) {
        return Device.Run({"agenda", "--from", from, "--to", to}).Output;
    }

    CommandDevice Device;
};

TEST_F(Agenda, ALineHoldsStartEndKindNumberAndSubjectBetweenTabs) {
    Import(MakeEvent("a", "DTSTART:20260314T093000\nDTEND:20260314T104500\nSUMMARY:Dentist\n"));
    EXPECT_EQ(List("2026-03-14", "2026-03-14"), "2026-03-14T09:30\t2026-03-14T10:45\tAppointment\t1\tDentist\n");
}

TEST_F(Agenda, LinesComeInOrderOfStartThenNumber) {
    Import(MakeEvent("a", "DTSTART:20260315T080000\nSUMMARY:One\n") +
           MakeEvent("b", "DTSTART:20260314T090000\nSUMMARY:Two\n") +
           MakeEvent("c", "DTSTART:20260314T080000\nSUMMARY:Three\n") +
           MakeEvent("d", "DTSTART:20260314T080000\nSUMMARY:Four\n"));
    EXPECT_EQ(List("2026-03-14", "2026-03-15"), "2026-03-14T08:00\t2026-03-14T08:00\tAppointment\t3\tThree\n"
                                                "2026-03-14T08:00\t2026-03-14T08:00\tAppointment\t4\tFour\n"
                                                "2026-03-14T09:00\t2026-03-14T09:00\tAppointment\t2\tTwo\n"
                                                "2026-03-15T08:00\t2026-03-15T08:00\tAppointment\t1\tOne\n");
}

TEST_F(Agenda, BothDaysAreIncludedAndNoOthers) {
    Import(MakeEvent("a", "DTSTART:20260313T235900\nSUMMARY:Before\n") +
           MakeEvent("b", "DTSTART:20260314T000000\nSUMMARY:First minute\n") +
           MakeEvent("c", "DTSTART:20260315T235900\nSUMMARY:Last minute\n") +
           MakeEvent("d", "DTSTART:20260316T000000\nSUMMARY:After\n"));
    EXPECT_EQ(List("2026-03-14", "2026-03-15"), "2026-03-14T00:00\t2026-03-14T00:00\tAppointment\t2\tFirst minute\n"
                                                "2026-03-15T23:59\t2026-03-15T23:59\tAppointment\t3\tLast minute\n");
}

TEST_F(Agenda, WhatReachesIntoTheDaysIsListed) {
    Import(MakeEvent("a", "DTSTART:20260310T200000\nDTEND:20260314T080000\nSUMMARY:Journey\n"));
    EXPECT_EQ(List("2026-03-14", "2026-03-14"), "2026-03-10T20:00\t2026-03-14T08:00\tAppointment\t1\tJourney\n");
    EXPECT_EQ(List("2026-03-15", "2026-03-15"), "");
}

TEST_F(Agenda, AnAllDayItemIsNotListedOnTheMidnightItEndsAt) {
    Import(MakeEvent("a", "DTSTART;VALUE=DATE:20260503\nDTEND;VALUE=DATE:20260505\nSUMMARY:Fair\n") +
           MakeEvent("b", "DTSTART;VALUE=DATE:20260505\nSUMMARY:Day after\n"));
    EXPECT_EQ(List("2026-05-04", "2026-05-04"), "2026-05-03T00:00\t2026-05-05T00:00\tAppointment\t1\tFair\n");
    EXPECT_EQ(List("2026-05-05", "2026-05-05"), "2026-05-05T00:00\t2026-05-05T00:00\tAppointment\t2\tDay after\n");
}

TEST_F(Agenda, ASeriesGivesOneLineForEachOccurrence) {
    Import(MakeEvent("a",
                     "DTSTART:20260302T090000\nDTEND:20260302T100000\nRRULE:FREQ=WEEKLY;BYDAY=MO,TH\nSUMMARY:Choir\n"));
    EXPECT_EQ(List("2026-03-05", "2026-03-12"), "2026-03-05T09:00\t2026-03-05T10:00\tAppointment\t1\tChoir\n"
                                                "2026-03-09T09:00\t2026-03-09T10:00\tAppointment\t1\tChoir\n"
                                                "2026-03-12T09:00\t2026-03-12T10:00\tAppointment\t1\tChoir\n");
}

TEST_F(Agenda, TimesOfZonesAreShownOnTheDevicesClock) {
    Import(MakeEvent("a", "DTSTART:20260714T070000Z\nSUMMARY:Summer\n") +
           MakeEvent("b", "DTSTART:20260114T070000Z\nSUMMARY:Winter\n"));
    EXPECT_EQ(List("2026-07-14", "2026-07-14"), "2026-07-14T09:00\t2026-07-14T09:00\tAppointment\t1\tSummer\n");
    EXPECT_EQ(List("2026-01-14", "2026-01-14"), "2026-01-14T08:00\t2026-01-14T08:00\tAppointment\t2\tWinter\n");
}

TEST_F(Agenda, ALineStaysALineWhateverTheSubjectHolds) {
    Import(MakeEvent("a", "DTSTART:20260314T090000\nSUMMARY:Tab\there\\nbreak\x1b[31m \xC2\x9Bred\n"));
    EXPECT_EQ(List("2026-03-14", "2026-03-14"),
              "2026-03-14T09:00\t2026-03-14T09:00\tAppointment\t1\tTab␉here␊break␛[31m �red\n");
}

TEST_F(Agenda, SubjectsComeOutAsUtf8) {
    Import(MakeEvent("a", "DTSTART:20260314T090000\nSUMMARY:Grüße 😀\n"));
    EXPECT_THAT(List("2026-03-14", "2026-03-14"), HasSubstr("\tGrüße 😀\n"));
}

TEST_F(Agenda, NothingGivesNoTabbedLineAndASentenceForPeople) {
    EXPECT_EQ(List("2026-03-14", "2026-03-14"), "");
    Import(MakeEvent("a", "DTSTART:20260310T090000\n"));
    EXPECT_EQ(Read("2026-03-14", "2026-03-14"), "Nothing on Saturday, 14 March 2026.\n");
    EXPECT_EQ(Read("2026-03-14", "2026-03-15"), "Nothing from Saturday, 14 March 2026 to Sunday, 15 March 2026.\n");
}

TEST_F(Agenda, LookingMakesNoStore) {
    EXPECT_EQ(List("2026-03-14", "2026-03-14"), "");
    EXPECT_FALSE(std::filesystem::exists(Device.StorePath()));
}

TEST_F(Agenda, WithoutDaysItIsTodays) {
    const std::time_t now = std::time(nullptr);
    std::array<char, 16> today{};
    // In the middle of this UTC day it is the same day in UTC, where this device is.
    Device.Environment["TZ"] = "UTC";
    std::strftime(today.data(), today.size(), "%Y%m%d", std::gmtime(&now));
    Import(MakeEvent("a", std::string("DTSTART:") + today.data() + "T120000\nSUMMARY:Now\n") +
           MakeEvent("b", "DTSTART:20200101T120000\nSUMMARY:Long ago\n"));
    const CommandResult result = Device.Run({"agenda", "--tsv"});
    EXPECT_THAT(result.Output, HasSubstr("\tNow\n"));
    EXPECT_THAT(result.Output, testing::Not(HasSubstr("Long ago")));
}

TEST_F(Agenda, OneDayGivenAloneReachesToToday) {
    Device.Environment["TZ"] = "UTC";
    Import(MakeEvent("a", "DTSTART:20200101T120000\nSUMMARY:Long ago\n") +
           MakeEvent("b", "DTSTART:28000101T120000\nSUMMARY:Far ahead\n"));
    EXPECT_EQ(Device.Run({"agenda", "--from", "2019-12-31", "--tsv"}).Output,
              "2020-01-01T12:00\t2020-01-01T12:00\tAppointment\t1\tLong ago\n");
    EXPECT_EQ(Device.Run({"agenda", "--to=2800-01-02", "--tsv"}).Output,
              "2800-01-01T12:00\t2800-01-01T12:00\tAppointment\t2\tFar ahead\n");
    EXPECT_EQ(Device.Run({"agenda", "--from", "2800-01-01", "--tsv"}).Output,
              "2800-01-01T12:00\t2800-01-01T12:00\tAppointment\t2\tFar ahead\n");
}

TEST_F(Agenda, PeopleReadItByDays) {
    Import(MakeEvent("a", "DTSTART:20260312T200000\nDTEND:20260315T080000\nSUMMARY:Journey\n") +
           MakeEvent("b", "DTSTART;VALUE=DATE:20260314\nSUMMARY:Fair\n") +
           MakeEvent("c", "DTSTART:20260314T093000\nDTEND:20260314T104500\nSUMMARY:Dentist\n") +
           MakeEvent("d", "DTSTART:20260315T120000\n") +
           MakeEvent("e", "DTSTART;VALUE=DATE:20260315\nDTEND;VALUE=DATE:20260318\nSUMMARY:Course\n") +
           MakeEvent("f", "DTSTART:20260315T220000\nDTEND:20260316T020000\nSUMMARY:Dance\n"));
    EXPECT_EQ(Read("2026-03-14", "2026-03-15"), "Saturday, 14 March 2026\n"
                                                "  to 15 Mar        Journey\n"
                                                "  all day          Fair\n"
                                                "  09:30 - 10:45    Dentist\n"
                                                "\n"
                                                "Sunday, 15 March 2026\n"
                                                "  to 08:00         Journey\n"
                                                "  all day to 17 Mar Course\n"
                                                "  12:00            (no subject)\n"
                                                "  22:00 - 16 Mar   Dance\n");
}

} // namespace
} // namespace tavo::tools
