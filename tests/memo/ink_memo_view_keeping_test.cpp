// What becomes of the ink in the editor: at OK, at Delete Note, when the program quits.
#include "tests/memo/ink_memo_view_desk.h"

#include "memo/memo_file_keeper.h"

#include <filesystem>
#include <iterator>
#include <system_error>

namespace tavo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(InkMemoView, OkWithNothingDrawnLeavesTheBufferEmpty) {
    Desk.Device.PressOk();
    EXPECT_EQ(Run(), IDOK);
    EXPECT_TRUE(Desk.State.Memo.IsEmpty());
}

TEST_F(InkMemoView, OkLeavesTheInkInTheBufferAndOpeningShowsIt) {
    const std::vector<std::uint8_t> ink = GivenInk(2);
    Desk.State.Memo.Fill(ink);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 2U); });
    Desk.Device.PressOk();
    EXPECT_EQ(Run(), IDOK);
    EXPECT_EQ(Desk.Buffer(), ink);
}

TEST_F(InkMemoView, ClosingAndEscapeCancel) {
    Desk.Draw();
    Desk.Device.Key(VK_ESCAPE);
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, OkOnInkThatNobodyChangedWritesNothing) {
    const std::vector<std::uint8_t> ink = GivenInk();
    Desk.State.Memo.Fill(ink);
    MemoFileKeeper keeper(Desk.State);
    keeper.Path = kMemoName;
    Editor.Keeper = &keeper;
    Desk.Device.PressOk();
    EXPECT_EQ(Run(), IDOK);
    EXPECT_EQ(Desk.Host.OwnFiles.LastWritten, u"");
    EXPECT_EQ(Desk.Buffer(), ink);
}

TEST_F(InkMemoView, WhatIsDrawnAndTakenBackWritesNothing) {
    Desk.State.Memo.Fill(GivenInk());
    MemoFileKeeper keeper(Desk.State);
    keeper.Path = kMemoName;
    Editor.Keeper = &keeper;
    Desk.Draw(90);
    Choose(u"Edit", kCommandUndo);
    Desk.Device.PressOk();
    EXPECT_EQ(Run(), IDOK);
    EXPECT_EQ(Desk.Host.OwnFiles.LastWritten, u"");
}

TEST_F(InkMemoView, DeleteNoteAnsweredNoChangesNothing) {
    Desk.State.Memo.Fill(GivenInk());
    Choose(u"Tool", kCommandDeleteNote);
    Desk.Device.AnswerBox(IDNO);
    Desk.Check([this] {
        EXPECT_TRUE(Desk.Device.See.IsDialogOpen());
        EXPECT_EQ(Desk.Strokes(), 1U);
    });
    Desk.Device.PressOk();
    EXPECT_EQ(Run(), IDOK);
    EXPECT_FALSE(Desk.State.Memo.IsEmpty());
    EXPECT_THAT(Desk.Messages(), ElementsAre(u"|This memo will be deleted. Continue?"));
}

TEST_F(InkMemoView, DeleteNoteAnsweredYesEndsWithOkAndAnEmptyBuffer) {
    Desk.State.Memo.Fill(GivenInk());
    MemoFileKeeper keeper(Desk.State);
    keeper.Path = kMemoName;
    Editor.Keeper = &keeper;
    Choose(u"Tool", kCommandDeleteNote);
    Desk.Device.AnswerBox(IDYES);
    EXPECT_EQ(Run(), IDOK);
    EXPECT_TRUE(Desk.State.Memo.IsEmpty());
    EXPECT_EQ(Desk.Host.OwnFiles.LastWritten, u"");
}

TEST_F(InkMemoView, DeleteNoteWithAPathDeletesTheFileAndCancels) {
    const std::vector<std::uint8_t> ink = GivenInk();
    Desk.State.Memo.Fill(ink);
    ASSERT_TRUE(Desk.Files.WriteMemo(kMemoName));
    Editor.FilePath = kMemoName;
    Choose(u"Tool", kCommandDeleteNote);
    Desk.Device.AnswerBox(IDYES);
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_FALSE(Desk.Files.HasMemo(2004, 9, 15));
}

TEST_F(InkMemoView, OkWithAPathWritesTheFile) {
    Editor.FilePath = kMemoName;
    Desk.Draw();
    Desk.Device.PressOk();
    EXPECT_EQ(Run(), IDOK);
    EXPECT_TRUE(Desk.Files.HasMemo(2004, 9, 15));
    EXPECT_FALSE(Desk.State.Memo.IsEmpty());
}

