// The built program on machines that lack what it needs.
#include "host/outlook/import_writer.h"
#include "host/posix/store_machine.h"
#include "tests/files/temporary_folder.h"
#include "tests/outlook/planted_rule.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace tavo::qt {
namespace {

using testing::HasSubstr;

// Who starts it from a menu reads its reason in a window, until that is closed.
constexpr int kStillShown = 124;

struct Ending {
    int Status = -1; // kStillShown: it was still running after a while
    std::string Words;
};

class ProgramStart : public testing::Test {
  protected:
    // A copy, so that no companion lies beside it.
    ProgramStart() { std::filesystem::copy_file(TAVO_PROGRAM, Folder / "tavocalendar"); }

    // Starts it with these variables and no others but PATH.
    Ending Start(const std::string& variables, int seconds = 20, const std::string& words = "") const {
        const std::string command = "env -i PATH=\"$PATH\" TAVO_TRACE_FRAMES='" + (Folder / "frames") + "' " +
                                    variables + " timeout " + std::to_string(seconds) + " '" +
                                    (Folder / "tavocalendar") + "' " + words + " 2>&1";
        std::FILE* output = popen(command.c_str(), "r");
        Ending ending;
        std::array<char, 256> part{};
        while (std::fgets(part.data(), part.size(), output) != nullptr) {
            ending.Words += part.data();
        }
        const int status = pclose(output);
        ending.Status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return ending;
    }

    std::string Home() const { return "TAVO_HOME='" + (Folder / "home") + "'"; }

    std::string FramesShown() const { return Folder.Has("frames") ? Folder.Get("frames") : ""; }

