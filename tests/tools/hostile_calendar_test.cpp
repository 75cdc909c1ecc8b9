// Calendars that someone sends to do harm: told in words, soon, and nothing else suffers.
#include "host/outlook/store.h"
#include "host/posix/store_machine.h"
#include "tests/outlook/planted_rule.h"
#include "tests/support/processor_time.h"
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
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

// Seconds that all commands took.
double TimeUsed() {
    return test::ProcessorTime(RUSAGE_CHILDREN);
}

std::string Event(const std::string& uid, const std::string& lines, const std::string& start = "20260105T090000") {
    return "BEGIN:VEVENT\nUID:" + uid + "\nDTSTART:" + start + "\nDURATION:PT1H\nSUMMARY:" + uid + "\n" + lines +
           "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER:-PT15M\nEND:VALARM\nEND:VEVENT\n";
}

std::string Repeat(const std::string& line, int times) {
    std::string lines;
    for (int number = 0; number < times; ++number) {
        lines += line;
    }
    return lines;
}

// Two honest series among many others: what they are must stay to be seen.
const std::string kHonest = Event("weekly", "RRULE:FREQ=WEEKLY;BYHOUR=9,14\n") +
                            Event("hourly", "RRULE:FREQ=HOURLY;BYHOUR=8,9,10,11,12,13,14,15,16,17\n");

// A list of dates from 1990 on, a hundred in a line.
std::string DateLines(const std::string& name, int count) {
    std::string lines;
    for (int number = 0; number < count; ++number) {
        const rules::CivilDate date = rules::CivilFromDay(rules::DayFromCivil(1990, 1, 1) + number);
        std::array<char, 40> text{};
        std::snprintf(text.data(), text.size(), "%04d%02d%02dT090000", date.Year, date.Month, date.Day);
        lines += (number % 100 > 0 ? "," : (number > 0 ? "\n" : "") + name + ":") + text.data();
    }
    return lines + "\n";
}

class HostileCalendar : public testing::Test {
  protected:
    // What is to be seen of kHonest, within two seconds for a day and the week's reminders.
    void ExpectHonestSeriesSoon() {
        const double before = TimeUsed();
        const std::string listed = Device.Run({"agenda", "--from", "2026-03-16", "--to", "2026-03-16", "--tsv"}).Output;
        EXPECT_THAT(listed, AllOf(HasSubstr("2026-03-16T14:00\t2026-03-16T15:00\tAppointment\t"),
                                  HasSubstr("\tweekly\n"), HasSubstr("2026-03-16T17:00\t"), HasSubstr("\thourly\n")));
        const std::string coming = Device.Run({"reminders", "list"}).Output;
        EXPECT_THAT(coming, AllOf(HasSubstr("to come  weekly"), HasSubstr("to come  hourly")));
        EXPECT_LT(TimeUsed() - before, test::AtMost(2));
    }

    std::string ListMarch() {
        return Device.Run({"agenda", "--from", "2026-03-01", "--to", "2026-03-31", "--tsv"}).Output;
    }