TEST_F(InkMemoView, SaveAsAsksForANameAndWritesThere) {
    Editor.SaveAsMode = true;
    Editor.FilePath = u"\\proposed.pwi";
    Desk.Draw();
    Desk.Device.PressOk();
    Desk.Check([this] {
        EXPECT_EQ(Desk.Device.See.Caption(), u"Save As");
        EXPECT_EQ(Desk.Device.See.TextOf(kCopyMemoName), u"\\proposed.pwi");
    });
    Desk.Device.TypeInto(kCopyMemoName, kMemoName);
    Desk.Device.TapControl(kCopyMemoOk);
    EXPECT_EQ(Run(), IDOK);
    EXPECT_TRUE(Desk.Files.HasMemo(2004, 9, 15));
}

TEST_F(InkMemoView, SaveAsWithABadNameSaysSoAndStaysOpen) {
    Editor.SaveAsMode = true;
    Desk.Draw();
    Desk.Device.PressOk();
    Desk.Device.TypeInto(kCopyMemoName, u"\\no such folder\\memo.pwi");
    Desk.Device.TapControl(kCopyMemoOk);
    Desk.Device.AnswerBox(IDOK);
    Desk.Check([this] {
        EXPECT_EQ(Desk.Device.See.Caption(), u"Memo");
        EXPECT_EQ(Desk.Strokes(), 1U);
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_THAT(Desk.Messages(), ElementsAre(u"Tavo Calendar|Please check the file name is valid."));
}

TEST_F(InkMemoView, SaveAsWithoutInkOrWithoutANameCancels) {
    Editor.SaveAsMode = true;
    Desk.Device.PressOk();
    EXPECT_EQ(Run(), IDCANCEL);
    Desk.Draw();
    Desk.Device.PressOk();
    Desk.Device.TapControl(IDCANCEL);
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_EQ(Desk.Host.OwnFiles.LastWritten, u"");
}

TEST_F(InkMemoView, WhereTheMemoCannotBeKeptTheEditorStaysOpenWithItsInk) {
    MemoFileKeeper keeper(Desk.State);
    keeper.Year = 2004;
    keeper.Month = 9;
    keeper.Day = 15;
    Editor.Keeper = &keeper;
    Desk.Host.OwnFiles.WriteResult = ErrorCode::DiskFull;
    Desk.Draw();
    Desk.Device.PressOk();
    Desk.Device.AnswerBox(IDOK);
    Desk.Check([this] {
        EXPECT_EQ(Desk.Strokes(), 1U);
        Desk.Host.OwnFiles.WriteResult = ErrorCode::Success; // somebody made room
    });
    Desk.Device.PressOk();
    EXPECT_EQ(Run(), IDOK);
    EXPECT_THAT(Desk.Messages(), ElementsAre(u"Tavo Calendar|The memo could not be saved. It is still open."));
    EXPECT_TRUE(Desk.Files.HasMemo(2004, 9, 15));
}

TEST_F(InkMemoView, BytesOfAnotherProgramStayAsTheyAreUntilSomebodyWrites) {
    MemoFileKeeper keeper(Desk.State);
    keeper.Path = kMemoName;
    Editor.Keeper = &keeper;
    Desk.State.Memo.Fill({1, 2, 3});
    Desk.Device.PressOk();
    EXPECT_EQ(Run(), IDCANCEL);
    EXPECT_EQ(Desk.Host.OwnFiles.LastWritten, u"");

    Desk.State.Memo.Fill({1, 2, 3});
    Desk.Draw();
    Desk.Device.PressOk();
    EXPECT_EQ(Run(), IDOK);
    EXPECT_EQ(Desk.Host.OwnFiles.LastWritten, kMemoName);
    EXPECT_NE(Desk.Buffer(), (std::vector<std::uint8_t>{1, 2, 3}));
}

TEST_F(InkMemoView, DeleteNoteTakesAwayAnotherProgramsBytes) {
    Desk.State.Memo.Fill({1, 2, 3});
    Choose(u"Tool", kCommandDeleteNote);
    Desk.Device.AnswerBox(IDYES);
    EXPECT_EQ(Run(), IDOK);
    EXPECT_TRUE(Desk.State.Memo.IsEmpty());
}

TEST_F(InkMemoView, WhatIsWrittenWhenTheProgramQuitsIsKept) {
    MemoFileKeeper keeper(Desk.State);
    keeper.Path = kMemoName;
    Editor.Keeper = &keeper;
    Desk.Draw();
    EXPECT_EQ(Run(), kLeftOpen);
    EXPECT_TRUE(Desk.Files.HasMemo(2004, 9, 15));
}

TEST_F(InkMemoView, WithoutAPlaceOfItsOwnItBecomesAMemoOfTodayBesideTheOthers) {
    Desk.State.Memo.Fill({9});
    ASSERT_TRUE(Desk.Files.WriteMemo(kMemoName)); // of this very second
    Desk.State.Memo.Empty();
    Desk.Draw();
    EXPECT_EQ(Run(), kLeftOpen);
    EXPECT_THAT(Desk.Files.FindMemos(2004, 9, 15),
                testing::UnorderedElementsAre(u"20040915_101500.pwi", u"20040915_101501.pwi"));
    EXPECT_THAT(Desk.Host.Ink().FindRecovered(), IsEmpty());
}

TEST_F(InkMemoView, WhereThatCannotBeWrittenTheNextStartAsks) {
    Desk.Host.OwnFiles.WriteResult = ErrorCode::DiskFull;
    Desk.Draw();
    EXPECT_EQ(Run(), kLeftOpen);
    EXPECT_THAT(Desk.Host.Ink().FindRecovered(), testing::SizeIs(1));
}

TEST_F(InkMemoView, InkOfAnItemBecomesAMemoOfTheItemsDayWhenTheProgramQuits) {
    Editor.Home.Item = 4711;
    Editor.Home.Day = At(2004, 9, 20);
    Desk.Draw();
    EXPECT_EQ(Run(), kLeftOpen);
    EXPECT_THAT(Desk.Files.FindMemos(2004, 9, 20), ElementsAre(u"20040920_101500.pwi"));
    EXPECT_FALSE(Desk.Files.HasMemo(2004, 9, 15));
}

TEST_F(InkMemoView, WhatCannotBeKeptWhenTheProgramQuitsIsFoundAtTheNextStart) {
    MemoFileKeeper keeper(Desk.State);
    keeper.Path = kMemoName;
    Editor.Keeper = &keeper;
    Editor.Home.Memo = kMemoName;
    Editor.Home.Day = At(2004, 9, 20);
    Desk.Host.OwnFiles.WriteResult = ErrorCode::DiskFull;
    Desk.Draw();
    std::vector<std::uint8_t> ink;
    Desk.Check([&] { ink = Desk.Paper().GetData(); });
    EXPECT_EQ(Run(), kLeftOpen);
    const std::vector<RecoveredInk> left = Desk.Host.Ink().FindRecovered();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].Data, ink);
    EXPECT_EQ(DecodeInkHome(left[0].Home), Editor.Home);
    EXPECT_THAT(Desk.Messages(), IsEmpty());
}

