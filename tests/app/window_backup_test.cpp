// A backup from the window: the file is one that `tavo restore-backup` takes, and what came of it is said.
#include "host/backup/chosen_backup.h"
#include "host/backup/device_backup.h"
#include "tests/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tavo::test {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;

class WindowBackup : public testing::Test {
  protected:
    WindowBackup() : Folder(Program.Device.Host().Root.Path()), Backup(files::DeviceRoot(Folder.string())) {
        Program.Exchange.Backup = &Backup;
        Program.Device.Host().Opened.SetWritten(
            [this] { return Backup.HasFile() ? std::optional(WrittenFile::Backup) : std::nullopt; });
        EXPECT_TRUE(Program.Start());
    }

    std::vector<std::u16string> Boxes() {
        std::vector<std::u16string> texts;
        for (const MessageBoxDescription& box : Program.Device.Host().Seen.Boxes) {
            texts.push_back(box.Text);
        }
        return texts;
    }

    void BackUpTo(const fs::path& file) {
        Backup.Choose(file.string());
        Program.Device.AnswerBox(IDOK);
        ASSERT_TRUE(Program.Settle());
    }

    RunningProgram Program;
    fs::path Folder;
    backup::ChosenBackup Backup;
};

TEST_F(WindowBackup, TheFileHoldsWhatTheCalendarHad) {
    const Oid dentist = Program.GivenAppointment(u"Dentist", At(2004, 11, 5, 8, 0), At(2004, 11, 5, 8, 30));
    BackUpTo(Folder / "all.tavo");
    EXPECT_THAT(Boxes(), ElementsAre(u"all.tavo: one entry was written."));
    EXPECT_EQ(fs::status(Folder / "all.tavo").permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);
    Program.Delete(dentist);
    Program.Stop();
    backup::Restored restored;
    std::string problem;
    ASSERT_TRUE(backup::Restore(files::DeviceRoot(Folder.string()), (Folder / "all.tavo").string(), restored, problem))
        << problem;
    ASSERT_TRUE(Program.Start());
    AppointmentData record;
    EXPECT_EQ(Program.State().Store.LoadAppointment(dentist, record), dentist);
    EXPECT_EQ(record.Subject, u"Dentist");
}

TEST_F(WindowBackup, WhereItCannotBeWrittenThatIsSaidAndTheOldOneStays) {
    BackUpTo(Folder / "no" / "such" / "all.tavo");
    EXPECT_THAT(Boxes(), ElementsAre(u"all.tavo: it cannot be read or written. Nothing was written."));
    std::ofstream(Folder / "old.tavo") << "old";
    fs::create_directory(Folder / "old.tavo.unfinished");
    std::ofstream(Folder / "old.tavo.unfinished" / "x") << "x"; // in its way
    BackUpTo(Folder / "old.tavo");
    EXPECT_EQ(Boxes().back(), u"old.tavo: it cannot be read or written. Nothing was written.");
    EXPECT_EQ(fs::file_size(Folder / "old.tavo"), 3U);
}

TEST_F(WindowBackup, AnotherProgramsChangeMeanwhileIsNotHalfInIt) {
    for (int number = 0; number < 3000; ++number) {
        Program.GivenAppointment(u"Item", At(2004, 11, 5, 8, 0), At(2004, 11, 5, 8, 30));
    }
    backup::DeviceBackup whole(files::DeviceRoot(Folder.string()), (Folder / "all.tavo").string());
    int steps = 0;
    while (whole.Step()) {
        Program.GivenAppointment(u"Later", At(2004, 11, 6), At(2004, 11, 6));
        ++steps;
    }
    EXPECT_EQ(whole.Problem(), "");
    EXPECT_GE(steps, 2);
    EXPECT_EQ(whole.Contents().Items, 3001)
        << "the second step begins with the store, and what comes then is not in it";
}

TEST_F(WindowBackup, OneThatIsLeftEarlyLeavesNoTrace) {
    Program.GivenAppointment(u"Item", At(2004, 11, 5, 8, 0), At(2004, 11, 5, 8, 30));
    {
        backup::DeviceBackup whole(files::DeviceRoot(Folder.string()), (Folder / "all.tavo").string());
        EXPECT_TRUE(whole.Step());
        EXPECT_TRUE(whole.Step());
        EXPECT_TRUE(fs::exists(Folder / "all.tavo.unfinished"));
    }
    EXPECT_FALSE(fs::exists(Folder / "all.tavo.unfinished"));
    EXPECT_FALSE(fs::exists(Folder / "all.tavo"));
    EXPECT_THAT(Boxes(), IsEmpty());
}

} // namespace
} // namespace tavo::test
