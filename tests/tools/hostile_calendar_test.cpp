// Calendars that someone sends to do harm: told in words, soon, and nothing else suffers.
#include "host/outlook/store.h"
#include "tests/outlook/planted_rule.h"
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>

namespace tavo::tools {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::string kGood = "BEGIN:VEVENT\nUID:good@test\nDTSTART:20260314T090000\nDTEND:20260314T100000\nSUMMARY:Good\n"
                          "END:VEVENT\n";

// Seconds of the processor that all commands took, so that a busy machine does not count.
double TimeUsed() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

std::string Event(const std::string& uid, const std::string& lines) {
    return "BEGIN:VEVENT\nUID:" + uid + "\nDTSTART:20260105T090000\nDURATION:PT1H\nSUMMARY:" + uid + "\n" + lines +
           "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER:-PT15M\nEND:VALARM\nEND:VEVENT\n";
}

std::string Repeat(const std::string& line, int times) {
    std::string lines;
    for (int number = 0; number < times; ++number) {
        lines += line;
    }
    return lines;
}

class HostileCalendar : public testing::Test {
  protected:
    std::string ListMarch() {
        return Device.Run({"agenda", "--from", "2026-03-01", "--to", "2026-03-31", "--tsv"}).Output;
    }

    // Imports the file, which has one good event beside what is refused, and takes all later steps.
    CommandResult Survive(const std::string& file, double seconds) {
        const double before = TimeUsed();
        CommandResult result = Device.Run({"import", file});
        EXPECT_THAT(ListMarch(), HasSubstr("\tGood\n"));
        EXPECT_EQ(Device.Run({"check"}).Status, 0);
        EXPECT_LT(TimeUsed() - before, seconds) << file;
        return result;
    }

