// What the start does about ink that a crash left.
#include "memo/memo_files.h"
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace tavo::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class InkRecoveryAtStart : public testing::Test {
  protected:
    static fs::path FolderOf(RunningProgram& program) {
        return program.DataFolder().parent_path().parent_path() / "Recovery";
    }

    static void DrawOn(RunningProgram& program) {
        ink::InkControl& paper = program.Device.Host().Papers.Find(program.Device.See.Control(kInkPaper));
        paper.PenDown(ink::PenEnd::Tip, {{20, 60}, ink::kNoPressure, 1000});
        paper.PenMove({{120, 60}, ink::kNoPressure, 1050});
        paper.PenUp({{120, 60}, ink::kNoPressure, 1060});
        program.Device.Host().Papers.SaveRecovery();
    }

    // The program is killed at this point of the script: what it left is put back after it ended by itself.
    void KillHere() {
        Program.Device.Do([this] {
            for (const auto& entry : fs::directory_iterator(FolderOf(Program))) {
                if (entry.is_regular_file()) {
                    fs::rename(entry, entry.path().string() + ".kept");
                }
            }
        });
        Program.Device.PressClose();
        Program.Device.PressClose();
        EXPECT_TRUE(Program.Settle());
        Program.Stop();
        for (const auto& entry : fs::directory_iterator(FolderOf(Program))) {
            if (entry.path().extension() == ".kept") {
                fs::rename(entry, entry.path().parent_path() / entry.path().stem());
            }
        }
    }

    // What a program that dies while somebody writes a memo leaves behind, on another device.
    void GivenUnsavedMemo(const std::string& name = "unsaved") {
        RunningProgram dying(At(2004, 9, 15, 10, 15));
        ASSERT_TRUE(dying.Start());
        dying.ShowPage(2);
        dying.Device.Key(VK_RETURN);
        dying.Device.ChooseTracked(kCommandAddMemo);
        dying.Device.Do([&] {
            DrawOn(dying);
            fs::create_directories(FolderOf(Program));
            for (const auto& entry : fs::directory_iterator(FolderOf(dying))) {
                if (entry.is_regular_file()) {
                    fs::copy_file(entry, FolderOf(Program) / (name + entry.path().filename().string()));
                }
            }
        });
        dying.Device.PressClose();
        ASSERT_TRUE(dying.Settle());
    }

    std::vector<std::u16string> Memos() { return MemoFiles(Program.State()).FindMemos(2004, 9, 15); }

    std::vector<std::u16string> Boxes() {
        std::vector<std::u16string> boxes;
        for (const MessageBoxDescription& box : Program.Device.Host().Seen.Boxes) {
            boxes.push_back(box.Caption + u"|" + box.Text);
        }
        return boxes;
    }

    // Starts again on the same device; there is nothing to ask any more.
    void ExpectNothingAskedAgain() {
        const std::size_t asked = Boxes().size();
        Program.Stop();
        ASSERT_TRUE(Program.Start());
        EXPECT_EQ(Boxes().size(), asked);
    }

    RunningProgram Program{At(2004, 11, 3, 17, 10)};
};

TEST_F(InkRecoveryAtStart, WhatIsKeptBecomesAMemoOfTheDayOnWhichItWasWritten) {
    GivenUnsavedMemo();
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|A memo of 2004.09.15(Wed) was not saved. Keep it?"));
    EXPECT_THAT(Memos(), ElementsAre(u"20040915_101500.pwi"));
    ExpectNothingAskedAgain();
}

TEST_F(InkRecoveryAtStart, WhatIsDeclinedIsNoMemoAndNotAskedAboutAgain) {
    GivenUnsavedMemo();
    Program.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Memos(), IsEmpty());
    EXPECT_FALSE(fs::is_empty(FolderOf(Program) / "Declined"));
    ExpectNothingAskedAgain();
}

TEST_F(InkRecoveryAtStart, NoMemoTakesThePlaceOfAnother) {
    GivenUnsavedMemo("a");
    GivenUnsavedMemo("b");
    Program.WriteFile("20040915_101500.pwi", "there before");
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Memos(), UnorderedElementsAre(u"20040915_101500.pwi", u"20040915_101501.pwi", u"20040915_101502.pwi"));
    EXPECT_EQ(Program.ReadFile("20040915_101500.pwi"), "there before");
}

TEST_F(InkRecoveryAtStart, WithNothingLeftNothingIsAsked) {
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(InkRecoveryAtStart, ANewMemoBecomesOneOfTheDayThatWasSelected) {
    ASSERT_TRUE(Program.Start());
    Program.ShowPage(2);
    Program.Device.Key(VK_RIGHT, kModifierControl); // the 4th
    Program.Device.Key(VK_RETURN);
    Program.Device.ChooseTracked(kCommandAddMemo);
    Program.Device.Do([this] { DrawOn(Program); });
    KillHere();
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(u"Tavo Calendar|A memo of 2004.11.04(Thu) was not saved. Keep it?"));
    EXPECT_THAT(MemoFiles(Program.State()).FindMemos(2004, 11, 4), ElementsAre(u"20041104_171000.pwi"));
}

