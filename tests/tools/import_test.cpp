// What `tavo import` brings in, refuses and says.
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tavo::tools {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::string kGood = "BEGIN:VEVENT\nUID:good@test\nDTSTART:20260314T090000\nDTEND:20260314T100000\nSUMMARY:Good\n"
                          "END:VEVENT\n";
const std::string kOther = "BEGIN:VEVENT\nUID:other@test\nDTSTART:20260314T110000\nSUMMARY:Other\nEND:VEVENT\n";
const std::string kTooLong = "BEGIN:VEVENT\nUID:long@test\nDTSTART:20260301T090000\nDTEND:20260501T090000\n"
                             "SUMMARY:Two months\nEND:VEVENT\n";

class Import : public testing::Test {
  protected:
    std::string ListDay() {
        return Device.Run({"agenda", "--from", "2026-03-14", "--to", "2026-03-14", "--tsv"}).Output;
    }

    CommandDevice Device;
};

TEST_F(Import, CountsWhatIsNewAndWhatIsUnchangedTheSecondTime) {
    const std::string file = Device.WriteCalendar("a.ics", kGood + kOther);
    const CommandResult first = Device.Run({"import", file});
    EXPECT_EQ(first.Status, 0);
    EXPECT_EQ(first.Output, "2 new, 0 changed, 0 unchanged, 0 refused.\n");
    EXPECT_THAT(first.Errors, IsEmpty()); // no bar where there is no terminal
    const std::string before = ListDay();
    const CommandResult second = Device.Run({"import", file});
    EXPECT_EQ(second.Status, 0);
    EXPECT_EQ(second.Output, "0 new, 0 changed, 2 unchanged, 0 refused.\n");
    EXPECT_EQ(ListDay(), before);
}

TEST_F(Import, AChangedEntryKeepsItsNumber) {
    Device.Run({"import", Device.WriteCalendar("a.ics", kGood + kOther)});
    std::string changed = kGood;
    changed.replace(changed.find("SUMMARY:Good"), 12, "SUMMARY:Moved");
    const CommandResult result = Device.Run({"import", Device.WriteCalendar("a.ics", changed + kOther)});
    EXPECT_EQ(result.Output, "0 new, 1 changed, 1 unchanged, 0 refused.\n");
    EXPECT_THAT(ListDay(), HasSubstr("2026-03-14T09:00\t2026-03-14T10:00\tAppointment\t1\tMoved\n"));
}

TEST_F(Import, OfABrokenFileComesWhatCanBeRead) {
    const std::string file = Device.WriteFile(
        "a.ics", "BEGIN:VCALENDAR\n" + kGood + "BEGIN:VEVENT\nUID:x\nDTSTART:today\nEND:VEVENT\nwhat?\n" + kOther);
    const CommandResult result = Device.Run({"import", file});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors,
              file + ":10: refused: the value of DTSTART cannot be read: \"today\"\n" + file +
                  ":12: mended: this line is not of the form NAME:value; it was left out\n" + file +
                  ":17: mended: the file ends inside the VCALENDAR that began in line 1; what there is of it "
                  "was read\n");
    EXPECT_EQ(result.Output, "2 new, 0 changed, 0 unchanged, 1 refused, 2 mended.\n");
    EXPECT_THAT(ListDay(), HasSubstr("Good"));
    EXPECT_THAT(ListDay(), HasSubstr("Other"));
}

TEST_F(Import, OfThousandsOfFaultsTheFirstThousandAreNamed) {
    std::string lines = kGood;
    for (int count = 0; count < 1500; ++count) {
        lines += "what?\n";
    }
    const std::string file = Device.WriteCalendar("a.ics", lines);
    const CommandResult result = Device.Run({"import", file});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(std::count(result.Errors.begin(), result.Errors.end(), '\n'), 1001);
    EXPECT_THAT(result.Errors, EndsWith(file + ": 500 more were mended\n"));
    EXPECT_EQ(result.Output, "1 new, 0 changed, 0 unchanged, 0 refused, 1500 mended.\n");
}

TEST_F(Import, NothingComesOutOfAFileThatIsReadStrictlyAndTheOthersGoOn) {
    const std::string folder = Device.Place("calendars").string();
    Device.WriteCalendar("calendars/a.ics", kGood + "BEGIN:VEVENT\nUID:x\nDTSTART:today\nEND:VEVENT\n");
    Device.WriteCalendar("calendars/b.ics", kOther);
    const CommandResult result = Device.Run({"import", "--strict", folder});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, folder + "/a.ics:11: the value of DTSTART cannot be read: \"today\"; nothing of this file "
                                      "was imported\n");
    EXPECT_EQ(result.Output, "1 new, 0 changed, 0 unchanged, 0 refused in 1 file.\n1 file could not be imported.\n");
    EXPECT_THAT(ListDay(), Not(HasSubstr("Good")));
    EXPECT_THAT(ListDay(), HasSubstr("Other"));
}