    CommandDevice Device;
};

TEST_F(HostileCalendar, RulesThatWouldTakeForEverAreRefusedWithTheirReason) {
    const std::string never = "RRULE:FREQ=HOURLY;BYMONTH=2;BYMONTHDAY=30\n";
    const std::string file = Device.WriteCalendar("a.ics", kGood + Event("never", never) +
                                                               Event("crowd", Repeat("RRULE:FREQ=HOURLY\n", 4900)));
    const CommandResult result = Survive(file, 3);
    EXPECT_EQ(result.Output, "1 new, 0 changed, 0 unchanged, 2 refused.\n");
    EXPECT_THAT(result.Errors, AllOf(HasSubstr("its recurrence never takes place"),
                                     HasSubstr("it recurs more often than 96 times a day")));
}

TEST_F(HostileCalendar, AHundredThousandCancelledDaysAreTakenInTime) {
    std::string lines = "RRULE:FREQ=DAILY\n";
    for (int number = 0; number < 100000; ++number) {
        const int day = number % 28 + 1;
        const int month = number / 28 % 12 + 1;
        std::array<char, 40> text{};
        std::snprintf(text.data(), text.size(), "EXDATE:%04d%02d%02dT090000\n", 2026 + number / 336, month, day);
        lines += text.data();
    }
    const CommandResult result = Survive(Device.WriteCalendar("a.ics", kGood + Event("rare", lines)), 10);
    EXPECT_EQ(result.Output, "2 new, 0 changed, 0 unchanged, 0 refused.\n") << result.Errors;
    EXPECT_THAT(ListMarch(), HasSubstr("2026-03-29T09:00\t2026-03-29T10:00\tAppointment\t2\trare\n"));
    EXPECT_THAT(ListMarch(), Not(HasSubstr("2026-03-28T09:00")));
}

TEST_F(HostileCalendar, AZoneOfSixtyThousandImpossibleLinesIsNamedOnce) {
    const std::string zone =
        "BEGIN:VTIMEZONE\nTZID:Odd\nBEGIN:STANDARD\nDTSTART:19701025T030000\nTZOFFSETFROM:+0200\nTZOFFSETTO:+0100\n" +
        Repeat("RRULE:FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30\n", 60000) + "END:STANDARD\nEND:VTIMEZONE\n";
    std::string events;
    for (int number = 0; number < 100; ++number) {
        events += "BEGIN:VEVENT\nUID:z" + std::to_string(number) + "\nDTSTART;TZID=Odd:20260314T090000\nEND:VEVENT\n";
    }
    const CommandResult result = Survive(Device.WriteCalendar("a.ics", zone + kGood + events), 4);
    EXPECT_EQ(result.Output, "1 new, 0 changed, 0 unchanged, 100 refused.\n");
    EXPECT_THAT(result.Errors,
                HasSubstr("the time zone \"Odd\" changes its clock in more ways than can be worked out"));
}

TEST_F(HostileCalendar, AZoneFurtherThanADayFromUniversalTimeIsRefused) {
    const std::string zone = "BEGIN:VTIMEZONE\nTZID:Far\nBEGIN:STANDARD\nDTSTART:19701025T030000\n"
                             "TZOFFSETFROM:+9900\nTZOFFSETTO:+9900\nEND:STANDARD\nEND:VTIMEZONE\n";
    const CommandResult result =
        Survive(Device.WriteCalendar("a.ics", zone + kGood +
                                                  "BEGIN:VEVENT\nUID:f\nDTSTART;TZID=Far:20260314T090000\n"
                                                  "END:VEVENT\n"),
                2);
    EXPECT_THAT(result.Errors, HasSubstr("the time zone \"Far\" is 24 hours or more away from universal time"));
}

TEST_F(HostileCalendar, AStoreThatHoldsOneAlreadyIsListedWithoutItAndCheckNamesIt) {
    Device.Run({"import", Device.WriteCalendar("a.ics", kGood + Event("heavy", "RRULE:FREQ=YEARLY;INTERVAL=2\n"))});
    {
        outlook::StoreOptions options;
        options.DeviceZone = "Europe/Berlin";
        outlook::StorePtr store;
        ASSERT_EQ(outlook::OpenStore(Device.StorePath(), options, store), Status::Ok);
        std::string lines = "RRULE:FREQ=HOURLY";
        for (int number = 1; number < 4900; ++number) {
            lines += "\nRRULE:FREQ=HOURLY";
        }
        ASSERT_TRUE(outlook::test::PlantRule(store->Core(), 2, lines));
    }
    const double before = TimeUsed();
    EXPECT_THAT(ListMarch(), StartsWith("2026-03-14T09:00\t2026-03-14T10:00\tAppointment\t1\tGood\n"));
    EXPECT_THAT(ListMarch(), Not(HasSubstr("heavy")));
    const CommandResult check = Device.Run({"check"});
    EXPECT_EQ(check.Status, 1);
    EXPECT_THAT(check.Output, AllOf(HasSubstr("  - Item 2 (heavy): it recurs more often than 96 times a day.\n"),
                                    HasSubstr("What to do: "), Not(HasSubstr("damaged"))));
    EXPECT_LT(TimeUsed() - before, 2);
}

TEST_F(HostileCalendar, ARuleThatNamesItsCalendarIsListedByEveryRun) {
    const std::string lines = "RRULE:RSCALE=GREGORIAN;FREQ=DAILY\nRRULE:FREQ=WEEKLY\n";
    Device.Run({"import", Device.WriteCalendar("a.ics", Event("scaled", lines))});
    const std::string listed = ListMarch();
    EXPECT_EQ(std::count(listed.begin(), listed.end(), '\n'), 31);
    for (int run = 0; run < 5; ++run) {
        EXPECT_EQ(ListMarch(), listed);
    }
    EXPECT_EQ(Device.Run({"check"}).Status, 0);
}

// However far the import is, also while another holds the store.
TEST_F(HostileCalendar, APoliteKillEndsAnImportWithinASecondAndSaysTheTruth) {
    std::string many;
    for (int number = 0; number < 100000; ++number) {
        many += "BEGIN:VEVENT\nUID:" + std::to_string(number) + "\nDTSTART:20260314T090000\nSUMMARY:Many\nEND:VEVENT\n";
    }
    const std::string file = Device.WriteCalendar("many.ics", many);
    for (const int milliseconds : {150, 400, 1200, 3000}) {
        const int process = Device.Start({"import", file});
        ASSERT_GT(process, 0);
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        const auto asked = std::chrono::steady_clock::now();
        ASSERT_EQ(kill(process, SIGTERM), 0);
        int status = 0;
        ASSERT_EQ(waitpid(process, &status, 0), process);
        EXPECT_LT(std::chrono::steady_clock::now() - asked, std::chrono::milliseconds(1500)); // a busy machine
        const std::string words = ReadWhole(Device.Place("errors"));
        const std::string listed = ListMarch();
        if (WIFSIGNALED(status)) {
            EXPECT_EQ(WTERMSIG(status), SIGTERM); // before it began to listen
            EXPECT_THAT(listed, IsEmpty());
        } else if (WEXITSTATUS(status) == 130 && words.find("Nothing of the file") != std::string::npos) {
            EXPECT_THAT(listed, IsEmpty());
        } else {
            EXPECT_EQ(std::count(listed.begin(), listed.end(), '\n'), 100000) << words;
            break;
        }
    }
}

TEST_F(HostileCalendar, APoliteKillEndsTheWaitForALockedStore) {
    Device.Run({"import", Device.WriteCalendar("a.ics", kGood)});
    outlook::Database other;
    ASSERT_EQ(other.Open("file:" + Device.StorePath().string(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI, 1000),
              Status::Ok);
    ASSERT_EQ(other.Run("BEGIN IMMEDIATE"), Status::Ok);
    const int process = Device.Start({"import", Device.WriteCalendar("b.ics", Event("late", ""))});
    ASSERT_GT(process, 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(800));
    const auto asked = std::chrono::steady_clock::now();
    ASSERT_EQ(kill(process, SIGTERM), 0);
    int status = 0;
    ASSERT_EQ(waitpid(process, &status, 0), process);
    EXPECT_LT(std::chrono::steady_clock::now() - asked, std::chrono::milliseconds(1500));
    ASSERT_EQ(other.Run("ROLLBACK"), Status::Ok);
    EXPECT_EQ(Device.Run({"check"}).Status, 0);
}

} // namespace
} // namespace tavo::tools