TEST_F(InkRecoveryAtStart, InkOfAMemoFileGoesBackToIt) {
    ASSERT_TRUE(Program.Start());
    Program.WriteFile("20041103_080000.pwi", "of another program");
    Program.ShowPage(2);
    Program.Device.Key(VK_RETURN);
    Program.Device.ChooseTracked(kCommandFirstMemo);
    Program.Device.Do([this] { DrawOn(Program); });
    KillHere();
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_NE(Program.ReadFile("20041103_080000.pwi"), "of another program");
    EXPECT_THAT(MemoFiles(Program.State()).FindMemos(2004, 11, 3), ElementsAre(u"20041103_080000.pwi"));
    ExpectNothingAskedAgain();
}

TEST_F(InkRecoveryAtStart, InkOfAMemoFileThatChangedMeanwhileComesBesideIt) {
    ASSERT_TRUE(Program.Start());
    Program.WriteFile("20041103_080000.pwi", "of another program");
    Program.ShowPage(2);
    Program.Device.Key(VK_RETURN);
    Program.Device.ChooseTracked(kCommandFirstMemo);
    Program.Device.Do([this] { DrawOn(Program); });
    KillHere();
    Program.WriteFile("20041103_080000.pwi", "newer");
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Program.ReadFile("20041103_080000.pwi"), "newer");
    EXPECT_THAT(MemoFiles(Program.State()).FindMemos(2004, 11, 3),
                UnorderedElementsAre(u"20041103_080000.pwi", u"20041103_080000 2.pwi"));
}

// Killed between writing the memo and letting go of what was kept for a crash.
TEST_F(InkRecoveryAtStart, InkThatIsWhereItBelongsIsNotAskedAbout) {
    ASSERT_TRUE(Program.Start());
    Program.WriteFile("20041103_080000.pwi", "of another program");
    Program.ShowPage(2);
    Program.Device.Key(VK_RETURN);
    Program.Device.ChooseTracked(kCommandFirstMemo);
    std::vector<std::uint8_t> ink;
    Program.Device.Do([&] {
        DrawOn(Program);
        ink = Program.Device.Host().Papers.Find(Program.Device.See.Control(kInkPaper)).GetData();
    });
    KillHere();
    Program.WriteFile("20041103_080000.pwi", std::string(ink.begin(), ink.end()));
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), IsEmpty());
    ExpectNothingAskedAgain();
}

TEST_F(InkRecoveryAtStart, InkThatWaitedForItsItemGoesBackToTheItem) {
    const Oid oid = Program.GivenAppointment(u"Dentist", At(2004, 11, 3, 9), At(2004, 11, 3, 10));
    ASSERT_TRUE(Program.Start());
    Program.ShowPage(2);
    Program.Device.Key(VK_RETURN);
    Program.Device.ChooseTracked(kCommandFirstSchedule);
    Program.Device.Key(VK_F1 + 1);         // modify
    for (int stop = 0; stop < 3; ++stop) { // the row before OK and Cancel
        Program.Device.Key(VK_TAB, kModifierShift);
    }
    Program.Device.Key(VK_SPACE);
    std::vector<std::uint8_t> ink;
    Program.Device.Do([&] {
        ASSERT_EQ(Program.Device.See.Caption(), u"Memo");
        DrawOn(Program);
        ink = Program.Device.Host().Papers.Find(Program.Device.See.Control(kInkPaper)).GetData();
    });
    Program.Device.PressOk();
    Program.Device.Do([&] { EXPECT_NE(Program.Device.See.Caption(), u"Memo"); });
    Program.Device.Do([this] {
        for (const auto& entry : fs::directory_iterator(FolderOf(Program))) {
            fs::rename(entry, entry.path().string() + ".kept");
        }
    });
    Program.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Program.Settle());
    Program.Stop();
    for (const auto& entry : fs::directory_iterator(FolderOf(Program))) {
        fs::rename(entry, entry.path().parent_path() / entry.path().stem());
    }
    Program.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Program.Start());
    EXPECT_EQ(Boxes().size(), 1U);
    ComPtr<IAppointment> item;
    std::vector<std::uint8_t> note;
    ASSERT_EQ(Program.Connect()->GetItemFromOid(oid, item), Status::Ok);
    ASSERT_EQ(item->get_BodyInk(note), Status::Ok);
    EXPECT_EQ(note, ink);
    EXPECT_FALSE(MemoFiles(Program.State()).HasMemo(2004, 11, 3));
}

} // namespace
} // namespace tavo::test
