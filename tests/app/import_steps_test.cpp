// Importing files whose every step is scripted: what it says of its way, and whether the pages must look again.
#include "app/file_import.h"
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using testing::ElementsAre;

class ScriptedImport final : public ICalendarImport {
  public:
    bool HasFiles() const { return Files > 0; }

    std::optional<std::u16string> NextFile() override {
        return Files-- > 0 ? std::optional<std::u16string>(u"a.ics") : std::nullopt;
    }

    bool LookOn() override { return IsLong; }

    int CountEntries() const override { return Entries; }

    bool ImportOn() override { return IsLong; }

    void Leave() override { ++TimesLeft; }

    int Progress() const override { return Thousandths; }

    std::u16string Problem() const override { return Trouble; }

    std::u16string Outcome() const override { return u"all is well"; }

    int Files = 1;
    bool IsLong = false; // a step is followed by another
    int Entries = 3;
    int Thousandths = 0;
    int TimesLeft = 0;
    std::u16string Trouble;
};

class ImportSteps : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(Program.Start()); }

    // Goes on with the script meanwhile. Whether the pages must look again.
    bool Import(std::initializer_list<int> answers = {}) {
        for (const int answer : answers) {
            Program.Device.AnswerBox(answer);
        }
        const bool hasChanged = ImportCalendarFiles(Program.State(), File);
        EXPECT_TRUE(Program.Settle());
        return hasChanged;
    }

    std::vector<std::u16string> Boxes() {
        std::vector<std::u16string> texts;
        for (const MessageBoxDescription& box : Program.Device.Host().Seen.Boxes) {
            texts.push_back(box.Text);
        }
        return texts;
    }

    RunningProgram Program;
    ScriptedImport File;
};

TEST_F(ImportSteps, AnImportChangesWhatThePagesShow) {
    EXPECT_TRUE(Import({IDYES, IDOK}));
    EXPECT_THAT(Boxes(), ElementsAre(u"Import 3 entries from a.ics?", u"a.ics: all is well"));
    EXPECT_EQ(File.TimesLeft, 1);
}

TEST_F(ImportSteps, WithoutAFileNothingChanges) {
    File.Files = 0;
    EXPECT_FALSE(Import());
    EXPECT_EQ(File.TimesLeft, 1);
}

TEST_F(ImportSteps, AFileThatCannotBeReadChangesNothing) {
    File.Trouble = u"it is torn";
    EXPECT_FALSE(Import({IDOK}));
    EXPECT_THAT(Boxes(), ElementsAre(u"a.ics: it is torn. Nothing of it was imported."));
}

TEST_F(ImportSteps, AFileWithoutEntriesChangesNothing) {
    File.Entries = 0;
    EXPECT_FALSE(Import({IDOK}));
    EXPECT_THAT(Boxes(), ElementsAre(u"In a.ics there is nothing to import."));
}

TEST_F(ImportSteps, AFileThatNobodyWantsChangesNothing) {
    EXPECT_FALSE(Import({IDNO}));
    EXPECT_THAT(Boxes(), ElementsAre(u"Import 3 entries from a.ics?"));
    EXPECT_EQ(File.TimesLeft, 1);
}

TEST_F(ImportSteps, AFileThatIsWantedAfterOneThatIsNotChangesWhatThePagesShow) {
    File.Files = 2;
    EXPECT_TRUE(Import({IDNO, IDYES, IDOK}));
}

TEST_F(ImportSteps, AFileThatIsNotWantedAfterOneThatIsStillLeavesThatChange) {
    File.Files = 2;
    EXPECT_TRUE(Import({IDYES, IDOK, IDNO}));
}

TEST_F(ImportSteps, ALongLookSaysItsShareInHundredthsAndIsLeftWhenItIsCancelled) {
    File.IsLong = true;
    File.Thousandths = 10;
    Program.Device.AdvanceClock(1);
    Program.Device.Do([this] {
        EXPECT_EQ(Program.Device.See.Items().at(0).Name, u"1% looked at");
        EXPECT_EQ(File.TimesLeft, 0);
    });
    Program.Device.TapControl(IDCANCEL);
    EXPECT_FALSE(Import());
    EXPECT_EQ(File.TimesLeft, 2); // the file, and then all of them
}

} // namespace
} // namespace tavo::test