    files::TemporaryFolder Folder;
};

TEST_F(ProgramStart, WithoutADisplayItSaysWhatToDo) {
    const Ending ending = Start(Home());
    EXPECT_EQ(ending.Status, 1);
    EXPECT_THAT(ending.Words,
                HasSubstr("tavocalendar: there is no display. Start it from a desktop session, or set DISPLAY"));
    EXPECT_FALSE(Folder.Has("home"));
}

TEST_F(ProgramStart, ADisplayThatIsNotThereIsNoCrash) {
    const Ending ending = Start(Home() + " DISPLAY=:9876 QT_QPA_PLATFORM=xcb");
    EXPECT_EQ(ending.Status, 1);
    EXPECT_THAT(ending.Words, HasSubstr("tavocalendar: the display cannot be reached."));
}

TEST_F(ProgramStart, WithoutFontsItSaysWhatToInstallAndShowsNothing) {
    Folder.Put("no-fonts.conf", "<fontconfig><dir>" + (Folder / "none") + "</dir></fontconfig>");
    const Ending ending =
        Start(Home() + " QT_QPA_PLATFORM=offscreen FONTCONFIG_FILE='" + (Folder / "no-fonts.conf") + "'");
    EXPECT_EQ(ending.Status, 1);
    EXPECT_THAT(ending.Words, HasSubstr("tavocalendar: there are no fonts. Install a package with fonts"));
    EXPECT_EQ(FramesShown(), "");
}

TEST_F(ProgramStart, AHomeThatCannotBeMadeIsNamed) {
    Folder.Put("file", "");
    const Ending ending = Start("TAVO_HOME='" + (Folder / "file/home") + "' QT_QPA_PLATFORM=offscreen", 5);
    EXPECT_EQ(ending.Status, kStillShown);
    EXPECT_THAT(ending.Words, HasSubstr("tavocalendar: The folder " + (Folder / "file") + " cannot be used"));
}

TEST_F(ProgramStart, WithoutAHomeOfTheUserItAsksForOne) {
    const Ending ending = Start("HOME=/dev/null QT_QPA_PLATFORM=offscreen", 5);
    EXPECT_EQ(ending.Status, kStillShown);
    EXPECT_THAT(ending.Words, HasSubstr("set TAVO_HOME to a folder of your own"));
}

TEST_F(ProgramStart, HelpAndVersionAnswerWithoutADisplayToo) {
    const Ending help = Start(Home(), 20, "--help");
    EXPECT_EQ(help.Status, 0);
    EXPECT_THAT(help.Words, HasSubstr("tavocalendar --version"));
    EXPECT_THAT(help.Words, HasSubstr("tavocalendar FILE..."));
    const Ending version = Start(Home(), 20, "--version");
    EXPECT_EQ(version.Status, 0);
    EXPECT_EQ(version.Words, "tavocalendar " TAVO_VERSION "\n");
    EXPECT_FALSE(Folder.Has("home")); // nothing is made for an answer
}

TEST_F(ProgramStart, AnythingElseIsRefusedWithStatusTwo) {
    for (const std::string word : {"--nonsense", "-x", "--new", "--new=", "--new=meeting", "--newer", "'--new' meeting",
                                   "''", "'-some\x1B[31mthing'"}) {
        const Ending ending = Start(Home() + " QT_QPA_PLATFORM=offscreen", 20, word);
        EXPECT_EQ(ending.Status, 2) << word;
        EXPECT_THAT(ending.Words, HasSubstr("Try `tavocalendar --help`.")) << word;
        EXPECT_EQ(ending.Words.find('\x1B'), std::string::npos) << word;
        EXPECT_EQ(FramesShown(), "") << word;
    }
    EXPECT_EQ(Start(Home(), 20, "-platform").Status, 2); // its value is missing
}

TEST_F(ProgramStart, WithEverythingThereItShowsItsFirstFrame) {
    const Ending ending = Start(Home() + " QT_QPA_PLATFORM=offscreen TAVO_SCALE=1", 3);
    EXPECT_EQ(ending.Status, kStillShown) << ending.Words;
    EXPECT_NE(FramesShown(), "");
    const auto rights = std::filesystem::status(Folder / "frames").permissions();
    EXPECT_EQ(rights, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

// A file that somebody else chose is not written to.
TEST_F(ProgramStart, FramesAreNeverNotedThroughALink) {
    Folder.Put("precious", "kept");
    std::filesystem::create_symlink(Folder / "precious", Folder / "frames");
    const Ending ending = Start(Home() + " QT_QPA_PLATFORM=offscreen TAVO_SCALE=1", 3);
    EXPECT_EQ(ending.Status, 124) << ending.Words; // it runs all the same
    EXPECT_EQ(Folder.Get("precious"), "kept");
}

TEST_F(ProgramStart, AStoreWithARuleThatNamesItsCalendarIsOpenedAndShown) {
    std::filesystem::create_directories(Folder / "home");
    {
        outlook::StorePtr store;
        ASSERT_EQ(outlook::OpenStore(posix::SystemMachine(), Folder / "home/Outlook.db", {}, store), Status::Ok);
        outlook::ImportWriter writer(store);
        ASSERT_EQ(writer.Begin(u"Import"), Status::Ok);
        rules::StoredItem item;
        item.Start = rules::MakeTime(2026, 1, 5, 9);
        item.End = item.Start + 3600;
        item.ReminderSet = true;
        item.Pattern.Type = kRecursDaily;
        outlook::ImportOutcome outcome;
        ASSERT_EQ(writer.Write(item, outcome), Status::Ok);
        ASSERT_EQ(writer.Commit(), Status::Ok);
        ASSERT_TRUE(outlook::test::PlantRule(CoreOf(*store), outcome.Item,
                                             "RRULE:RSCALE=GREGORIAN;FREQ=DAILY\nRRULE:FREQ=WEEKLY"));
    }
    const Ending ending = Start(Home() + " QT_QPA_PLATFORM=offscreen TAVO_SCALE=1", 3);
    EXPECT_EQ(ending.Status, kStillShown) << ending.Words;
    EXPECT_NE(FramesShown(), "");
}

} // namespace
} // namespace tavo::qt
