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

    // What a program that dies while somebody writes a memo leaves behind, on another device.
    void GivenUnsavedMemo(const std::string& name = "unsaved") {
        RunningProgram dying(At(2004, 9, 15, 10, 15));
        ASSERT_TRUE(dying.Start());
        dying.ShowPage(2);
        dying.Device.Key(VK_RETURN);
        dying.Device.ChooseTracked(kCommandAddMemo);
        dying.Device.Do([&] {
            ink::InkDesk& desk = dying.Device.Host().Papers;
            ink::InkControl& paper = desk.Find(dying.Device.See.Control(kInkPaper));
            paper.PenDown(ink::PenEnd::Tip, {{20, 60}, ink::kNoPressure, 1000});
            paper.PenMove({{120, 60}, ink::kNoPressure, 1050});
            paper.PenUp({{120, 60}, ink::kNoPressure, 1060});
            desk.SaveRecovery();
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

} // namespace
} // namespace tavo::test