TEST_F(Import, ABrokenFileLeavesTheStoreAsItWas) {
    Device.Run({"import", Device.WriteCalendar("a.ics", kGood)});
    const std::string before = ListDay();
    std::string changed = kGood;
    changed.replace(changed.find("SUMMARY:Good"), 12, "SUMMARY:Evil");
    EXPECT_EQ(
        Device.Run({"import", "--strict", Device.WriteFile("b.ics", "BEGIN:VCALENDAR\n" + changed + "BEGIN:VEVENT\n")})
            .Status,
        1);
    EXPECT_EQ(ListDay(), before);
}

TEST_F(Import, WhatIsTooLongForTheDeviceIsOnEachOfItsDays) {
    const std::string file = Device.WriteCalendar("a.ics", kGood + kTooLong + kOther);
    const CommandResult result = Device.Run({"import", file});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, StartsWith(file + ":9: "));
    EXPECT_THAT(result.Errors, HasSubstr("31 days"));
    EXPECT_EQ(result.Output, "3 new, 0 changed, 0 unchanged, 0 refused, 1 mended.\n");
    const std::string days = Device.Run({"agenda", "--from", "2026-04-29", "--to", "2026-05-03", "--tsv"}).Output;
    EXPECT_THAT(days, HasSubstr("2026-04-29T00:00\t2026-04-30T00:00\t"));
    EXPECT_THAT(days, HasSubstr("2026-04-30T00:00\t2026-05-01T00:00\t"));
    EXPECT_THAT(days, HasSubstr("2026-05-01T00:00\t2026-05-01T09:00\t"));
    EXPECT_THAT(days, Not(HasSubstr("2026-05-02T")));
}

TEST_F(Import, AnEndBeforeItsStartIsNone) {
    const std::string file = Device.WriteCalendar(
        "a.ics", "BEGIN:VEVENT\nUID:x\nDTSTART:20260314T090000\nDTEND:20260314T080000\nEND:VEVENT\n");
    const CommandResult result = Device.Run({"import", file});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Errors, file + ":6: mended: it ends before it begins; the entry has no length\n");
    EXPECT_EQ(result.Output, "1 new, 0 changed, 0 unchanged, 0 refused, 1 mended.\n");
    EXPECT_THAT(ListDay(), HasSubstr("2026-03-14T09:00\t2026-03-14T09:00\t"));
}

TEST_F(Import, YearsBeyondTheDevicesAreRefused) {
    const std::string file =
        Device.WriteCalendar("a.ics", "BEGIN:VEVENT\nUID:x\nDTSTART:18991231T090000\nEND:VEVENT\n"
                                      "BEGIN:VEVENT\nUID:y\nDTSTART:30000101T090000\nEND:VEVENT\n" +
                                          kGood);
    const CommandResult result = Device.Run({"import", file});
    EXPECT_EQ(result.Output, "1 new, 0 changed, 0 unchanged, 2 refused.\n");
}

TEST_F(Import, TasksAndNotesArePassedOverWithoutComplaint) {
    const CommandResult result =
        Device.Run({"import", Device.WriteCalendar("a.ics", kGood + "BEGIN:VTODO\nSUMMARY:Task\nEND:VTODO\n")});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Output, "1 new, 0 changed, 0 unchanged, 0 refused.\n"
                             "1 task or note was passed over.\n");
}

TEST_F(Import, WhatIsPassedOverIsCountedByItsKind) {
    const auto event = [](const char* uid, const char* lines) {
        return std::string("BEGIN:VEVENT\nUID:") + uid + "\nDTSTART:20260301T090000\n" + lines + "END:VEVENT\n";
    };
    const std::string file =
        Device.WriteCalendar("a.ics", event("two", "SEQUENCE:1\nSUMMARY:Old\n") + event("two", "SEQUENCE:2\n") +
                                          event("off", "STATUS:CANCELLED\n") + event("gone", "STATUS:CANCELLED\n") +
                                          "BEGIN:VTODO\nSUMMARY:Task\nEND:VTODO\n");
    const CommandResult result = Device.Run({"import", file});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Output, "1 new, 0 changed, 0 unchanged, 0 refused.\n"
                             "1 older version of an entry, 2 cancelled events and 1 task or note were passed over.\n");
    EXPECT_EQ(result.Errors, file + ":3: passed over: the same entry (UID) stands again in line 9, which counts\n");
}

