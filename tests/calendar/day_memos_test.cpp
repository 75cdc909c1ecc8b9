// Memos made, opened and kept from the menu of a day.
#include "tests/calendar/day_menu_desk.h"
#include "tests/support/folder_probe.h"

namespace tavo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(DayMenuTest, AddMemoNamesTheFileByTheSelectedDayAndTheTimeOfSaving) {
    Open();
    Program.Device.Tap(50, 200); // the 4th of October, shown grey under September
    Choose(kCommandAddMemo);
    Draw();
    Program.Device.AdvanceClock(shell::Milliseconds(31000));
    Program.Device.PressOk();
    Settle();
    EXPECT_TRUE(Program.ReadFile("20041004_101531.pwi").has_value());
    EXPECT_EQ(Program.CellName(5, 1), u"2004-10-04: memo");
}

TEST_F(DayMenuTest, AMemoWithoutInkIsNotWritten) {
    Open();
    TapDay();
    Choose(kCommandAddMemo);
    Program.Device.PressOk();
    TapDay();
    Choose(kCommandAddMemo);
    Draw();
    Program.Device.PressClose();
    TapDay();
    Check([this] { EXPECT_EQ(Captions()[kEntryMemo], u"(Memo: 0)"); });
    Choose(0);
    Settle();
}

TEST_F(DayMenuTest, AnotherMemoBeginsOnEmptyPaper) {
    Open();
    TapDay();
    Choose(kCommandAddMemo);
    Draw();
    Program.Device.PressOk();
    TapDay();
    Choose(kCommandAddMemo);
    Check([this] {
        const WindowHandle paper = Program.Device.See.Control(kInkPaper);
        EXPECT_EQ(Program.Device.Host().Papers.Find(paper).Ink().Strokes().size(), 0U);
    });
    Program.Device.PressClose();
    Settle();
}

TEST_F(DayMenuTest, AMemoWithoutInkLeavesTheMonthAsItIs) {
    Open();
    TapDay();
    Choose(kCommandAddMemo);
    const AskedRestrictions asked(Program.State().Store.CalendarFolder);
    Program.Device.PressOk(); // without ink
    Settle();
    EXPECT_THAT(asked.Texts, ElementsAre(u"[Start] <= 9/15/2004 and [End] >= 9/15/2004")); // for the day's menu
}

TEST_F(DayMenuTest, TheSecondMemoOfASecondReplacesTheFirstWhichGoesToTheDeletedOnes) {
    Open();
    for (int memo = 0; memo < 2; ++memo) {
        TapDay();
        Choose(kCommandAddMemo);
        Draw();
        Program.Device.PressOk();
    }
    TapDay();
    Check([this] { EXPECT_THAT(EntriesOf(kEntryMemo), ElementsAre(u"33801 20040915_101500.pwi")); });
    Choose(0);
    Settle();
    EXPECT_EQ(DeletedMemos().size(), 1U);
}

TEST_F(DayMenuTest, AMemoIsOpenedAndKeepsItsNameWhenItChanges) {
    Open();
    TapDay();
    Choose(kCommandAddMemo);
    Draw();
    Program.Device.PressOk();
    Program.Device.AdvanceClock(shell::Milliseconds(5000));
    Settle();
    const std::optional<std::string> first = Program.ReadFile("20040915_101500.pwi");
    TapDay();
    Choose(33801);
    Check([this] {
        EXPECT_EQ(Program.Device.See.Caption(), u"Memo");
        const WindowHandle paper = Program.Device.See.Control(kInkPaper);
        EXPECT_EQ(Program.Device.Host().Papers.Find(paper).Ink().Strokes().size(), 1U);
    });
    Draw();
    Program.Device.PressOk();
    TapDay();
    Check([this] { EXPECT_THAT(EntriesOf(kEntryMemo), ElementsAre(u"33801 20040915_101500.pwi")); });
    Choose(0);
    Settle();
    ASSERT_TRUE(first.has_value());
    EXPECT_NE(Program.ReadFile("20040915_101500.pwi"), first);
}

TEST_F(DayMenuTest, DeleteNoteLeavesTheMemoFileAsItWas) {
    Open();
    Program.WriteFile("20040915_080000.pwi", "of another program");
    TapDay();
    Choose(33801);
    Program.Device.ChooseMenu(u"Tool", kCommandDeleteNote);
    Program.Device.AnswerBox(IDYES);
    Settle();
    EXPECT_EQ(Program.ReadFile("20040915_080000.pwi"), "of another program");
}

TEST_F(DayMenuTest, AMemoFileThatIsGoneIsSaidInOneSentenceAndNothingIsWritten) {
    Open();
    Program.WriteFile("20040915_080000.pwi", "ink");
    TapDay();
    Check([this] { std::filesystem::remove(Program.DataFolder() / "20040915_080000.pwi"); });
    Choose(33801);
    Program.Device.AnswerBox(IDOK);
    Check([this] { EXPECT_FALSE(Program.Device.See.IsDialogOpen()); });
    Settle();
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|This memo could not be read."));
    EXPECT_FALSE(Program.ReadFile("20040915_080000.pwi").has_value());
    EXPECT_EQ(Program.CellName(2, 3), u"2004-09-15"); // its mark goes with it
}

TEST_F(DayMenuTest, AMemoThatIsNoFileAnyMoreCannotBeRead) {
    Open();
    Program.WriteFile("20040915_080000.pwi", "ink");
    TapDay();
    Check([this] {
        std::filesystem::remove(Program.DataFolder() / "20040915_080000.pwi");
        std::filesystem::create_directories(Program.DataFolder() / "20040915_080000.pwi");
    });
    Choose(33801);
    Program.Device.AnswerBox(IDOK);
    Settle();
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|This memo could not be read."));
}

TEST_F(DayMenuTest, AFolderThatVanishedIsMadeAgain) {
    Open();
    TapDay();
    Choose(kCommandAddMemo);
    Draw();
    Check([this] { std::filesystem::remove_all(Program.DataFolder().parent_path()); });
    Program.Device.PressOk();
    Settle();
    EXPECT_TRUE(Program.ReadFile("20040915_101500.pwi").has_value());
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(DayMenuTest, WhereAMemoCannotBeWrittenTheEditorStaysOpen) {
    Open();
    TapDay();
    Choose(kCommandAddMemo);
    Draw();
    // Something that is no file stands in the memo's place.
    Check([this] { std::filesystem::create_directories(Program.DataFolder() / "20040915_101500.pwi"); });
    Program.Device.PressOk();
    Program.Device.AnswerBox(IDOK);
    Check([this] { EXPECT_EQ(Program.Device.See.Caption(), u"Memo"); });
    Program.Device.AdvanceClock(shell::Milliseconds(1000));
    Program.Device.PressOk();
    Settle();
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|The memo could not be saved. It is still open."));
    EXPECT_TRUE(Program.ReadFile("20040915_101501.pwi").has_value());
}

} // namespace
} // namespace tavo::test