TEST_F(InkMemoView, WhatWasKeptWhenTheProgramQuitsLeavesNothingToRecover) {
    MemoFileKeeper keeper(Desk.State);
    keeper.Path = kMemoName;
    Editor.Keeper = &keeper;
    Desk.Draw();
    Desk.Check([this] { Desk.Device.Host().Papers.SaveRecovery(); });
    EXPECT_EQ(Run(), kLeftOpen);
    EXPECT_TRUE(Desk.Files.HasMemo(2004, 9, 15));
    EXPECT_THAT(Desk.Host.Ink().FindRecovered(), IsEmpty());
}

TEST_F(InkMemoView, AStrokeThatThePenIsStillDrawingIsKeptToo) {
    Desk.Check([this] {
        Desk.Paper().PenDown(ink::PenEnd::Tip, {{20, 60}, ink::kNoPressure, 1000});
        Desk.Paper().PenMove({{120, 60}, ink::kNoPressure, 1050});
    });
    EXPECT_EQ(Run(), kLeftOpen);
    EXPECT_TRUE(Desk.Files.HasMemo(2004, 9, 15));
}

TEST_F(InkMemoView, InkThatWasOnlyLookedAtIsNotKeptWhenTheProgramQuits) {
    Desk.State.Memo.Fill(GivenInk());
    EXPECT_EQ(Run(), kLeftOpen);
    EXPECT_FALSE(Desk.Files.HasMemo(2004, 9, 15));
    EXPECT_THAT(Desk.Host.Ink().FindRecovered(), IsEmpty());
}

TEST_F(InkMemoView, PaperFromWhichAllWasClearedIsNotKeptWhenTheProgramQuits) {
    Desk.State.Memo.Fill(GivenInk());
    Desk.Device.PressBarButton(kCommandInputMode);
    Choose(u"Edit", kCommandSelectAll);
    Choose(u"Edit", kCommandClear);
    EXPECT_EQ(Run(), kLeftOpen);
    EXPECT_FALSE(Desk.Files.HasMemo(2004, 9, 15));
    EXPECT_THAT(Desk.Host.Ink().FindRecovered(), IsEmpty());
}

TEST_F(InkMemoView, DeleteNoteBeforeANameIsChosenDeletesNoFile) {
    Desk.State.Memo.Fill(GivenInk());
    ASSERT_TRUE(Desk.Files.WriteMemo(kMemoName));
    Editor.SaveAsMode = true;
    Editor.FilePath = kMemoName;
    Choose(u"Tool", kCommandDeleteNote);
    Desk.Device.AnswerBox(IDYES);
    EXPECT_EQ(Run(), IDOK);
    EXPECT_TRUE(Desk.Files.HasMemo(2004, 9, 15));
}

} // namespace
} // namespace tavo::test