TEST_F(Import, FoldersAreSearchedThroughAndOtherFilesLeftAlone) {
    Device.WriteCalendar("calendars/deep/down/a.ics", kGood);
    Device.WriteCalendar("calendars/B.ICS", kOther);
    Device.WriteFile("calendars/notes.txt", "not a calendar");
    std::filesystem::create_directory_symlink(Device.Place("calendars"), Device.Place("calendars/deep/round"));
    const CommandResult result = Device.Run({"import", Device.Place("calendars").string()});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(result.Errors, Device.Place("calendars/deep/round").string() + ": passed over: a link to a folder\n");
    EXPECT_EQ(result.Output, "2 new, 0 changed, 0 unchanged, 0 refused in 2 files.\n");
}

TEST_F(Import, WhatIsNoFileInAFolderIsPassedOverAndSaid) {
    Device.WriteCalendar("calendars/a.ics", kGood);
    const std::string pipe = Device.Place("calendars/pipe.ics").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string circle = Device.Place("calendars/circle.ics").string();
    std::filesystem::create_symlink(circle, circle);
    const CommandResult result = Device.Run({"import", Device.Place("calendars").string()});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Errors, HasSubstr(pipe + ": passed over: not a regular file\n"));
    EXPECT_THAT(result.Errors, HasSubstr(circle + ": passed over: not a regular file\n"));
    EXPECT_EQ(result.Output, "1 new, 0 changed, 0 unchanged, 0 refused.\n");
}

