// Everything in one file and back again, whatever happens to the file.
#include "host/backup/kept_backups.h"
#include "host/outlook/store.h"
#include "host/posix/store_machine.h"
#include "tests/tools/command_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <sys/wait.h>

namespace tavo::tools {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace fs = std::filesystem;

const std::string kDinner = "BEGIN:VEVENT\nUID:dinner@test\nDTSTART:20260314T190000\nSUMMARY:Dinner\nEND:VEVENT\n";
const std::string kFair = "BEGIN:VEVENT\nUID:fair@test\nDTSTART;VALUE=DATE:20260315\nSUMMARY:Fair\nEND:VEVENT\n";
const std::string kLater = "BEGIN:VEVENT\nUID:later@test\nDTSTART:20260316T190000\nSUMMARY:Later\nEND:VEVENT\n";

class BackupTest : public testing::Test {
  protected:
    void SetUp() override {
        Device.Run({"import", Device.WriteCalendar("a.ics", kDinner)});
        Device.Run({"import", "--as", "holiday", Device.WriteCalendar("b.ics", kFair)});
        WriteMemo("20260314_101010.pwi", "ink of a memo");
    }

    void WriteMemo(const std::string& name, const std::string& bytes) const {
        fs::create_directories(Memo(name).parent_path());
        std::ofstream(Memo(name), std::ios::binary) << bytes;
    }

    fs::path Memo(const std::string& name) const { return Device.Home() / "My Documents" / "TavoCalendar" / name; }

    static std::string List(const CommandDevice& device) {
        return device.Run({"agenda", "--from", "2026-03-01", "--to", "2026-03-31", "--tsv"}).Output;
    }

    CommandResult BackUp() const { return Device.Run({"backup", File}); }

    // Refused in these words, and nothing has changed.
    void ExpectRefused(const std::string& file, const std::string& words) {
        const std::string before = List(Device);
        const CommandResult result = Device.Run({"restore-backup", file});
        EXPECT_EQ(result.Status, 1) << file;
        EXPECT_THAT(result.Output, IsEmpty());
        EXPECT_THAT(result.Errors, AllOf(HasSubstr("cannot be restored: "), HasSubstr(words)));
        EXPECT_EQ(List(Device), before);
    }

