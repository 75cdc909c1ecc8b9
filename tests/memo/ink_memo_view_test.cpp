// The ink editor: its two states, its commands, and what becomes of the ink.
#include "memo/ink_memo_view.h"

#include "memo/memo_file_keeper.h"
#include "tests/memo/memo_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace tavo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::array<int, 5> kZoomCommands{kCommandZoom75, kCommandZoom100, kCommandZoom150, kCommandZoom200,
                                           kCommandZoom300};
constexpr std::array<int, 5> kZooms{75, 100, 150, 200, 300};
constexpr std::u16string_view kMemoName = u"\\My Documents\\TavoCalendar\\20040915_101500.pwi";

class InkMemoView : public testing::Test {
  protected:
    int Run() { return Desk.Run(Editor); }

    void Choose(std::u16string menu, int command) { Desk.Device.ChooseMenu(std::move(menu), command); }

    // The zooms whose items are checked.
    std::vector<int> CheckedZooms() {
        std::vector<int> zooms;
        for (std::size_t index = 0; index < kZooms.size(); ++index) {
            if (Desk.IsChecked(kZoomCommands[index])) {
                zooms.push_back(kZooms[index]);
            }
        }
        return zooms;
    }

    int Ask(MessageNumber number) { return Desk.Paper().SendMessageW(number, 0, 0); }

    int Zoom() { return Desk.Paper().View().Zoom(); }

    // Ink as the control gives it: of a memo with so many strokes.
    std::vector<std::uint8_t> GivenInk(int strokes = 1) {
        MemoDesk other;
        CInkMemoView editor(other.Pump, other.State);
        for (int stroke = 0; stroke < strokes; ++stroke) {
            other.Draw(40 + 20 * stroke);
        }
        other.Device.PressOk();
        EXPECT_EQ(other.Run(editor), IDOK);
        EXPECT_THAT(other.Buffer(), testing::Not(IsEmpty()));
        return other.Buffer();
    }

    MemoDesk Desk;
    CInkMemoView Editor{Desk.Pump, Desk.State};
};