TEST_F(Import, ReadsStandardInputForADash) {
    Device.Input = Device.WriteCalendar("a.ics", kGood + "what?\n" + kOther);
    const CommandResult result = Device.Run({"import", "-"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Output, "2 new, 0 changed, 0 unchanged, 0 refused, 1 mended.\n");
    EXPECT_THAT(result.Errors, StartsWith("standard input:9: mended: "));
}

TEST_F(Import, ReadsAPipeAsStandardInputAndKeepsItNowhere) {
    Device.Input = Device.Place("pipe").string();
    ASSERT_EQ(mkfifo(Device.Input.c_str(), 0600), 0);
    Device.Environment["TMPDIR"] = Device.Place("").string();
    // The pipe is open for both until the command has it; more goes through than it holds.
    const int ends = open(Device.Input.c_str(), O_RDWR | O_CLOEXEC);
    const int process = Device.Start({"import", "-"});
    ASSERT_GT(process, 0);
    std::string file = "BEGIN:VCALENDAR\n" + kGood + "X-LONG:" + std::string(200'000, 'x') + "\nEND:VCALENDAR\n";
    ASSERT_EQ(write(ends, file.data(), file.size()), static_cast<ssize_t>(file.size()));
    close(ends);
    int status = 0;
    ASSERT_EQ(waitpid(process, &status, 0), process);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << ReadWhole(Device.Place("errors"));
    EXPECT_EQ(ReadWhole(Device.Place("output")), "1 new, 0 changed, 0 unchanged, 0 refused.\n");
    for (const auto& entry : std::filesystem::directory_iterator(Device.Place(""))) {
        EXPECT_THAT(entry.path().filename().string(), Not(StartsWith("tavo-import")));
    }
}

TEST_F(Import, AFolderForPassingFilesThatIsMissingIsSaid) {
    Device.Input = Device.WriteCalendar("a.ics", kGood);
    Device.Environment["TMPDIR"] = Device.Place("nowhere").string();
    const CommandResult result = Device.Run({"import", "-"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, "standard input: No such file or directory; nothing of this file was imported\n");
}

TEST_F(Import, AMissingPathIsNamedAndTheOthersComeIn) {
    const CommandResult result =
        Device.Run({"import", Device.Place("missing.ics").string(), Device.WriteCalendar("a.ics", kGood)});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, Device.Place("missing.ics").string() + ": there is no such file or folder\n");
    EXPECT_THAT(result.Output, StartsWith("1 new"));
}

TEST_F(Import, APipeOrDeviceIsNoFile) {
    const CommandResult result = Device.Run({"import", "/dev/null"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, StartsWith("/dev/null: is not a regular file"));
}

TEST_F(Import, AnOccurrenceThatCameAloneJoinsItsSeriesWhenThatIsThere) {
    const std::string series = "BEGIN:VEVENT\nUID:s@test\nDTSTART:20260307T090000\nRRULE:FREQ=WEEKLY\nSUMMARY:Series\n"
                               "END:VEVENT\n";
    const std::string moved = "BEGIN:VEVENT\nUID:s@test\nRECURRENCE-ID:20260314T090000\nDTSTART:20260314T150000\n"
                              "SUMMARY:Series\nEND:VEVENT\n";
    Device.Run({"import", Device.WriteCalendar("series.ics", series)});
    EXPECT_EQ(Device.Run({"import", Device.WriteCalendar("moved.ics", moved)}).Status, 0);
    EXPECT_EQ(ListDay(), "2026-03-14T15:00\t2026-03-14T15:00\tAppointment\t1\tSeries\n");
}

TEST_F(Import, AnOccurrenceOfAnUnknownSeriesIsAnAppointmentByItself) {
    const std::string moved = "BEGIN:VEVENT\nUID:s@test\nRECURRENCE-ID:20260314T090000\nDTSTART:20260314T150000\n"
                              "SUMMARY:Only this\nEND:VEVENT\n";
    const std::string file = Device.WriteCalendar("moved.ics", moved);
    EXPECT_EQ(Device.Run({"import", file}).Output, "1 new, 0 changed, 0 unchanged, 0 refused.\n");
    EXPECT_EQ(Device.Run({"import", file}).Output, "0 new, 0 changed, 1 unchanged, 0 refused.\n");
    EXPECT_EQ(ListDay(), "2026-03-14T15:00\t2026-03-14T15:00\tAppointment\t1\tOnly this\n");
}

TEST_F(Import, AnInterruptTakesBackTheFileThatIsBeingRead) {
    std::string many;
    for (int number = 0; number < 60'000; ++number) {
        many += "BEGIN:VEVENT\nUID:" + std::to_string(number) +
                "\nDTSTART:20260314T090000\nSUMMARY:One of many\n"
                "DESCRIPTION:" +
                std::string(200, 'x') + "\nEND:VEVENT\n";
    }
    Device.WriteCalendar("calendars/a.ics", kGood);
    Device.WriteCalendar("calendars/b.ics", many);
    const int process = Device.Start({"import", Device.Place("calendars").string()});
    ASSERT_GT(process, 0);
    // The first file is in the store once the second one is being read.
    while (ListDay().empty() && waitpid(process, nullptr, WNOHANG) == 0) {
    }
    ASSERT_EQ(kill(process, SIGINT), 0);
    int status = 0;
    ASSERT_EQ(waitpid(process, &status, 0), process);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 130);
    EXPECT_THAT(ReadWhole(Device.Place("errors")), HasSubstr("Interrupted."));
    EXPECT_EQ(ListDay(), "2026-03-14T09:00\t2026-03-14T10:00\tAppointment\t1\tGood\n");
}

TEST_F(Import, OneThatIsEndedInTheMiddleClaimsNothingOfARefusedFile) {
    Device.WriteCalendar("calendars/a.ics", kGood + "BEGIN:VEVENT\nUID:x\nDTSTART:today\nEND:VEVENT\n"); // is refused
    std::string many;
    for (int number = 0; number < 60'000; ++number) {
        many += "BEGIN:VEVENT\nUID:" + std::to_string(number) +
                "\nDTSTART:20260314T090000\nDESCRIPTION:" + std::string(200, 'x') + "\nEND:VEVENT\n";
    }
    Device.WriteCalendar("calendars/b.ics", many);
    const int process = Device.Start({"import", "--strict", Device.Place("calendars").string()});
    ASSERT_GT(process, 0);
    // The first file was refused once that is said.
    while (ReadWhole(Device.Place("errors")).empty() && waitpid(process, nullptr, WNOHANG) == 0) {
    }
    ASSERT_EQ(kill(process, SIGALRM), 0); // as when it has not heeded an interrupt in time
    int status = 0;
    ASSERT_EQ(waitpid(process, &status, 0), process);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 130);
    EXPECT_THAT(
        ReadWhole(Device.Place("errors")),
        HasSubstr("Nothing of the file that was being read was imported; what was imported before it stays.\n"));
    EXPECT_EQ(ListDay(), "");
}

TEST_F(Import, AStoreThatIsNoneIsLeftByteForByte) {
    std::filesystem::create_directories(Device.Home());
    const std::string letter = "Dear Anna, this is not a store. " + std::string(5000, '!');
    Device.WriteFile("home/Outlook.db", letter);
    const CommandResult result = Device.Run({"import", Device.WriteCalendar("a.ics", kGood)});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, StartsWith("tavo: "));
    EXPECT_EQ(ReadWhole(Device.StorePath()), letter);
    EXPECT_EQ(Device.Run({"agenda"}).Status, 1);
    EXPECT_EQ(ReadWhole(Device.StorePath()), letter);
}

} // namespace
} // namespace tavo::tools