    // Imports the file, which has one good event beside what is refused, and takes all later steps.
    CommandResult Survive(const std::string& file, double seconds) {
        const double before = TimeUsed();
        CommandResult result = Device.Run({"import", file});
        EXPECT_THAT(ListMarch(), HasSubstr("\tGood\n"));
        EXPECT_EQ(Device.Run({"check"}).Status, 0);
        EXPECT_LT(TimeUsed() - before, test::AtMost(seconds)) << file;
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

// Beside a rule that the six types cannot say, they are a list that is read at each listing.
TEST_F(HostileCalendar, SixtyThousandCancelledDaysOfARuleOfItsOwnAreTakenInTime) {
    const std::string lines = "RRULE:FREQ=DAILY;BYHOUR=9,10\n" + DateLines("EXDATE", 60000);
    const CommandResult result = Survive(Device.WriteCalendar("a.ics", kGood + Event("rare", lines)), 1);
    EXPECT_EQ(result.Output, "2 new, 0 changed, 0 unchanged, 0 refused.\n") << result.Errors;
    const std::string listed = ListMarch();
    EXPECT_THAT(listed, HasSubstr("2026-03-28T10:00\t2026-03-28T11:00\tAppointment\t2\trare\n"));
    EXPECT_THAT(listed, Not(HasSubstr("2026-03-28T09:00")));
}

TEST_F(HostileCalendar, ManyLongListsOfDatesCostAListingLittle) {
    std::string events = kHonest;
    for (int number = 0; number < 10; ++number) {
        events += Event("list" + std::to_string(number), DateLines("RDATE", 60000));
    }
    const CommandResult result = Device.Run({"import", Device.WriteCalendar("a.ics", events)});
    EXPECT_EQ(result.Output, "12 new, 0 changed, 0 unchanged, 0 refused.\n") << result.Errors;
    ExpectHonestSeriesSoon();
    EXPECT_EQ(Device.Run({"check"}).Status, 0);
}

TEST_F(HostileCalendar, ACrowdOfLongCountsIsListedSoon) {
    std::string events = kHonest;
    for (int number = 0; number < 800; ++number) {
        events += Event("c" + std::to_string(number), "RRULE:FREQ=DAILY;BYHOUR=9,10;COUNT=120000\n", "19000101T090000");
    }
    const CommandResult result = Device.Run({"import", Device.WriteCalendar("a.ics", events)});
    EXPECT_EQ(result.Output, "802 new, 0 changed, 0 unchanged, 0 refused.\n") << result.Errors;
    const double before = TimeUsed();
    const auto list = [this](const std::string& day) {
        const CommandResult listed = Device.Run({"agenda", "--from", day, "--to", day, "--tsv"});
        EXPECT_EQ(listed.Errors, "");
        return std::count(listed.Output.begin(), listed.Output.end(), '\n');
    };
    EXPECT_EQ(list("2026-03-14"), 1600 + 10);
    EXPECT_EQ(list("2064-04-09"), 1600 + 10); // sixty thousand days after the first one: the last
    EXPECT_EQ(list("2064-04-10"), 10);
    EXPECT_LT(TimeUsed() - before, test::AtMost(1));
    ExpectHonestSeriesSoon();
}

TEST_F(HostileCalendar, ACrowdThatTakesTooLongIsLeftOutAndNamedAndNobodyElse) {
    const std::string lines = Repeat("RRULE:FREQ=YEARLY;BYDAY=SU,MO,TU,WE,TH,FR,SA;BYSETPOS=1\n", 96);
    std::string events = kHonest;
    for (int number = 0; number < 600; ++number) {
        events += Event("crowd" + std::to_string(number), lines, "19900105T090000");
    }
    const CommandResult result = Device.Run({"import", Device.WriteCalendar("a.ics", events)});
    EXPECT_EQ(result.Output, "602 new, 0 changed, 0 unchanged, 0 refused.\n") << result.Errors;
    const double before = TimeUsed();
    const CommandResult listed = Device.Run({"agenda", "--from", "2026-03-16", "--to", "2026-03-16"});
    EXPECT_LT(TimeUsed() - before, test::AtMost(1));
    EXPECT_EQ(listed.Status, 0);
    EXPECT_THAT(listed.Errors, AllOf(HasSubstr("Left out, because "), HasSubstr(": crowd0 (item 3), crowd1 (item 4), "),
                                     HasSubstr(" more. See `tavo check`."), Not(HasSubstr("weekly"))));
    ExpectHonestSeriesSoon();
    const CommandResult check = Device.Run({"check"});
    EXPECT_EQ(check.Status, 1);
    EXPECT_THAT(check.Output, AllOf(HasSubstr("Item 3 (crowd0): beside all others it takes too long to work out"),
                                    Not(HasSubstr("weekly")), Not(HasSubstr("hourly")), Not(HasSubstr("damaged"))));
}

TEST_F(HostileCalendar, ThousandsOfLoneOccurrencesOfAStoredSeriesAreTakenInTime) {
    Device.Run({"import", Device.WriteCalendar("a.ics", kGood + Event("series", "RRULE:FREQ=DAILY\n"))});
    std::string events;
    for (int number = 0; number < 3000; ++number) {
        const rules::CivilDate date = rules::CivilFromDay(rules::DayFromCivil(2026, 1, 5) + number);
        std::array<char, 120> text{};
        std::snprintf(text.data(), text.size(), "RECURRENCE-ID:%04d%02d%02dT090000\nDTSTART:%04d%02d%02dT110000\n",
                      date.Year, date.Month, date.Day, date.Year, date.Month, date.Day);
        events +=
            std::string("BEGIN:VEVENT\nUID:series\n") + text.data() + "DURATION:PT1H\nSUMMARY:moved\nEND:VEVENT\n";
    }
    const std::string file = Device.WriteCalendar("b.ics", events);
    EXPECT_EQ(Survive(file, 2).Output, "0 new, 3000 changed, 0 unchanged, 0 refused.\n");
    const std::string listed = ListMarch();
    EXPECT_EQ(std::count(listed.begin(), listed.end(), '\n'), 32);
    EXPECT_THAT(listed, HasSubstr("2026-03-31T11:00\t2026-03-31T12:00\tAppointment\t2\tmoved\n"));
    EXPECT_EQ(Survive(file, 2).Output, "0 new, 0 changed, 3000 unchanged, 0 refused.\n");
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
        ASSERT_EQ(outlook::OpenStore(posix::SystemMachine(), Device.StorePath(), options, store), Status::Ok);
        std::string lines = "RRULE:FREQ=HOURLY";
        for (int number = 1; number < 4900; ++number) {
            lines += "\nRRULE:FREQ=HOURLY";
        }
        ASSERT_TRUE(outlook::test::PlantRule(CoreOf(*store), 2, lines));
    }
    const double before = TimeUsed();
    EXPECT_THAT(ListMarch(), StartsWith("2026-03-14T09:00\t2026-03-14T10:00\tAppointment\t1\tGood\n"));
    EXPECT_THAT(ListMarch(), Not(HasSubstr("heavy")));
    const CommandResult check = Device.Run({"check"});
    EXPECT_EQ(check.Status, 1);
    EXPECT_THAT(check.Output, AllOf(HasSubstr("  - Item 2 (heavy): it recurs more often than 96 times a day.\n"),
                                    HasSubstr("What to do: "), Not(HasSubstr("damaged"))));
    EXPECT_LT(TimeUsed() - before, test::AtMost(2));
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
