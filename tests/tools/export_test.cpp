// What `tavo export` writes, where to, and what it says.
#include "tests/ink/handwriting.h"
#include "tests/tools/command_run.h"

#include "host/ink/codec.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <sys/stat.h>
#include <sys/wait.h>

namespace tavo::tools {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace fs = std::filesystem;

const std::string kMeeting = "BEGIN:VEVENT\nUID:meeting@test\nDTSTART;TZID=America/New_York:20260314T090000\n"
                             "DTEND;TZID=America/New_York:20260314T100000\nSUMMARY:Meeting\nEND:VEVENT\n";
const std::string kWeekly = "BEGIN:VEVENT\nUID:weekly@test\nDTSTART:20260302T080000\nRRULE:FREQ=WEEKLY;COUNT=5\n"
                            "SUMMARY:Every week\nEND:VEVENT\n";
const std::string kBirthday = "BEGIN:VEVENT\nUID:birthday@test\nDTSTART;VALUE=DATE:20260410\nRRULE:FREQ=YEARLY\n"
                              "SUMMARY:Birthday\nEND:VEVENT\n";

class Export : public testing::Test {
  protected:
    void SetUp() override {
        Device.Run({"import", Device.WriteCalendar("in.ics", kMeeting + kWeekly)});
        Device.Run({"import", "--as", "anniversary", Device.WriteCalendar("in.ics", kBirthday)});
    }

    std::string Write(std::vector<std::string> words) {
        words.insert(words.begin(), "export");
        const CommandResult result = Device.Run(words);
        EXPECT_EQ(result.Status, 0) << result.Errors;
        return result.Output;
    }

    std::string Agenda(const CommandDevice& device) {
        return device.Run({"agenda", "--from", "2026-01-01", "--to", "2028-12-31", "--tsv"}).Output;
    }

    // Without the line that tells when it was written.
    static std::string WithoutStamps(std::string file) {
        for (std::size_t at = file.find("DTSTAMP:"); at != std::string::npos; at = file.find("DTSTAMP:", at)) {
            file.erase(at, file.find('\n', at) + 1 - at);
        }
        return file;
    }