    void Change(const std::string& sql) const {
        sqlite3* file = nullptr;
        ASSERT_EQ(sqlite3_open(File.c_str(), &file), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(file, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(file);
        sqlite3_close(file);
    }

    CommandDevice Device;
    const std::string File = Device.Place("all.tavo").string();
};

TEST_F(BackupTest, HoldsEverythingAndBringsItBack) {
    const CommandResult made = BackUp();
    EXPECT_EQ(made.Status, 0) << made.Errors;
    EXPECT_EQ(made.Output, File + " holds 2 entries and 1 memo.\n");

    struct stat status {};

    ASSERT_EQ(stat(File.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);

    const std::string before = List(Device);
    Device.Run({"import", "--as", "alarm", Device.WriteCalendar("c.ics", kLater)});
    Device.Run({"import", "--as", "alarm", Device.WriteCalendar("a.ics", kDinner)});
    WriteMemo("20260314_101010.pwi", "another ink");
    WriteMemo("20260317_101010.pwi", "a newer memo");
    ASSERT_NE(List(Device), before);
    const CommandResult restored = Device.Run({"restore-backup", File});
    EXPECT_EQ(restored.Status, 0) << restored.Errors;
    EXPECT_THAT(restored.Output, StartsWith("Restored: 2 entries and 1 memo.\n"));
    EXPECT_EQ(List(Device), before);
    EXPECT_EQ(ReadWhole(Memo("20260314_101010.pwi")), "ink of a memo");
    EXPECT_EQ(ReadWhole(Memo("20260317_101010.pwi")), "a newer memo");
    EXPECT_FALSE(fs::is_empty(Memo("Deleted"))) << "what a restored memo replaces is kept";
    EXPECT_EQ(Device.Run({"check"}).Status, 0);
}

TEST_F(BackupTest, BringsTheSameToAnotherDevice) {
    BackUp();
    CommandDevice other;
    EXPECT_EQ(other.Run({"restore-backup", File}).Status, 0);
    EXPECT_EQ(List(other), List(Device));
    EXPECT_THAT(List(other), HasSubstr("\tHoliday\t"));
    EXPECT_EQ(other.Run({"memo", "list"}).Output, "20260314_101010.pwi\n");
}

TEST_F(BackupTest, ARestoreIsTakenBackByTheBackupThatItMade) {
    BackUp();
    Device.Run({"import", Device.WriteCalendar("c.ics", kLater)});
    const std::string before = List(Device);
    Device.Run({"restore-backup", File});
    ASSERT_NE(List(Device), before);
    const std::string kept = Device.Run({"backup", "--list"}).Output;
    ASSERT_THAT(kept, HasSubstr("/Backups/before-restore "));
    EXPECT_EQ(Device.Run({"restore-backup", kept.substr(0, kept.find('\n'))}).Status, 0);
    EXPECT_EQ(List(Device), before);
}

TEST_F(BackupTest, AProgramThatHasTheStoreOpenSeesIt) {
    BackUp();
    Device.Run({"import", Device.WriteCalendar("c.ics", kLater)});
    outlook::StorePtr store;
    ASSERT_EQ(outlook::OpenStore(posix::SystemMachine(), Device.StorePath(), {}, store), Status::Ok);
    outlook::StoredItem item;
    EXPECT_EQ(store->ReadItem(3, item), Status::Ok);
    EXPECT_EQ(Device.Run({"restore-backup", File}).Status, 0);
    EXPECT_EQ(store->ReadItem(3, item), Status::NotFound);
    EXPECT_EQ(store->ReadItem(1, item), Status::Ok);
}

TEST_F(BackupTest, WhatIsMadeAfterARestoreHasANumberOfItsOwn) {
    BackUp();
    Device.Run({"import", Device.WriteCalendar("c.ics", kLater)}); // 3
    Device.Run({"restore-backup", File});
    Device.Run({"import", Device.WriteCalendar("c.ics", kLater)});
    EXPECT_THAT(List(Device), HasSubstr("\t4\tLater\n")); // a reminder may still know the other
}

TEST_F(BackupTest, AFileThatWasCutIsRefusedWhereverItWasCut) {
    BackUp();
    const auto size = static_cast<std::int64_t>(fs::file_size(File));
    for (std::int64_t left = size - 1000; left > 1000; left -= 9999) {
        const std::string cut = Device.Place("cut.tavo").string();
        fs::copy_file(File, cut, fs::copy_options::overwrite_existing);
        fs::resize_file(cut, static_cast<std::uintmax_t>(left));
        ExpectRefused(cut, "");
    }
}

TEST_F(BackupTest, AFlippedBitIsNoticed) {
    BackUp();
    Change("UPDATE kept_file SET bytes = x'00' WHERE name LIKE '%.pwi'");
    ExpectRefused(File, "a file in it has changed by itself");
}

TEST_F(BackupTest, WhatIsNoneOrOfANewerProgramIsRefused) {
    ExpectRefused(Device.Place("missing.tavo").string(), "there is no such file");
    ExpectRefused(Device.WriteFile("text.tavo", "not a backup"), "it is no backup");
    ExpectRefused(Device.StorePath().string(), "it is a store of Tavo Calendar, but no backup");
    BackUp();
    Change("UPDATE backup SET version = 2");
    ExpectRefused(File, "a newer version");
}

TEST_F(BackupTest, NamesThatLeadOutOfTheDeviceAreRefused) {
    for (const std::string name : {"../outside", "My Documents/../../outside", "/tmp/outside", "Outlook.db", "Run/x"}) {
        BackUp();
        Change("UPDATE kept_file SET name = '" + name + "' WHERE name LIKE '%.pwi'");
        Change("DELETE FROM kept_file WHERE name <> '" + name + "'");
        ExpectRefused(File, "");
    }
    EXPECT_FALSE(fs::exists(Device.Place("outside")));
}

TEST_F(BackupTest, AFileThatCannotBeMadeLeavesTheOldOne) {
    BackUp();
    const std::string before = ReadWhole(File);
    Device.Run({"import", Device.WriteCalendar("c.ics", kLater)});
    fs::create_directory(File + ".unfinished"); // in its way
    std::ofstream(File + ".unfinished/x") << "x";
    const CommandResult result = BackUp();
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("What was there before is as it was."));
    EXPECT_EQ(ReadWhole(File), before);
    EXPECT_EQ(Device.Run({"backup", Device.Place("no/such/folder/x.tavo").string()}).Status, 1);
}

TEST_F(BackupTest, AKillLeavesTheOldOne) {
    BackUp();
    const std::string before = ReadWhole(File);
    const int process = Device.Start({"backup", File});
    kill(process, SIGKILL);
    int status = 0;
    waitpid(process, &status, 0);
    EXPECT_EQ(ReadWhole(File).substr(0, 16), before.substr(0, 16));
    EXPECT_EQ(Device.Run({"restore-backup", File}).Status, 0);
    EXPECT_EQ(BackUp().Status, 0) << "what was left of it is in nobody's way";
}

TEST_F(BackupTest, AFullDiskLeavesTheOldOne) {
    const fs::path disk = Device.Place("disk");
    fs::create_directory(disk);
    const std::string mount = "mount -t tmpfs -o size=64k none '" + disk.string() + "' ";
    if (std::system(("unshare -rm sh -c \"" + mount + "\" 2>/dev/null").c_str()) != 0) {
        GTEST_SKIP() << "no disk of one's own can be mounted here";
    }
    const std::string steps = mount + "&& echo before >'" + (disk / "all.tavo").string() + "' && TAVO_HOME='" +
                              Device.Home().string() + "' '" + TAVO_COMMAND + "' backup '" +
                              (disk / "all.tavo").string() + "' 2>'" + Device.Place("said").string() + "'; ls -A '" +
                              disk.string() + "' >'" + Device.Place("listed").string() + "'; cp '" +
                              (disk / "all.tavo").string() + "' '" + Device.Place("left").string() + "'";
    ASSERT_EQ(std::system(("unshare -rm sh -c \"" + steps + "\"").c_str()), 0);
    EXPECT_EQ(ReadWhole(Device.Place("left")), "before\n");
    EXPECT_EQ(ReadWhole(Device.Place("listed")), "all.tavo\n");
    EXPECT_THAT(ReadWhole(Device.Place("said")), HasSubstr("the disk is full"));
}

TEST_F(BackupTest, WordsThatMakeNoSenseAreRefused) {
    using Words = std::vector<std::string>;
    for (const Words& words : {Words{"backup"}, Words{"backup", "a", "b"}, Words{"backup", "--list", "a"},
                               Words{"backup", "--all"}, Words{"restore-backup"}, Words{"restore-backup", "--list"}}) {
        const CommandResult result = Device.Run(words);
        EXPECT_EQ(result.Status, 2) << words.back();
        EXPECT_THAT(result.Errors, HasSubstr("tavo " + words.front() + " --help"));
    }
    EXPECT_THAT(Device.Run({"backup", "--help"}).Output, StartsWith("tavo backup - "));
    EXPECT_THAT(Device.Run({"restore-backup", "-h"}).Output, StartsWith("tavo restore-backup - "));
}

TEST(KeptBackups, TheLastSevenStayAndTheFirstOfEachMonth) {
    std::vector<std::string> names{"before-restore 2026-01-05 100000.tavo"};
    for (int day = 1; day <= 9; ++day) {
        names.push_back("night 2026-01-0" + std::to_string(day) + " 030000.tavo");
    }
    EXPECT_THAT(backup::FindSpentBackups(names), ElementsAre("night 2026-01-02 030000.tavo"));
    names.push_back("night 2026-02-01 030000.tavo");
    EXPECT_THAT(backup::FindSpentBackups(names),
                ElementsAre("night 2026-01-02 030000.tavo", "night 2026-01-03 030000.tavo"));
    EXPECT_THAT(backup::FindSpentBackups({}), IsEmpty());
}

} // namespace
} // namespace tavo::tools