TEST_F(InkMemoView, OpensInWritingAtZoom150) {
    Desk.Check([this] {
        EXPECT_EQ(Desk.Device.See.Caption(), u"Memo");
        EXPECT_EQ(Ask(kInkGetPageStyle), 2);
        EXPECT_EQ(Ask(kInkGetView), 2);
        EXPECT_EQ(Zoom(), 150);
        EXPECT_THAT(CheckedZooms(), ElementsAre(150));
        EXPECT_TRUE(Desk.IsChecked(kCommandInputMode));
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, ThePaperLeaves24LinesFreeUnderIt) {
    Desk.Check([this] {
        const shell::WindowTree& tree = Desk.Device.Host().State.Tree;
        EXPECT_EQ(tree.Find(Desk.Device.See.Control(kInkPaper))->Bounds, (Rect{0, 0, 240, 244}));
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, TheModeButtonGoesBetweenWritingAndReading) {
    Desk.Device.PressBarButton(kCommandInputMode);
    Desk.Check([this] {
        EXPECT_EQ(Ask(kInkGetPageStyle), 16);
        EXPECT_EQ(Ask(kInkGetView), 0);
        EXPECT_EQ(Zoom(), 100);
        EXPECT_THAT(CheckedZooms(), ElementsAre(100));
        EXPECT_FALSE(Desk.IsChecked(kCommandInputMode));
    });
    Desk.Device.PressBarButton(kCommandInputMode);
    Desk.Check([this] {
        EXPECT_EQ(Ask(kInkGetPageStyle), 2);
        EXPECT_EQ(Ask(kInkGetView), 2);
        EXPECT_EQ(Zoom(), 150);
        EXPECT_TRUE(Desk.IsChecked(kCommandInputMode));
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, AnotherPageStyleIsLeftAloneButTheViewBecomesWriting) {
    Desk.Check([this] {
        Desk.Paper().SendMessageW(kInkSetPageStyle, kInkStyleGrid, 0);
        Desk.Paper().SendMessageW(kInkSetView, kInkViewTyping, 0);
    });
    Desk.Device.PressBarButton(kCommandInputMode);
    Desk.Check([this] {
        EXPECT_EQ(Ask(kInkGetPageStyle), kInkStyleGrid);
        EXPECT_EQ(Ask(kInkGetView), 2);
        EXPECT_EQ(Zoom(), 150);
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, EachZoomIsSentAndItsItemAloneIsChecked) {
    for (std::size_t index = 0; index < kZooms.size(); ++index) {
        Choose(u"Tool", kZoomCommands[index]);
        Desk.Check([this, index] {
            EXPECT_EQ(Zoom(), kZooms[index]);
            EXPECT_THAT(CheckedZooms(), ElementsAre(kZooms[index]));
        });
    }
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, Zoom300AndTheModeButtonGiveTheZoomOfTheMode) {
    Choose(u"Tool", kCommandZoom300);
    Desk.Device.PressBarButton(kCommandInputMode);
    Desk.Check([this] { EXPECT_THAT(CheckedZooms(), ElementsAre(100)); });
    Choose(u"Tool", kCommandZoom300);
    Desk.Device.PressBarButton(kCommandInputMode);
    Desk.Check([this] {
        EXPECT_THAT(CheckedZooms(), ElementsAre(150));
        EXPECT_EQ(Zoom(), 150);
    });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, EditCommandsAreEnabledByWhatThePaperCanDo) {
    const auto expectEnabled = [this](bool undo, bool redo, bool selection, bool paste) {
        Desk.Device.OpenMenu(u"Edit");
        Desk.Check([=, this] {
            EXPECT_EQ(Desk.CanChoose(kCommandUndo), undo);
            EXPECT_EQ(Desk.CanChoose(kCommandRedo), redo);
            EXPECT_EQ(Desk.CanChoose(kCommandCut), selection);
            EXPECT_EQ(Desk.CanChoose(kCommandCopy), selection);
            EXPECT_EQ(Desk.CanChoose(kCommandClear), selection);
            EXPECT_EQ(Desk.CanChoose(kCommandPaste), paste);
            EXPECT_TRUE(Desk.CanChoose(kCommandSelectAll));
            Desk.Device.Host().Navigation.CloseBarMenu();
        });
    };
    expectEnabled(false, false, false, false);
    Desk.Draw();
    expectEnabled(true, false, false, false);
    Choose(u"Edit", kCommandUndo);
    expectEnabled(false, true, false, false);
    Choose(u"Edit", kCommandRedo);
    expectEnabled(true, false, false, false);
    Desk.Device.PressBarButton(kCommandInputMode);
    Choose(u"Edit", kCommandSelectAll);
    expectEnabled(true, false, true, false);
    Choose(u"Edit", kCommandCopy);
    expectEnabled(true, false, true, true);
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, TheEditCommandsWorkOnTheInk) {
    Desk.Draw(60);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 1U); });
    Choose(u"Edit", kCommandUndo);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 0U); });
    Choose(u"Edit", kCommandRedo);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 1U); });
    Desk.Device.PressBarButton(kCommandInputMode);
    Choose(u"Edit", kCommandSelectAll);
    Choose(u"Edit", kCommandCopy);
    Choose(u"Edit", kCommandPaste);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 2U); });
    Choose(u"Edit", kCommandSelectAll);
    Choose(u"Edit", kCommandCut);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 0U); });
    Choose(u"Edit", kCommandPaste);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 2U); });
    Choose(u"Edit", kCommandSelectAll);
    Choose(u"Edit", kCommandClear);
    Desk.Check([this] { EXPECT_EQ(Desk.Strokes(), 0U); });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

TEST_F(InkMemoView, TheSecondButtonShowsAndHidesThePens) {
    Desk.Check([this] { EXPECT_FALSE(Desk.Paper().RecorderBar().has_value()); });
    Desk.Device.PressBarButton(kCommandRecorderBar);
    Desk.Check([this] { EXPECT_TRUE(Desk.Paper().RecorderBar().has_value()); });
    Desk.Device.PressBarButton(kCommandRecorderBar);
    Desk.Check([this] { EXPECT_FALSE(Desk.Paper().RecorderBar().has_value()); });
    Desk.Device.PressClose();
    EXPECT_EQ(Run(), IDCANCEL);
}

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
}

TEST_F(InkMemoView, InkThatWasOnlyLookedAtIsNotKeptWhenTheProgramQuits) {
    Desk.State.Memo.Fill(GivenInk());
    EXPECT_EQ(Run(), kLeftOpen);
    EXPECT_FALSE(Desk.Files.HasMemo(2004, 9, 15));
}

} // namespace
} // namespace tavo::test