    CommandDevice Device;
};

TEST_F(Export, WritesTheWholeCalendarToStandardOutput) {
    const std::string file = Write({});
    EXPECT_THAT(file, StartsWith("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:"));
    EXPECT_THAT(file, EndsWith("END:VCALENDAR\r\n"));
    EXPECT_THAT(file, HasSubstr("BEGIN:VTIMEZONE\r\nTZID:America/New_York\r\n"));
    EXPECT_THAT(file, HasSubstr("\r\nDTSTART;TZID=America/New_York:20260314T090000\r\n"));
    EXPECT_THAT(file, HasSubstr("\r\nRRULE:FREQ=WEEKLY;BYDAY=MO;COUNT=5\r\n"));
    EXPECT_THAT(file, HasSubstr("\r\nDTSTART;VALUE=DATE:20260410\r\n"));
    EXPECT_EQ(WithoutStamps(Write({"-"})), WithoutStamps(file));
}

TEST_F(Export, ComesBackIntoAnEmptyCalendarAndIsKnownInThisOne) {
    const std::string file = Device.Place("out.ics").string();
    EXPECT_THAT(Write({file}), IsEmpty());
    CommandDevice other;
    EXPECT_EQ(other.Run({"import", file}).Output, "3 new, 0 changed, 0 unchanged, 0 refused.\n");
    EXPECT_THAT(Agenda(other), AllOf(HasSubstr("\tAnniversary\t"), HasSubstr("\tMeeting\n")));
    EXPECT_EQ(Agenda(other), Agenda(Device));
    EXPECT_EQ(WithoutStamps(other.Run({"export"}).Output), WithoutStamps(ReadWhole(file)));
    EXPECT_EQ(Device.Run({"import", file}).Output, "0 new, 0 changed, 3 unchanged, 0 refused.\n");
}

TEST_F(Export, TheKindsOfAnEmptyCalendarAreThoseOfTheFileAlsoWithoutAs) {
    const std::string file = Device.Place("out.ics").string();
    Write({file});
    CommandDevice other;
    other.Run({"import", file});
    EXPECT_TRUE(fs::exists(other.TagPath()));
}

TEST_F(Export, AFileIsReplacedAndForTheUserAlone) {
    const std::string file = Device.WriteFile("out.ics", std::string(100'000, 'x'));
    chmod(file.c_str(), 0644);
    Write({file});
    EXPECT_THAT(ReadWhole(file), AllOf(StartsWith("BEGIN:VCALENDAR"), EndsWith("END:VCALENDAR\r\n")));

    struct stat state {};

    ASSERT_EQ(stat(file.c_str(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0600U);
}

TEST_F(Export, AFolderThatIsMissingOrAFileThatIsNoneIsNamed) {
    const std::string missing = Device.Place("nowhere").string() + "/out.ics";
    const CommandResult result = Device.Run({"export", missing});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("tavo: " + missing +
                                         " cannot be written: there is no such folder. What was "
                                         "there before is as it was.\n"));
    const std::string folder = Device.Place("folder").string();
    fs::create_directory(folder);
    const CommandResult onFolder = Device.Run({"export", folder});
    EXPECT_EQ(onFolder.Status, 1);
    EXPECT_THAT(onFolder.Errors, HasSubstr("it is no file, or may not be written"));
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(Export, TheDaysKindsAndNumbersThatAreAskedForAreWritten) {
    const auto names = [this](const std::vector<std::string>& words) {
        const std::string file = Write(words);
        std::string found;
        for (const char* name : {"Meeting", "Every week", "Birthday"}) {
            found += file.find(std::string("SUMMARY:") + name) == std::string::npos ? "" : std::string(name) + "; ";
        }
        return found;
    };
    EXPECT_EQ(names({"--from", "2026-03-14"}), "Meeting; Every week; Birthday; ");
    EXPECT_EQ(names({"--from", "2026-03-31"}), "Birthday; ");
    EXPECT_EQ(names({"--to", "2026-03-13"}), "Every week; ");
    EXPECT_EQ(names({"--from", "2026-03-14", "--to", "2026-03-15"}), "Meeting; ");
    EXPECT_EQ(names({"--kind", "anniversary"}), "Birthday; ");
    EXPECT_EQ(names({"--kind", "appointment"}), "Meeting; Every week; ");
    EXPECT_EQ(names({"--kind", "alarm"}), "");
    EXPECT_EQ(names({"--kind", "appointment", "--to", "2026-03-13"}), "Every week; ");
    EXPECT_EQ(names({"--item", "1", "--item", "3"}), "Meeting; Birthday; ");
    EXPECT_EQ(names({"--item", "99"}), "");
}

TEST_F(Export, ASeriesOfWhichOneOccurrenceIsAskedForIsWhole) {
    EXPECT_THAT(Write({"--from", "2026-03-30", "--to", "2026-03-30"}), HasSubstr("\r\nDTSTART:20260302T080000"));
}

TEST_F(Export, WhatOthersDoNotUnderstandIsSaid) {
    const CommandResult result = Device.Run({"export"});
    EXPECT_EQ(result.Errors, "tavo: Other calendars will not understand: 1 kind (seen as a category).\n");
    EXPECT_THAT(result.Output, HasSubstr("CATEGORIES;X-TAVO-KIND=Anniversary:Anniversary\r\n"));
    EXPECT_THAT(Device.Run({"export", "--kind", "appointment"}).Errors, IsEmpty());
}

TEST_F(Export, MemosOfDaysLeaveAndComeBack) {
    const std::vector<std::uint8_t> ink = ink::Encode(ink::WriteByHand(10, 40));
    const fs::path folder = Device.Home() / "My Documents" / "TavoCalendar";
    fs::create_directories(folder);
    fs::copy_file(Device.WriteFile("memo.tmp", std::string(ink.begin(), ink.end())), folder / "20260314_090000.pwi");
    const std::string file = Device.Place("out.ics").string();
    const CommandResult result = Device.Run({"export", file});
    EXPECT_THAT(result.Errors, HasSubstr("1 note of ink (seen as a picture)"));
    EXPECT_THAT(ReadWhole(file), AllOf(HasSubstr("DTSTART;VALUE=DATE:20260314\r\nSUMMARY:Memo\r\n"),
                                       HasSubstr("FMTTYPE=image/svg+xml")));
    CommandDevice other;
    EXPECT_EQ(other.Run({"import", file}).Output, "4 new, 0 changed, 0 unchanged, 0 refused.\n");
    EXPECT_EQ(other.Run({"memo", "list"}).Output, "20260314_090000.pwi\n");
    const fs::path back = other.Home() / "My Documents" / "TavoCalendar" / "20260314_090000.pwi";
    EXPECT_EQ(ReadWhole(back), std::string(ink.begin(), ink.end()));
    EXPECT_EQ(fs::status(back).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(other.Run({"import", file}).Output, "0 new, 0 changed, 4 unchanged, 0 refused.\n");
    for (const std::vector<std::string>& without :
         {std::vector<std::string>{"export", "--kind", "appointment"}, {"export", "--from", "2026-03-15"}}) {
        EXPECT_THAT(Device.Run(without).Output, Not(HasSubstr("VJOURNAL")));
    }
}

TEST_F(Export, AMemoThatIsNoneIsRefusedAndTheOthersComeIn) {
    const CommandResult result = Device.Run(
        {"import", Device.WriteCalendar(
                       "in.ics", "BEGIN:VJOURNAL\nX-TAVO-MEMO:../20260314.pwi\nX-TAVO-INK:AQID\nEND:VJOURNAL\n"
                                 "BEGIN:VJOURNAL\nX-TAVO-MEMO:20260314_1.pwi\nEND:VJOURNAL\n"
                                 "BEGIN:VJOURNAL\nSUMMARY:A note of another program\nEND:VJOURNAL\n"
                                 "BEGIN:VJOURNAL\nX-TAVO-MEMO:20260315_1.pwi\nX-TAVO-INK:AQID\nEND:VJOURNAL\n")});
    EXPECT_THAT(result.Output, StartsWith("1 new, 0 changed, 0 unchanged, 2 refused.\n"
                                          "1 task or note was passed over.\n"));
    EXPECT_THAT(result.Errors,
                AllOf(HasSubstr("refused: this is no name of a memo"), HasSubstr("refused: this memo has no ink")));
    EXPECT_EQ(Device.Run({"memo", "list"}).Output, "20260315_1.pwi\n");
}

TEST_F(Export, LongEntriesLeaveAsTheyCameAndAreKnownAgain) {
    CommandDevice first;
    CommandDevice second;
    EXPECT_THAT(first.Run({"import", std::string(TAVO_TEST_DATA) + "/long_entries.ics"}).Output, StartsWith("5 new, "));
    const std::string file = first.Place("out.ics").string();
    ASSERT_EQ(first.Run({"export", file}).Status, 0);
    const std::string text = ReadWhole(file);
    EXPECT_THAT(text, AllOf(HasSubstr("\r\nDTSTART;VALUE=DATE:20260301\r\nDTEND;VALUE=DATE:20260415\r\n"),
                            HasSubstr("\r\nDTSTART;TZID=Europe/Berlin:20260302T150000\r\n"
                                      "DTEND;TZID=Europe/Berlin:20260410T110000\r\n"),
                            HasSubstr("\r\nDTSTART:20260302T000000\r\nDURATION:P40D\r\n"),
                            HasSubstr("\r\nDTSTART;VALUE=DATE:20260701\r\nDTEND;VALUE=DATE:20260901\r\n"
                                      "RRULE:FREQ=YEARLY\r\n"),
                            Not(HasSubstr("X-TAVO-WHOLE"))));
    EXPECT_THAT(first.Run({"import", file}).Output, StartsWith("0 new, 0 changed, 5 unchanged, "));
    EXPECT_THAT(second.Run({"import", file}).Output, StartsWith("5 new, "));
    EXPECT_EQ(Agenda(second), Agenda(first));
    EXPECT_EQ(WithoutStamps(second.Run({"export"}).Output), WithoutStamps(text));
}

TEST_F(Export, AnEmptyCalendarIsAFileWithoutEvents) {
    CommandDevice other;
    const CommandResult result = other.Run({"export"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Output, AllOf(StartsWith("BEGIN:VCALENDAR"), Not(HasSubstr("VEVENT"))));
}

TEST_F(Export, AFullDiskUnderTheOutputIsNoticed) {
    const CommandResult result = Device.Run({"export", "/dev/full"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("/dev/full cannot be written"));
}

// On a disk of its own, which only a machine that lets us mount one has.
TEST_F(Export, AFileOnADiskThatIsFullStaysAsItWas) {
    const fs::path disk = Device.Place("disk");
    fs::create_directory(disk);
    const std::string mount = "mount -t tmpfs -o size=64k none '" + disk.string() + "' ";
    if (std::system(("unshare -rm sh -c \"" + mount + "\" 2>/dev/null").c_str()) != 0) {
        GTEST_SKIP() << "no disk of one's own can be mounted here";
    }
    std::string many;
    for (int number = 0; number < 1000; ++number) {
        many += "BEGIN:VEVENT\nUID:" + std::to_string(number) +
                "@full\nDTSTART:20260302T080000\nSUMMARY:One of many\nEND:VEVENT\n";
    }
    ASSERT_EQ(Device.Run({"import", Device.WriteCalendar("many.ics", many)}).Status, 0);
    const std::string file = (disk / "out.ics").string();
    const std::string steps = mount + "&& echo before >'" + file + "' && TAVO_HOME='" + Device.Home().string() + "' '" +
                              TAVO_COMMAND + "' export '" + file + "' 2>'" + Device.Place("said").string() +
                              "'; echo \\$? >'" + Device.Place("status").string() + "'; cp '" + file + "' '" +
                              Device.Place("left").string() + "'; ls -A '" + disk.string() + "' >'" +
                              Device.Place("listed").string() + "'";
    ASSERT_EQ(std::system(("unshare -rm sh -c \"" + steps + "\"").c_str()), 0);
    EXPECT_EQ(ReadWhole(Device.Place("status")), "1\n");
    EXPECT_EQ(ReadWhole(Device.Place("left")), "before\n");
    EXPECT_EQ(ReadWhole(Device.Place("listed")), "out.ics\n") << "what was begun is cleared away";
    EXPECT_THAT(ReadWhole(Device.Place("said")),
                AllOf(HasSubstr("cannot be written: the disk is full"), HasSubstr("is as it was")));
}

TEST_F(Export, WordsThatMakeNoSenseAreRefused) {
    using Words = std::vector<std::string>;
    for (const Words& words :
         {Words{"export", "a", "b"}, Words{"export", "--kind", "meeting"}, Words{"export", "--kind"},
          Words{"export", "--item", "x"}, Words{"export", "--item", "0"}, Words{"export", "--item"},
          Words{"export", "--from", "tomorrow 9:00"}, Words{"export", "--from", "2026-02-02", "--to", "2026-02-01"},
          Words{"export", "--everything"}}) {
        const CommandResult result = Device.Run(words);
        EXPECT_EQ(result.Status, 2) << words.back();
        EXPECT_THAT(result.Output, IsEmpty());
        EXPECT_THAT(result.Errors, HasSubstr("tavo export --help"));
    }
}

TEST(ExportInterrupted, LeavesTheFileAsItWas) {
    const CommandDevice device;
    std::string many;
    for (int number = 0; number < 30'000; ++number) {
        many += "BEGIN:VEVENT\nUID:" + std::to_string(number) +
                "\nDTSTART:20260314T090000\nDESCRIPTION:" + std::string(200, 'x') + "\nEND:VEVENT\n";
    }
    ASSERT_EQ(device.Run({"import", device.WriteCalendar("many.ics", many)}).Status, 0);
    const std::string file = device.WriteFile("out.ics", "old");
    const int process = device.Start({"export", file});
    ASSERT_GT(process, 0);
    // It is at work once its unfinished file is there.
    const auto entries = [&device] {
        return std::distance(fs::directory_iterator(device.Place("")), fs::directory_iterator());
    };
    const auto before = entries();
    while (entries() == before && waitpid(process, nullptr, WNOHANG) == 0) {
    }
    ASSERT_EQ(kill(process, SIGINT), 0);
    int status = 0;
    ASSERT_EQ(waitpid(process, &status, 0), process);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 130);
    EXPECT_EQ(ReadWhole(device.Place("errors")), "tavo: Interrupted. The file is as it was before.\n");
    EXPECT_EQ(ReadWhole(file), "old");
    EXPECT_EQ(entries(), before);
}

} // namespace
} // namespace tavo::tools
